#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/FaultyFileSystem.h"
#include "support/WorkflowTest.h"

namespace qb {

/// A command on a document's files, with the small package open: "DOC1" is a style sheet, "DOC2" a script
/// with an image. Each file's content is its path.
class FileCommandTest : public WorkflowTest {
 protected:
  static constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

  void OpenSmallPackage(bool localization = false) { OpenPackageText(SmallPackage(localization)); }

  void OpenPackageText(std::string_view text) {
    Write(kPackage, text);
    for (const char* path : {R"(\pkg\dst\styles.css)", R"(\pkg\src\styles.css)", R"(\pkg\dst\menu.js)",
                             R"(\pkg\src\menu.js)", R"(\pkg\dst\menu.gif)"}) {
      Write(path, path);
    }
    Start(kPackage);
  }

  /// The small package with `old` replaced everywhere.
  static std::string SmallPackageWith(std::string_view old, std::string_view replacement) {
    std::string text = SmallPackage();
    EXPECT_NE(text.find(old), std::string::npos) << old;
    for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at)) {
      text.replace(at, old.size(), replacement);
      at += replacement.size();
    }
    return text;
  }

  /// Writes a file of the translator's own and lets the next file dialog choose it.
  void Choose(std::string_view path) {
    Write(path, path);
    Dialogs().ChooseNext(std::string(path));
  }

  static CLoioEntry& Loio(std::string_view key) { return *gLoios->Item(key); }
  static std::string State(std::string_view key) { return Loio(key).state->ExternalizeState(); }
  static std::string Value(std::string_view section, std::string_view key) {
    return Entry(kPackage, section, key);
  }

  /// The files that the package lists for a document's translation, with ":PRIM" behind a primary one.
  static std::vector<std::string> Listed(std::string_view section) {
    std::vector<std::string> names;
    const int count = std::stoi(Value(section, "1FILE_COUNT"));
    for (int i = 1; i <= count; ++i) {
      const std::string format = Value(section, "1FORMAT" + std::to_string(i));
      names.push_back(Value(section, "1FILE_NAME" + std::to_string(i)) +
                      (format.empty() ? "" : ":" + format));
    }
    return names;
  }
  /// The files that the tree shows below a document.
  std::vector<std::string> Shown(std::string_view key) {
    std::vector<std::string> names;
    for (const auto& child : Window().TransPackTree.Nodes(key).Children()) names.push_back(child->Text());
    return names;
  }
  std::string SelectedKey() {
    const TreeNode* node = Window().TransPackTree.SelectedItem();
    return node == nullptr ? std::string() : node->Key();
  }

  bool TimersAreOn() { return Window().tmrTimer1.Enabled && Window().tmrTimer2.Enabled; }
  std::string Protocol() { return Bytes(R"(\pkg\Protocol.txt)"); }
  /// The size in the package is the one of the file.
  bool SizeIsWritten() { return std::stoul(Value("GLOBAL", "FILESIZE")) == Bytes(kPackage).size(); }
  std::vector<int> BoxStyles() {
    std::vector<int> styles;
    for (const MessageBoxRequest& each : Boxes().Shown()) styles.push_back(each.style);
    return styles;
  }
  std::vector<std::string> FilesIn(std::string_view folder) {
    std::vector<std::string> names;
    for (const auto& each : std::filesystem::directory_iterator(Native(folder))) {
      names.push_back(each.path().filename().string());
    }
    return names;
  }
};

}  // namespace qb
