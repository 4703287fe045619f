#include "support/ScriptedBridge.h"

#include <algorithm>
#include <utility>

#include "editors/EditorQuestions.h"

namespace qb {

using Script = std::shared_ptr<ScriptedBridge>;

/// The objects that the office hands out.
struct ScriptedParts {
  static void Call(ScriptedBridge& script, const std::string& call) { script.Call(call); }

  /// An object of `Part`, nothing or one without any interface, as the test told for `call`.
  template <class Part, class... Arguments>
  static std::shared_ptr<Part> Answer(const Script& script, const std::string& call,
                                      Arguments&&... arguments) {
    script->Call(call);
    if (script->IsNothing(call)) return nullptr;
    return std::make_shared<Part>(script, std::forward<Arguments>(arguments)...);
  }

  /// An element of the application's own object model.
  class HostObject : public AutomationObject {
   public:
    HostObject(Script script, std::string name) : script_(std::move(script)), name_(std::move(name)) {}
    std::string TextProperty(std::string_view property) override {
      const std::string key(property);
      script_->Call(name_ + "." + key);
      return texts.at(key);
    }
    std::shared_ptr<AutomationObject> ObjectProperty(std::string_view property) override {
      const std::string call = name_ + "." + std::string(property);
      script_->Call(call);
      return script_->IsNothing(call) ? nullptr : objects.at(std::string(property));
    }
    std::vector<std::shared_ptr<AutomationObject>> Elements() override {
      script_->Call(name_ + " elements");
      return elements;
    }

    std::map<std::string, std::string> texts;
    std::map<std::string, std::shared_ptr<AutomationObject>> objects;
    std::vector<std::shared_ptr<AutomationObject>> elements;

   private:
    Script script_;
    std::string name_;
  };

  static std::shared_ptr<HostObject> LinkList(const Script& script, const std::string& name,
                                              const std::vector<std::string>& links) {
    auto list = std::make_shared<HostObject>(script, name);
    for (const std::string& link : links) {
      auto element = std::make_shared<HostObject>(script, name + " link");
      element->texts["Address"] = link;
      list->elements.push_back(std::move(element));
    }
    return list;
  }

  class Property : public IBridgeProperty {
   public:
    Property(Script script, std::string path, std::string name)
        : script_(std::move(script)), path_(std::move(path)), name_(std::move(name)) {}
    TaggedValue Value() override {
      script_->Call("document " + path_ + " " + name_ + ".Value");
      return script_->Describe(path_).properties[name_];
    }
    void Value(const TaggedValue& newValue) override {
      script_->Call("document " + path_ + " " + name_ + ".Value = " + TextOf(newValue));
      script_->Describe(path_).properties[name_] = newValue;
    }

   private:
    Script script_;
    std::string path_;
    std::string name_;
  };

  class Properties : public IBridgeProperties {
   public:
    Properties(Script script, std::string path) : script_(std::move(script)), path_(std::move(path)) {}
    std::shared_ptr<IBridgeProperty> Item(const TaggedValue& name) override {
      return Answer<Property>(script_, "document " + path_ + " CustomProperties.Item(" + TextOf(name) + ")",
                              path_, TextOf(name));
    }

   private:
    Script script_;
    std::string path_;
  };

  class Document : public IBridgeDocument {
   public:
    Document(Script script, std::string path) : script_(std::move(script)), path_(std::move(path)) {}
    std::shared_ptr<AutomationObject> Application() override {
      const auto application = Answer<HostObject>(script_, Name() + " Application", Name() + " Application");
      if (application == nullptr) return nullptr;
      application->texts["Name"] = script_->Describe(path_).application;
      auto slides = std::make_shared<HostObject>(script_, Name() + " Slides");
      for (const auto& links : script_->Describe(path_).links) {
        auto slide = std::make_shared<HostObject>(script_, Name() + " slide");
        slide->objects["Hyperlinks"] = LinkList(script_, Name() + " slide Hyperlinks", links);
        slides->elements.push_back(std::move(slide));
      }
      auto presentation = std::make_shared<HostObject>(script_, Name() + " ActivePresentation");
      presentation->objects["Slides"] = std::move(slides);
      application->objects["ActivePresentation"] = std::move(presentation);
      return application;
    }
    std::shared_ptr<AutomationObject> HostDocument() override {
      const auto host = Answer<HostObject>(script_, Name() + " HostDocument", Name() + " HostDocument");
      if (host == nullptr) return nullptr;
      host->objects["Hyperlinks"] =
          LinkList(script_, Name() + " Hyperlinks", script_->Describe(path_).links.front());
      return host;
    }
    std::shared_ptr<IBridgeProperties> CustomProperties() override {
      return Answer<Properties>(script_, Name() + " CustomProperties", path_);
    }
    std::shared_ptr<Collection<std::string>> Hyperlinks() override {
      script_->Call(Name() + " Hyperlinks");
      if (!script_->Describe(path_).hasLinkList) return nullptr;
      auto list = std::make_shared<Collection<std::string>>();
      for (const std::string& link : script_->Describe(path_).links.front()) list->Add(link);
      return list;
    }

   private:
    std::string Name() const { return "document " + path_; }
    Script script_;
    std::string path_;
  };

  class Documents : public IBridgeDocuments {
   public:
    Documents(Script script, std::string group) : script_(std::move(script)), group_(std::move(group)) {}
    std::int32_t Count() override {
      script_->Call("group " + group_ + " Count");
      const auto foreign = script_->foreignGroups_.find(group_);
      const auto own = static_cast<std::int32_t>(script_->WindowsOf(group_).size());
      return own + (foreign == script_->foreignGroups_.end() ? 0 : foreign->second);
    }
    std::shared_ptr<BridgeObject> Open(std::string_view path, std::int32_t mode) override {
      const std::string call =
          "group " + group_ + " Open(" + std::string(path) + ", " + std::to_string(mode) + ")";
      auto document = Answer<Document>(script_, call, std::string(path));
      if (script_->IsForeign(call)) return std::make_shared<BridgeObject>();
      if (document != nullptr) script_->windows_.push_back({std::string(path), group_, document});
      return document;
    }

