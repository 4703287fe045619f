#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "apps/office/Happenings.h"
#include "apps/office/OfficeConnection.h"
#include "apps/office/OpenDocument.h"

namespace qb::office {

/// Does what the program asks for, with the documents that it has opened.
class Service {
 public:
  /// `profile` is the office's folder; `patience` is how long a request waits for an office that does not
  /// answer.
  Service(OfficeConnection& office, Happenings& happenings, const std::string& profile,
          std::chrono::milliseconds patience);

  /// The result of a request. Raises `Failure`, or nlohmann::json::exception if an argument is missing or of
  /// a wrong type. Events come out as they happen.
  nlohmann::json Work(const std::string& call, const nlohmann::json& arguments);

  /// Writes the events that wait.
  void TellHappenings();
  /// Closes what has been opened in vain.
  void CloseUnwanted();
  /// Closes the window in which the office offers what to do next, when its user has closed the last
  /// document.
  void CloseStartCenter();
  /// Writes that all documents are closed, since their office is no more.
  void TellEnd();

  /// Whether any document is open in the office, asked for by us or not.
  bool HasDocuments();
  /// Ends the office, in which nothing is open any more.
  void EndOffice();

 private:
  nlohmann::json IsFileOpen(const nlohmann::json& arguments);
  nlohmann::json OpenFile(const nlohmann::json& arguments);
  /// Opens it, or raises `Failure`, after which the office may do so late.
  OpenDocument OpenNow(const std::string& path, bool readOnly);
  nlohmann::json Title(const nlohmann::json& arguments);
  nlohmann::json SetTitle(const nlohmann::json& arguments);
  nlohmann::json ReadLinksOf(const nlohmann::json& arguments);
  nlohmann::json Arrange(const nlohmann::json& arguments);
  nlohmann::json Close(const nlohmann::json& arguments);
  nlohmann::json Quit();

  const OpenDocument& Document(const nlohmann::json& number);
  void TellClosed(const OpenDocument& document) const;
  void CloseOne(int number);
  bool TryToClose(const OpenDocument& document);
  void Run(std::function<void()> work, std::function<void()> undo = {});
  /// Waits, while events go on coming out.
  void Pause(std::chrono::milliseconds time);

  OfficeConnection& office_;
  Happenings& happenings_;
  /// What the addresses in a document's text are relative to. Nothing is there.
  const std::string base_;
  const std::chrono::milliseconds patience_;
  std::map<int, OpenDocument> documents_;
  std::map<int, std::shared_ptr<OpenDocument>> opening_;  ///< what the office may still open
  std::vector<OpenDocument> unwanted_;
  int lastNumber_ = 0;
  /// The user has closed the last document, so there may be a start center.
  bool isBare_ = false;
};

}  // namespace qb::office
