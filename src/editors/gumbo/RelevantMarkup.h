#pragma once

#include <string>
#include <string_view>

namespace qb {

/// What of an HTML text says something about title, links and code page: its first title, and the tags `a`,
/// `area` and `meta` with the attributes that count. Takes time in proportion to the text whatever the
/// text holds, and nothing in the result is nested: a tree of hostile HTML takes minutes to build.
std::string RelevantMarkup(std::string_view html);

}  // namespace qb
