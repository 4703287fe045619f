#include "editors/libreoffice/OfficeBridge.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editors/EditorQuestions.h"
#include "editors/libreoffice/HostObjects.h"
#include "foundation/CMessageHandler.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

using Json = nlohmann::json;
using TheOffice = std::shared_ptr<Office>;
using OpenDocument = std::shared_ptr<OfficeDocument>;

constexpr std::array<std::string_view, 5> kTypes{"text/plain", "text/html", "application/vnd.ms-powerpoint",
                                                 "application/msword", "vnd.visio"};
constexpr std::array<std::int32_t, 3> kCapabilities{
    bridge_capability::kOpenReadOnly, bridge_capability::kArrange2, bridge_capability::kArrange3};
constexpr std::array<std::string_view, 3> kReadOnlyFormats{".VSD", ".VSDX", ".VSDM"};

template <class List, class Value>
bool Has(const List& list, const Value& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

/// Writes into the protocol why a document does not come up, since the box that follows does not tell.
[[noreturn]] void Refuse(std::string text, bool show) {
  if (gMessageHandler != nullptr) gMessageHandler->Message(text, 2, show, false);
  throw RuntimeError(failure::kOwn, "LibreOffice", std::move(text));
}

/// Refuses what could not be worked on, before anything is on the screen.
void CheckDocument(std::string_view path) {
  if (Has(kReadOnlyFormats, UpperCase(ExtensionOf(path)))) {
    Refuse("LibreOffice can read Visio drawings, but it cannot save them. Please translate '" +
               std::string(path) + "' in Visio.",
           true);
  }
  if (!FileExists(path, 0)) Refuse("'" + std::string(path) + "' does not exist.", false);
}

/// The custom property "Title", the one that the office is asked for.
class TitleProperty : public IBridgeProperty {
 public:
  TitleProperty(TheOffice office, OpenDocument document)
      : office_(std::move(office)), document_(std::move(document)) {}

  TaggedValue Value() override {
    const Json answer = office_->Title(*document_);
    const auto title = answer.find("title");
    if (title == answer.end() || !title->is_string()) RaiseAbout(failure::kInvalidArgument, "Title");
    std::string text = title->get<std::string>();
    // A title is one line in the package.
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < ' '; }, ' ');
    return text;
  }

  void Value(const TaggedValue& newValue) override { office_->SetTitle(*document_, TextOf(newValue)); }

 private:
  TheOffice office_;
  OpenDocument document_;
};

class Properties : public IBridgeProperties {
 public:
  Properties(TheOffice office, OpenDocument document)
      : office_(std::move(office)), document_(std::move(document)) {}

  std::shared_ptr<IBridgeProperty> Item(const TaggedValue& name) override {
    if (TextOf(name) != "Title") RaiseAbout(failure::kInvalidArgument, TextOf(name));
    return std::make_shared<TitleProperty>(office_, document_);
  }

 private:
  TheOffice office_;
  OpenDocument document_;
};

class Document : public IBridgeDocument {
 public:
  Document(TheOffice office, OpenDocument document)
      : office_(std::move(office)), document_(std::move(document)) {}

  std::shared_ptr<AutomationObject> Application() override { return MakeHostApplication(office_, document_); }
  std::shared_ptr<AutomationObject> HostDocument() override { return MakeHostDocument(office_, document_); }
  std::shared_ptr<IBridgeProperties> CustomProperties() override {
    return std::make_shared<Properties>(office_, document_);
  }
  std::shared_ptr<Collection<std::string>> Hyperlinks() override {
    auto links = std::make_shared<Collection<std::string>>();
    for (std::string& address : AllAddresses(*office_, *document_)) links->Add(std::move(address));
    return links;
  }

 private:
  TheOffice office_;
  OpenDocument document_;
};

class Documents : public IBridgeDocuments {
 public:
  Documents(TheOffice office, std::shared_ptr<OfficeGroup> group)
      : office_(std::move(office)), group_(std::move(group)) {}

  std::int32_t Count() override { return static_cast<std::int32_t>(group_->documents.size()); }

  std::shared_ptr<BridgeObject> Open(std::string_view path, std::int32_t mode) override {
    OpenDocument opened;
    try {
      opened = office_->Open(group_, path, mode == bridge_mode::kReadOnly);
    } catch (const RuntimeError& error) {
      Refuse(error.Description(), false);
    }
    auto document = std::make_shared<Document>(office_, opened);
    opened->holder = document;
    return document;
  }

 private:
  TheOffice office_;
  std::shared_ptr<OfficeGroup> group_;
};

class Group : public IBridgeGroup {
 public:
  Group(TheOffice office, std::shared_ptr<OfficeGroup> group)
      : office_(std::move(office)), group_(std::move(group)) {}

  std::shared_ptr<IBridgeDocuments> Documents() override {
    return std::make_shared<qb::Documents>(office_, group_);
  }
  void Close() override {
    // The events may let go of this object.
    const TheOffice office = office_;
    const std::shared_ptr<OfficeGroup> group = group_;
    office->Close(*group);
  }
  void Arrange(std::int32_t style) override { office_->Arrange(*group_, style); }

 private:
  TheOffice office_;
  std::shared_ptr<OfficeGroup> group_;
};

class Groups : public IBridgeGroups {
 public:
  explicit Groups(TheOffice office) : office_(std::move(office)) {}

  std::shared_ptr<IBridgeGroup> Item(const TaggedValue& key) override {
    const std::string path = TextOf(key);
    const auto group = office_->Find(path);
    if (group == nullptr) RaiseAbout(failure::kInvalidArgument, path);
    return std::make_shared<Group>(office_, group);
  }

  std::shared_ptr<BridgeObject> Add(std::string_view path) override {
    CheckDocument(path);
    auto group = std::make_shared<OfficeGroup>();
    group->path = path;
    return std::make_shared<Group>(office_, group);
  }

 private:
  TheOffice office_;
};

class Bridge : public IBridge {
 public:
  explicit Bridge(TheOffice office) : office_(std::move(office)) {}

  std::shared_ptr<IBridgeGroups> Groups() override { return std::make_shared<qb::Groups>(office_); }

  std::int32_t QueryCapability(std::string_view mimeType, std::int32_t capability) override {
    return Has(kTypes, mimeType) && Has(kCapabilities, capability) ? 1 : 0;
  }

 private:
  TheOffice office_;
};

}  // namespace

std::shared_ptr<IBridge> MakeOfficeBridge(const TheOffice& office) {
  if (!office->IsInstalled()) return nullptr;
  return std::make_shared<Bridge>(office);
}

void InstallOfficeBridge() {
  OfficeOptions options;
  options.helper = JoinFile(ThePlatform().files->ProgramDirectory(), "quillbank-office");
  options.profiles = ThePlatform().helpers->CacheFolder();
  const auto office = Office::Make(std::move(options));
  gEditorQuestions.newDocumentBridge = [office] { return MakeOfficeBridge(office); };
  gEditorQuestions.prepareOffice = [office] {
    if (office->IsInstalled()) office->Prepare();
  };
  gEditorQuestions.endOffice = [office] { office->End(); };
}

}  // namespace qb
