#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "apps/office/OpenDocument.h"

namespace qb::office {

/// The result of `title`.
nlohmann::json TitleAnswer(const std::optional<std::string>& title);

/// The result of `links` for a document whose text, as `TextForLinks` gives it, has its addresses relative to
/// the file `base`. Raises `Failure` "office" if that is no such text.
nlohmann::json LinksAnswer(const OpenDocument& document, const std::string& base, const std::string& text);

}  // namespace qb::office
