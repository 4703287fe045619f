#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Whether a verb on the native file would run what the file holds instead of showing it: a file that is
/// itself a program or leads to one, whatever its name; and a script, unless the verb only edits it.
bool WouldRun(const std::wstring& native, std::string_view verb);

}  // namespace qb
