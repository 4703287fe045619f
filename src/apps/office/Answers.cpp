#include "apps/office/Answers.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "apps/office/LinkAddress.h"
#include "apps/office/LinkReader.h"

namespace qb::office {

using nlohmann::json;

json TitleAnswer(const std::optional<std::string>& title) {
  return {{"title", title ? json(*title) : json()}};
}

json LinksAnswer(const OpenDocument& document, const std::string& base, const std::string& text) {
  Links found = ReadLinks(text);
  const auto putRight = [&document, &base](std::vector<std::string>& addresses) {
    for (std::string& address : addresses) address = AddressIn(document.path, base, address);
  };
  putRight(found.links);
  std::for_each(found.slides.begin(), found.slides.end(), putRight);
  if (document.kind == "presentation") return {{"slides", std::move(found.slides)}};
  for (auto& page : found.slides) std::move(page.begin(), page.end(), std::back_inserter(found.links));
  return {{"links", std::move(found.links)}};
}

}  // namespace qb::office
