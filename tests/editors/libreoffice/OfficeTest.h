#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "editors/libreoffice/OfficeBridge.h"
#include "support/WorkflowTest.h"

namespace qb {

/// The bridge over LibreOffice with a helper that plays scripts: see fake/FakeOffice.cpp.
class OfficeTest : public WorkflowTest {
 protected:
  static constexpr const char* kReady = R"({"event":"ready"})";

  OfficeTest();
  ~OfficeTest() override;

  /// What the helper does at its next start, after those that were scripted before.
  void Script(const std::vector<std::string>& lines);
  /// Makes the file that a script awaits.
  void Signal(const std::string& name);

  /// The office of the process; made at the first call.
  Office& TheOffice();
  /// A new view onto it.
  std::shared_ptr<IBridge> Bridge();
  std::shared_ptr<IBridgeGroup> AddGroup(std::string_view path);
  /// Opens a document whose events are noted as "<name> saved" and "<name> closed".
  std::shared_ptr<IBridgeDocument> Open(IBridgeGroup& group, std::string_view path,
                                        std::int32_t mode = bridge_mode::kWritable);
  /// `Groups.Item(path).Documents.Count`; 0 if there is no group.
  int Count(std::string_view path);

  /// Runs the event loop until the condition holds; fails the test if it does not in some seconds.
  void RunUntil(const std::function<bool()>& condition);
  /// Runs what is pending in the event loop.
  void RunPending();

  /// What the helper has been asked, in order: names alone, or whole requests.
  std::vector<std::string> Calls() const;
  nlohmann::json Request(std::string_view call) const;
  /// The arguments of each start of the helper.
  std::vector<std::string> Starts() const;
  /// The arguments of a start with this profile.
  std::string StartWith(int profile) const { return "--profile " + Profile(profile) + " --patience 40"; }
  /// Runs `body`, which must raise, and gives the description.
  std::string RaisedBy(const std::function<void()>& body);

  std::string Profile(int number) const {
    return (profiles_ / ("office-" + std::to_string(number))).string();
  }

  /// Those of the office, which may change at any time. Only a hang reaches them as they are.
  std::shared_ptr<OfficeLimits> limits_ = std::make_shared<OfficeLimits>();
  std::vector<std::string> events_;
  std::filesystem::path scripts_;
  std::filesystem::path profiles_;

 private:
  std::vector<std::string> LinesOf(const std::string& name) const;

  std::shared_ptr<Office> office_;
  int scripted_ = 0;
};

}  // namespace qb
