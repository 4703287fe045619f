#include "wx/WxMessageBoxes.h"

#include <wx/msgdlg.h>
#ifdef __WXGTK__
#include <wx/generic/msgdlgg.h>
#endif

#include "foundation/Product.h"
#include "wx/AccessibleNames.h"
#include "wx/WxText.h"
#include "wx/WxToolkit.h"

namespace qb {
namespace {

#ifdef __WXGTK__
// The desktop's own boxes show no icons, by which the user tells a question from a failure.
using Box = wxGenericMessageDialog;
constexpr long kNoIcon = 0;
#else
using Box = wxMessageDialog;
constexpr long kNoIcon = wxICON_NONE;
#endif

constexpr int kButtonBits = 15;
constexpr int kIconBits = 112;

long IconStyle(int style) {
  switch (style & kIconBits) {
    case box::kStop:
      return wxICON_ERROR;
    case box::kQuestion:
      return wxICON_QUESTION;
    case box::kExclamation:
      return wxICON_EXCLAMATION;
    case box::kInformation:
      return wxICON_INFORMATION;
    default:
      return kNoIcon;
  }
}

long ButtonStyle(int style) {
  switch (style & kButtonBits) {
    case box::kYesNo:
      return wxYES_NO;
    case box::kYesNoCancel:
      return wxYES_NO | wxCANCEL;
    default:
      return wxOK;
  }
}

int Answer(int pressed, int style) {
  switch (pressed) {
    case wxID_YES:
      return box::kYes;
    case wxID_NO:
      return box::kNo;
    case wxID_OK:
      return box::kOk;
    default:
      break;
  }
  switch (style & kButtonBits) {
    case box::kYesNo:
      return box::kNo;
    case box::kYesNoCancel:
      return box::kCancel;
    default:
      return box::kOk;
  }
}

}  // namespace

int WxMessageBoxes::Show(const MessageBoxRequest& request) {
  const long buttons = ButtonStyle(request.style);
  long style = buttons | IconStyle(request.style) | wxCENTRE;
  if ((request.style & box::kSecondButtonDefault) != 0 && (buttons & wxNO) != 0) style |= wxNO_DEFAULT;
  const std::string title = request.title.value_or(std::string(kProductName));
  wxString text = ToWx(request.text);
  DrawChanges();
  text.Replace("\r\n", "\n");  // the toolkit takes each of the two for the end of a line
  Box dialog(ParentForDialogs(), text, ToWx(title), style);
  dialog.Bind(wxEVT_INIT_DIALOG, [&dialog](wxInitDialogEvent& event) {
    event.Skip();
    MarkAsDialog(dialog);
  });
  if (buttons == wxYES_NO) dialog.SetEscapeId(wxID_NO);
  return Answer(dialog.ShowModal(), request.style);
}

}  // namespace qb