   private:
    Script script_;
    std::string group_;
  };

  class Group : public IBridgeGroup {
   public:
    Group(Script script, std::string path) : script_(std::move(script)), path_(std::move(path)) {}
    std::shared_ptr<IBridgeDocuments> Documents() override {
      return Answer<ScriptedParts::Documents>(script_, "group " + path_ + " Documents", path_);
    }
    void Close() override {
      const Script script = script_;  // the group may go while it closes
      script->Call("group " + path_ + " Close");
      auto windows = script->WindowsOf(path_);
      if (script->closesTranslationFirst) std::reverse(windows.begin(), windows.end());
      for (const auto& window : windows) {
        if (!script->Shows(window.path)) continue;  // an event of one before has closed it
        if (window.path == script->savesAtClose) script->UserSaves(window.path);
        script->CloseWindow(window);
      }
    }
    void Arrange(std::int32_t style) override {
      script_->Call("group " + path_ + " Arrange(" + std::to_string(style) + ")");
    }

   private:
    Script script_;
    std::string path_;
  };

  class Groups : public IBridgeGroups {
   public:
    explicit Groups(Script script) : script_(std::move(script)) {}
    std::shared_ptr<IBridgeGroup> Item(const TaggedValue& key) override {
      const std::string path = TextOf(key);
      const std::string call = "Groups.Item(" + path + ")";
      script_->Call(call);
      if (script_->IsNothing(call)) return nullptr;
      if (script_->WindowsOf(path).empty() && !script_->foreignGroups_.contains(path)) {
        throw RuntimeError(failure::kInvalidArgument);
      }
      return std::make_shared<Group>(script_, path);
    }
    std::shared_ptr<BridgeObject> Add(std::string_view path) override {
      const std::string call = "Groups.Add(" + std::string(path) + ")";
      auto group = Answer<Group>(script_, call, std::string(path));
      if (script_->IsForeign(call)) return std::make_shared<BridgeObject>();
      return group;
    }

   private:
    Script script_;
  };

  class Bridge : public IBridge {
   public:
    Bridge(Script script, std::string name) : script_(std::move(script)), name_(std::move(name)) {}
    std::shared_ptr<IBridgeGroups> Groups() override {
      return Answer<ScriptedParts::Groups>(script_, name_ + " Groups");
    }
    std::int32_t QueryCapability(std::string_view mimeType, std::int32_t capability) override {
      const std::string type(mimeType);
      script_->Call(name_ + " QueryCapability(" + type + ", " + std::to_string(capability) + ")");
      return script_->capabilities[type + " " + std::to_string(capability)];
    }

   private:
    Script script_;
    std::string name_;
  };
};

std::function<ScriptedBridge::NewBridge(ScriptedBridge::NewBridge)> ScriptedBridge::between;

std::shared_ptr<ScriptedBridge> ScriptedBridge::Install() {
  auto script = std::make_shared<ScriptedBridge>();
  const NewBridge newBridge = [script]() -> std::shared_ptr<IBridge> {
    const std::string name = "bridge " + std::to_string(++script->bridges_);
    return ScriptedParts::Answer<ScriptedParts::Bridge>(script, "new " + name, name);
  };
  gEditorQuestions.newDocumentBridge = between ? between(newBridge) : newBridge;
  return script;
}

void ScriptedBridge::RaiseAt(const std::string& call, long number) {
  raiseAt_[call] = number;
}

void ScriptedBridge::Call(const std::string& call) {
  calls.push_back(call);
  if (const auto play = during_.find(call); play != during_.end()) {
    const auto once = std::move(play->second);
    during_.erase(play);
    once();
  }
  const auto found = raiseAt_.find(call);
  if (found != raiseAt_.end()) throw RuntimeError(found->second, "ScriptedBridge", "scripted failure");
}

bool ScriptedBridge::IsNothing(const std::string& call) const {
  return std::find(nothingAt_.begin(), nothingAt_.end(), call) != nothingAt_.end();
}

bool ScriptedBridge::IsForeign(const std::string& call) const {
  return std::find(foreignAt_.begin(), foreignAt_.end(), call) != foreignAt_.end();
}

std::vector<ScriptedBridge::Window> ScriptedBridge::WindowsOf(const std::string& group) const {
  std::vector<Window> found;
  for (const Window& window : windows_) {
    if (window.group == group) found.push_back(window);
  }
  return found;
}

bool ScriptedBridge::Shows(const std::string& path) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const Window& window) { return window.path == path; });
}

std::shared_ptr<IBridgeDocument> ScriptedBridge::DocumentOf(const std::string& path) const {
  for (const Window& window : windows_) {
    if (window.path == path) return window.document.lock();
  }
  return nullptr;
}

void ScriptedBridge::CloseWindow(const Window& window) {
  const auto document = window.document.lock();
  windows_.erase(std::find_if(windows_.begin(), windows_.end(),
                              [&](const Window& other) { return other.path == window.path; }));
  if (document != nullptr && raisesCloseEvents) document->RaiseOnPostClose();
}

void ScriptedBridge::UserSaves(const std::string& path) {
  if (const auto document = DocumentOf(path)) document->RaiseOnPostLocalSave();
}

void ScriptedBridge::UserCloses(const std::string& path) {
  for (const Window& window : std::vector<Window>(windows_)) {
    if (window.path == path) return CloseWindow(window);
  }
}

}  // namespace qb
