#include <span>

#include "foundation/modMultiLanguage.h"
#include "ui/frmQBTranslator.h"

namespace qb {
namespace {

using Target = Property<std::string>& (*)(frmQBTranslator&);

struct Text {
  Target target;
  std::string_view translation;
  std::string_view localization;  ///< empty: the same key
};

Property<std::string>& ToolTip(frmQBTranslator& form, int button) {
  return form.Toolbar.Buttons(button).ToolTipText;
}

constexpr std::string_view kFormatHeading =
    "QB.QBTRANSLAT.FRMQBTRANSLA.000.LVINFOOBJECTLIS003353.C.00011|Format";

constexpr Text kBarTexts[] = {
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.FRMQBTRANSLATOR002317.C.00001|ORB Quillbank Translator: Explorer",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 1); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS1002832.C.00002|Open a translation/localization package",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 2); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS2002833.C.00003|Save the status of the current "
     "translation package",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS2002833.C.00053|Save the status of the current "
     "localization package"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 4); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS4002835.C.00004|Translate selected document with "
     "associated editor",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 5); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS5002836.C.00005|Declare a file to be a document's "
     "translation",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS5002836.C.00054|Declare a file to be a document's "
     "localization"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 7); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS7002838.C.00006|Reset a document to the 'in translation' "
     "status",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS7002838.C.00055|Reset a document to the 'to be localized' "
     "status"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 8); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS8002839.C.00007|Set a document to the 'in progress' "
     "status",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS8002839.C.00056|Set a document to the 'in progress' "
     "status"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 9); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS9002840.C.00008|Set a document to the 'completed' status",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS9002840.C.00057|Set a document to the 'completed' status"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return ToolTip(form, 11); },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.TOOLBARBUTTONS1002881.C.00009|Get online help",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.sbcStatusBar.PanelText; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.SBCSTATUSBARPAN002487.C.00010|Welcome to Quillbank Explorer",
     {}},
};

constexpr Text kMenuTexts[] = {
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuFile.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILECAPTION.C.00012|&File",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniOpen.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNIOPENC002256.C.00013|&Open translation package...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniSave.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNISAVEC002253.C.00014|&Save",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniCheckIn.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNICHECK002515.C.00015|&Check in translation package (Upload)",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNICHECK002515.C.00058|&Check in localization package (Upload)"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniProperties.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNIPROPE002923.C.00016|Prop&erties...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniPrint.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNIPRINT002379.C.00017|&Print",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniExit.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUFILEMNIEXITC002264.C.00018|E&xit",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuEdit.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITCAPTION.C.00019|&Edit",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniCopy.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOPYC002271.C.00020|&Copy text",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniTranslate.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNITRANS002802.C.00021|&Translate Content with Editor",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniAssignTranslatedFile.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNIASSIG003899.C.00022|Assign Translated &File...",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNIASSIG003899.C.00059|Assign localized &File..."},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniTranslateProperties.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNITRANS003871.C.00023|Translate Properties",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniTranslateTitle.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNITRANS003316.C.00024|Translate Title",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniComponents.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO002922.C.00025|Components...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniMarkAsPrimaryComponent.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO005554.C.00026|Mark as primary component file",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniInsertComponent.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO004868.C.00027|Insert component file",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniReplaceComponent.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO004939.C.00028|Replace component file",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniReplaceAllComponents.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO005335.C.00029|Replace all component files",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniDeleteComponent.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO004834.C.00030|Delete component file",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniEditComponent.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNICOMPO004629.C.00031|Edit component file",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuMark.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKC002267.C.00032|&Mark Info Object as...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniToBeTranslated.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM004041.C.00033|in translation",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM004041.C.00060|to be localized"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniInProgress.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM003673.C.00034|in progress",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM003673.C.00061|in progress"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniCompleted.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM003562.C.00035|completed",
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNUMARKM003562.C.00062|completed"},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuView.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUVIEWCAPTION.C.00036|&View",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniShortView.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUVIEWMNISHORT002820.C.00037|&Short view",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniDetailedView.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUVIEWMNIDETAI003088.C.00038|&Detailed view",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniRefresh.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUVIEWMNIREFRE002600.C.00039|&Refresh",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuTools.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUTOOLSCAPTION001629.C.00040|&Tools",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniOptions.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUTOOLSMNIOPTI002747.C.00041|&Options...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mnuHelp.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPCAPTION.C.00042|&Help",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniHelp.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNIHELPC002256.C.00043|&Help on ORB Quillbank Translator",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniTechnicalSupport.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNITECHN003535.C.00044|Technical &Support",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniOrbOnTheWWW.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNIORBON002893.C.00045|ORB on the World Wide &Web",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniORBQBOnline.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNIORBQB002850.C.00046|ORB Quillbank online",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniAbout.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNIABOUT002370.C.00047|&About ORB Quillbank Translator...",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniDebug.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNIDEBUG002350.C.00048|Enter &Debugger",
     {}},
    {[](frmQBTranslator& form) -> Property<std::string>& { return form.mniTrace.Caption; },
     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUHELPMNITRACE002358.C.00049|&Trace",
     {}},
};

void SetTexts(frmQBTranslator& form, std::span<const Text> texts, bool localization) {
  for (const Text& text : texts) {
    const bool own = localization && !text.localization.empty();
    text.target(form) = QBL_LText(own ? text.localization : text.translation);
  }
}

void SetAllTexts(frmQBTranslator& form, bool localization) {
  SetTexts(form, kBarTexts, localization);
  form.lvInfoObjectList.SetHeading(1, QBL_LText(kFormatHeading));  // the first column, as the last: stays so
  SetTexts(form, kMenuTexts, localization);
}

}  // namespace

void frmQBTranslator::QBL_InitLText() {
  SetAllTexts(*this, false);
}

void frmQBTranslator::QBL_InitLText_Localization() {
  SetAllTexts(*this, true);
}

}  // namespace qb
