// Title and hyperlinks of a saved document, on their way back into the package.

#include "editors/CEditor.h"
#include "editors/EditorQuestions.h"
#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CEditor";

using Links = Collection<std::string>;
using Object = std::shared_ptr<AutomationObject>;

void AddAddresses(const Object& owner, Links& links) {
  const Object hyperlinks = Existing(owner).ObjectProperty("Hyperlinks");
  for (const Object& link : Existing(hyperlinks).Elements()) {
    links.Add(Existing(link).TextProperty("Address"));
  }
}

void AddAddressesOfSlides(const Object& application, Links& links) {
  const Object presentation = Existing(application).ObjectProperty("ActivePresentation");
  const Object slides = Existing(presentation).ObjectProperty("Slides");
  for (const Object& slide : Existing(slides).Elements()) AddAddresses(slide, links);
}

void Parse(std::string_view path, IHtmlParser& parser, Links& links) {
  std::vector<TaggedValue> texts;
  std::int32_t code = 0;
  parser.Parse(path, texts, 0, -1, code);
  if (code != 0) {
    gMessageHandler->Message(
        QBL_LText("QB.QBTRANSLAT.CEDITOR.000.EXTRACTHYPERLIN002584.T.00012|Could not read hyperlinks from "
                  "PXF file"),
        1, false, false);
    return;
  }
  for (const TaggedValue& text : texts) {
    links.Add(TextOf(text));
    Trace(2, kModule, "ExtractHyperlinksAndTitleFromFile", "Retrun: HtmlParser: '{}'", TextOf(text));
  }
}

}  // namespace

bool CEditor::ExtractHyperlinksAndTitle() {
  const TracedProcedure traced(kModule, "ExtractHyperlinksAndTitle");
  colHyperlinks_ = std::make_shared<Links>();
  strTitle_.clear();
  const auto loio = gLoios->Item(strLOIOGUID_);
  const std::string path = JoinFile(gPxfFile->GetPxfPath(), loio->GetTranslationFileName());
  if (!loio->hasHyperlink()) return false;
  if (loio->hasHTMLEditor()) {
    colHyperlinks_ = ExtractHyperlinksAndTitleFromFile(path, strTitle_);
    if (strTitle_.empty()) strTitle_ = loio->GetTitle(role::kDstCurr);
    return colHyperlinks_ != nullptr;
  }
  if (loio->hasDocumentBridge()) return docDst_ != nullptr && ExtractThroughBridge(*loio);
  gMessageHandler->Message("No hyperlink handling defined for documents of this type", 2, true, false);
  return false;
}

bool CEditor::ExtractThroughBridge(const CLoioEntry& loio) {
  const auto document = docDst_;  // events may come in while it is asked
  const auto links = colHyperlinks_;
  Attempt(
      [&] { strTitle_ = TextOf(Existing(Existing(document->CustomProperties()).Item("Title")).Value()); });
  Err.Clear();  // a document without a title is a normal one
  if (CharacterCount(strTitle_) <= 1) strTitle_ = loio.GetTitle(role::kDstCurr);
  const Object application = document->Application();
  const std::string name = Existing(application).TextProperty("Name");
  if (name == "PowerPoint" || name == "Microsoft PowerPoint") {
    AddAddressesOfSlides(application, *links);
    return true;
  }
  if (name == "Word" || name == "Microsoft Word") {
    AddAddresses(document->HostDocument(), *links);
    return true;
  }
  const bool read = Attempt([&] { colHyperlinks_ = document->Hyperlinks(); });
  Err.Clear();
  return read;
}

std::shared_ptr<Collection<std::string>> CEditor::ExtractHyperlinksAndTitleFromFile(std::string_view path,
                                                                                    std::string& title) {
  const TracedProcedure traced(kModule, "ExtractHyperlinksAndTitleFromFile");
  title.clear();
  std::shared_ptr<Links> result;
  const bool read = Attempt([&] {
    auto links = std::make_shared<Links>();
    Trace(2, kModule, "ExtractHyperlinksAndTitleFromFile", "before launching HTML parser");
    const auto parser = gEditorQuestions.newHtmlParser ? gEditorQuestions.newHtmlParser() : nullptr;
    Trace(2, kModule, "ExtractHyperlinksAndTitleFromFile", "after launching HTML parser");
    if (parser == nullptr) {
      gMessageHandler->Message(
          QBL_LText("QB.QBTRANSLAT.CEDITOR.000.EXTRACTTITLEFRO002033.T.00014|Could not start HTML parser"), 1,
          false, false);
      return;
    }
    Parse(path, *parser, *links);
    title = parser->Title();
    Trace(2, kModule, "ExtractHyperlinksAndTitleFromFile", "Retrun Title: HtmlParser: '{}'", title);
    result = std::move(links);
  });
  if (!read) {
    gMessageHandler->Message(
        QBL_LText("QB.QBTRANSLAT.CEDITOR.000.EXTRACTHYPERLIN002584.T.00013|Hyperlinks could not be extracted "
                  "from translated file"),
        2, true, false);
    Trace(2, kModule, "ExtractHyperlinksAndTitleFromFile", "HTML parser failure");
    Err.Clear();
  }
  return result;
}

}  // namespace qb
