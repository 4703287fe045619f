#include "wx/WxClipboard.h"

#include <wx/clipbrd.h>

#include "runtime/RuntimeError.h"
#include "wx/WxText.h"

namespace qb {

void WxClipboard::SetText(std::string_view text, std::int16_t format) {
  if (format != kTextFormat) throw RuntimeError(failure::kInvalidArgument);
  wxClipboardLocker lock;
  if (!lock) throw RuntimeError(failure::kPermissionDenied);
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

}  // namespace qb
