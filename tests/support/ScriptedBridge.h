#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editors/DocumentBridge.h"

namespace qb {

/// One document as the scripted office holds it.
struct ScriptedDocument {
  std::string application = "Microsoft Word";  ///< its `Application.Name`
  std::map<std::string, TaggedValue> properties;
  /// Links: one list for a text or a foreign format, one for each slide of a presentation.
  std::vector<std::vector<std::string>> links{{}};
  bool hasLinkList = true;  ///< `Hyperlinks` of the document gives a list
};

/// An office without an office: opens what a test has described, records each call in its order, fails where
/// the test says so, and raises events as its user would.
///
/// Calls are recorded as "new bridge 1", "bridge 1 QueryCapability(text/html, 28)", "Groups.Item(<path>)",
/// "group <path> Close", "document <path> Application.Name", ...
class ScriptedBridge : public std::enable_shared_from_this<ScriptedBridge> {
 public:
  using NewBridge = std::function<std::shared_ptr<IBridge>()>;
  /// What stands between the offices and the program: is given how an office makes a bridge, and returns how
  /// the program gets it. Empty: nothing stands between.
  static std::function<NewBridge(NewBridge)> between;

  /// A new office that answers for this process.
  static std::shared_ptr<ScriptedBridge> Install();

  /// What happens instead of the answer to a call, given as it is recorded.
  void RaiseAt(const std::string& call, long number = 1001);
  void GiveNothingAt(const std::string& call) { nothingAt_.push_back(call); }
  /// Gives an object there that has none of the interfaces it is asked for.
  void GiveForeignObjectAt(const std::string& call) { foreignAt_.push_back(call); }
  /// Runs `play` inside a call, before it answers.
  void During(const std::string& call, std::function<void()> play) { during_[call] = std::move(play); }

  /// What its user does in the window of a document.
  void UserSaves(const std::string& path);
  void UserCloses(const std::string& path);

  /// Whether a window of this document is on the screen.
  bool Shows(const std::string& path) const;
  /// A group that another session has left open, with one document.
  void AddForeignGroup(const std::string& path) { foreignGroups_[path] = 1; }
  /// How a document that is opened will be.
  ScriptedDocument& Describe(const std::string& path) { return descriptions_[path]; }
  void Forget() { calls.clear(); }

  std::vector<std::string> calls;
  std::map<std::string, std::int32_t> capabilities;  ///< "<MIME type> <number>"
  bool closesTranslationFirst = false;               ///< the order in which a group closes its documents
  std::string savesAtClose;                          ///< a document that its group saves before it closes it
  bool raisesCloseEvents = true;

 private:
  friend struct ScriptedParts;
  struct Window {
    std::string path;
    std::string group;
    std::weak_ptr<IBridgeDocument> document;
  };

  /// Records a call and fails it as told.
  void Call(const std::string& call);
  bool IsNothing(const std::string& call) const;
  bool IsForeign(const std::string& call) const;
  std::vector<Window> WindowsOf(const std::string& group) const;
  void CloseWindow(const Window& window);
  std::shared_ptr<IBridgeDocument> DocumentOf(const std::string& path) const;

  std::map<std::string, long> raiseAt_;
  std::vector<std::string> nothingAt_;
  std::vector<std::string> foreignAt_;
  std::map<std::string, std::function<void()>> during_;
  std::map<std::string, std::int32_t> foreignGroups_;
  std::map<std::string, ScriptedDocument> descriptions_;
  std::vector<Window> windows_;
  int bridges_ = 0;
};

}  // namespace qb
