#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qb {

/// Puts the text of a package file together. Counts, numbers and add-section names come by themselves; every
/// key can be changed or taken away again afterwards.
///
///     PackageBuilder().Loio("DOC1").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("DESCRIPTION",
///     "A")
class PackageBuilder {
 public:
  /// Sections GLOBAL and TRANS of a package from DE to EN, of the kind "GEN", without FILESIZE and TOUCHED.
  PackageBuilder();

  /// Starts the next document: its GUID is also its technical name, its class is "DOCUMENT".
  PackageBuilder& Loio(std::string_view guid, std::string_view process = "CSS",
                       std::string_view progress = {});
  /// Adds a version to the document: the word of its state is that of a fresh package.
  PackageBuilder& Phio(std::string_view role, std::string_view path, std::string_view format = "CSS",
                       std::string_view description = {});
  /// Adds a file to the version; its short name is its name.
  PackageBuilder& File(std::string_view name, std::string_view format = {});
  /// Adds a property to the version's list, making that as "ADD" and the number of the next list.
  PackageBuilder& Property(std::string_view name, std::string_view value, std::string_view info = {});

  /// Goes on in a section of any name, making it at the end if need be.
  PackageBuilder& In(std::string_view section);
  /// Sets a key of the section, in its place or at the end.
  PackageBuilder& Set(std::string_view key, std::string_view value);
  PackageBuilder& Without(std::string_view key);
  /// Adds a line as it is.
  PackageBuilder& Line(std::string_view line);

  PackageBuilder& LineEnds(std::string_view lineEnd);

  /// The file's bytes: a blank line between the sections, a line end behind the last line.
  std::string Text() const;
  /// Paths of the document files that were added, from the package's folder.
  const std::vector<std::string>& Files() const { return files_; }

 private:
  struct Entry {
    std::string key;  ///< empty: a line as it is
    std::string value;
  };
  struct Section {
    std::string name;
    std::vector<Entry> entries;
  };

  Section& Current() { return sections_[current_]; }

  std::vector<Section> sections_;
  std::size_t current_ = 0;
  std::size_t loio_ = 0;  ///< position of its section
  int loios_ = 0;
  int phios_ = 0;  ///< of the present document
  int fileCount_ = 0;
  int lists_ = 0;
  int properties_ = 0;  ///< of the present version
  std::string path_;
  std::string lineEnd_ = "\r\n";
  std::vector<std::string> files_;
};

}  // namespace qb
