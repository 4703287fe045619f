#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Applications.h"
#include "platform/Dde.h"
#include "runtime/RuntimeError.h"

namespace qb {

/// The windows of other programs, as a test has them. Keeps the records and keys that they are sent.
class FakeWindows : public ApplicationWindows {
 public:
  struct Record {
    std::uintptr_t window = 0;
    std::uintptr_t number = 0;
    std::optional<std::u16string> payload;
  };

  std::uintptr_t Find(std::optional<std::string_view> windowClass,
                      std::optional<std::string_view> title) override {
    if (windowClass && !title && classes.contains(std::string(*windowClass))) return kWindow;
    return !windowClass && title && *title == windowTitle ? kWindow : 0;
  }

  std::int64_t SendCopyData(std::uintptr_t window, std::uintptr_t number,
                            std::optional<std::u16string_view> payload) override {
    records.push_back({window, number, std::nullopt});
    if (payload) records.back().payload = std::u16string(*payload);
    return reply;
  }

  void SendKeys(std::string_view title, std::string_view keys) override {
    if (title != windowTitle) RaiseAbout(failure::kInvalidArgument, title);
    sentKeys.emplace_back(keys);
    if (onKeys) onKeys();
  }

  static constexpr std::uintptr_t kWindow = 4711;
  std::string windowTitle;
  std::set<std::string> classes;  ///< window classes of which there is a window
  std::int64_t reply = 0;
  std::vector<Record> records;
  std::vector<std::string> sentKeys;
  std::function<void()> onKeys;  ///< what the window does with them
};

/// Programs that talk over DDE, as a test has them: at most one, which answers as told.
class FakeDde : public Dde {
 public:
  /// Answers an item, or raises.
  using Partner = std::function<std::string(const std::string& item)>;

  std::unique_ptr<DdeConversation> Connect(std::string_view application, std::string_view topic) override {
    const std::string link = std::string(application) + "|" + std::string(topic);
    state_->log.push_back("connect " + link);
    if (!state_->partner) RaiseAbout(failure::kNoForeignApplication, link);
    return std::make_unique<Conversation>(state_);
  }

  /// From now on this partner answers, in a conversation that stands too. Nothing: the program has gone.
  void SetPartner(Partner partner) {
    state_->partner = std::move(partner);
    ++state_->generation;
  }

  /// Everything in order: "connect MT4WIN|mt_init", "request mt_hide", "disconnect".
  const std::vector<std::string>& Log() const { return state_->log; }
  void Forget() { state_->log.clear(); }

 private:
  struct State {
    Partner partner;
    int generation = 0;
    std::vector<std::string> log;
  };

  class Conversation : public DdeConversation {
   public:
    explicit Conversation(std::shared_ptr<State> state)
        : state_(std::move(state)), generation_(state_->generation) {}
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;
    ~Conversation() override { state_->log.emplace_back("disconnect"); }
    std::string Request(std::string_view item) override {
      state_->log.push_back("request " + std::string(item));
      if (!IsOpen()) throw RuntimeError(failure::kForeignApplicationQuit);
      const Partner partner = state_->partner;  // it may go while it answers
      return partner(std::string(item));
    }
    bool IsOpen() override { return state_->partner != nullptr && generation_ == state_->generation; }

   private:
    std::shared_ptr<State> state_;
    int generation_;
  };

  std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// An object of another program that records its calls as "Open(file, user, , w)" and fails where told.
class FakeAutomationObject : public AutomationObject {
 public:
  std::string TextProperty(std::string_view name) override { return texts[std::string(name)]; }

  std::shared_ptr<AutomationObject> ObjectProperty(std::string_view name) override {
    const auto found = objects.find(std::string(name));
    if (found == objects.end()) RaiseAbout(failure::kNoSuchMember, name);
    return found->second;
  }

  void Call(std::string_view name, const CallArguments& arguments) override {
    std::string call = std::string(name) + "(";
    for (const auto& argument : arguments) {
      if (&argument != arguments.data()) call += ", ";
      if (argument) call += TextOf(*argument);
    }
    calls.push_back(call + ")");
    if (callFailure) throw *callFailure;
  }

  std::map<std::string, std::string> texts;
  std::map<std::string, std::shared_ptr<AutomationObject>> objects;
  std::vector<std::string> calls;
  std::optional<RuntimeError> callFailure;  ///< what every call raises
};

/// An object registry in which a Visio may run, and other objects.
class FakeAutomation : public Automation {
 public:
  std::shared_ptr<AutomationObject> ActiveObject(std::string_view className) override {
    asked.push_back("active " + std::string(className));
    if (className == "Visio.Application" && !visioVersion.empty()) {
      auto visio = std::make_shared<FakeAutomationObject>();
      visio->texts["Version"] = visioVersion;
      return visio;
    }
    const auto found = active.find(std::string(className));
    return found == active.end() ? nullptr : found->second;
  }

  std::shared_ptr<AutomationObject> NewObject(std::string_view className) override {
    asked.push_back("new " + std::string(className));
    const auto found = made.find(std::string(className));
    if (found == made.end()) RaiseAbout(failure::kCannotCreateObject, className);
    return found->second;
  }

  std::string visioVersion;                                         ///< empty: none runs
  std::map<std::string, std::shared_ptr<AutomationObject>> active;  ///< running objects by class
  std::map<std::string, std::shared_ptr<AutomationObject>> made;    ///< classes whose objects can be made
  std::vector<std::string> asked;                                   ///< "active <class>", "new <class>"
};

}  // namespace qb
