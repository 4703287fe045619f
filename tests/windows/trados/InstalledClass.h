#pragma once

#include <string>

namespace qb {

/// An automation class of another program, which the machine's registry names for as long as the object
/// lives. It has an identifier of its own each time: one whose program was killed keeps its place in Wine's
/// services, so that no other program can take it.
class InstalledClass {
 public:
  /// `name` is that of the class, `program` that of a stand-in.
  InstalledClass(const std::wstring& name, const std::wstring& program);
  InstalledClass(const InstalledClass&) = delete;
  InstalledClass& operator=(const InstalledClass&) = delete;
  ~InstalledClass();

  /// The class is there, its program is this file now.
  void SetProgram(const std::wstring& file);
  /// Takes the class away.
  void Remove();

 private:
  std::wstring name_;
  std::wstring key_;
};

}  // namespace qb
