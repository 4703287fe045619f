#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editors/DocumentBridge.h"
#include "editors/libreoffice/OfficeClient.h"
#include "platform/FileSystem.h"

namespace qb {

/// A save whose event is being raised: the links are asked for once, and are the same for whoever reads them.
struct ToldSave {
  bool asked = false;
  std::optional<nlohmann::json> links;
  std::string refusal;  ///< why there are none
};

/// A document that is, or was, open in the office.
struct OfficeDocument {
  std::int64_t number = 0;
  std::string path;
  std::string kind;     ///< "text", "presentation", "drawing" or "web"
  bool closed = false;  ///< the office has closed it; whoever holds it may not have been told yet
  /// What was answered last, by request; of a closed document what its last save left.
  std::map<std::string, nlohmann::json, std::less<>> answers;
  std::shared_ptr<ToldSave> told;
  /// The file of a writable document when it was opened, or when its last save was heard of.
  std::optional<FileStamp> stamp;
  std::weak_ptr<IBridgeDocument> holder;
};

/// Documents that belong together, in the order in which they were opened. One that has been closed is there
/// until its event is raised.
struct OfficeGroup {
  std::string path;
  std::vector<std::shared_ptr<OfficeDocument>> documents;
};

/// The one office of the process behind all its bridges: knows the open documents and their groups, and
/// raises events from the window's event loop, never inside a call but that which closes a group.
class Office : public std::enable_shared_from_this<Office> {
 public:
  static std::shared_ptr<Office> Make(OfficeOptions options);

  /// Whether the helper is there.
  bool IsInstalled() const;
  void Prepare() { client_->Prepare(); }
  void End() { client_->End(); }

  /// The group of this path, if it has documents; else one of a single document if the file is open
  /// elsewhere: in another group, or in another office. Nothing if it is not open.
  std::shared_ptr<OfficeGroup> Find(std::string_view path);
  /// Opens a document in `group`. Raises why it could not be opened.
  std::shared_ptr<OfficeDocument> Open(const std::shared_ptr<OfficeGroup>& group, std::string_view path,
                                       bool readOnly);
  /// Closes the documents of the group, and raises their events before it returns. Raises why one of them
  /// stays open.
  void Close(const OfficeGroup& group);
  /// Puts the group's windows beside each other; what keeps the office from doing so is only traced.
  void Arrange(const OfficeGroup& group, std::int32_t style);
  /// The answers to "title" and "links". A document that was closed can still be asked for what its last save
  /// left, whatever has become of the office since. Raises why there is no answer.
  nlohmann::json Title(OfficeDocument& document);
  nlohmann::json Links(OfficeDocument& document);
  /// False if the document was saved just now, which is being told, and does not say what its links are.
  bool HasLinks(OfficeDocument& document);
  void SetTitle(const OfficeDocument& document, std::string_view title);

 private:
  using Documents = std::vector<std::shared_ptr<OfficeDocument>>;
  struct Event {
    bool saved = false;  ///< else closed
    std::shared_ptr<OfficeDocument> document;
  };

  explicit Office(std::shared_ptr<OfficeClient> client) : client_(std::move(client)) {}

  bool IsOpenElsewhere(std::string_view path);
  nlohmann::json Call(std::string_view call, nlohmann::json arguments);
  nlohmann::json CallToOpen(std::string_view path, bool readOnly, std::int64_t& losses);
  nlohmann::json Ask(std::string_view call, OfficeDocument& document);
  void Take(const OfficeEvent& event);
  void TakeLoss();
  void TakeClose(const std::shared_ptr<OfficeDocument>& document, const nlohmann::json& last = {});
  void RaiseLater();
  void RaiseWaiting();
  void RaiseOf(const Documents& documents);
  void RaiseOne(const Event& event);
  void TakeSave(const std::shared_ptr<OfficeDocument>& document);
  static void RaiseSave(OfficeDocument& document, IBridgeDocument& holder);
  void Leave(const std::shared_ptr<OfficeDocument>& document);

  std::shared_ptr<OfficeClient> client_;
  std::vector<std::shared_ptr<OfficeGroup>> groups_;  ///< those with documents
  Documents open_;                                    ///< what the office holds
  std::vector<OfficeEvent> unknown_;                  ///< of a document whose opening is under way
  std::deque<Event> waiting_;
  std::int64_t losses_ = 0;
  bool raisesLater_ = false;
};

}  // namespace qb
