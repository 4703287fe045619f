#pragma once

#include <memory>

#include "editors/HtmlParser.h"

namespace qb {

/// A parser of HTML files: the title as a browser shows it, and the addresses of `a` and `area` as they are
/// written, without those that are empty. The code page is that of the byte order mark, else the one that the
/// file declares, else that of the open package. Raises what keeps the file from being read.
std::shared_ptr<IHtmlParser> MakeGumboHtmlParser();

}  // namespace qb
