#include "model/CHyperlinks.h"

namespace qb {

void CHyperlink::Init(std::string_view url, std::string_view placeholder, std::string_view info) {
  url_ = url;
  placeholder_ = placeholder;
  info_ = info;
}

std::shared_ptr<CHyperlink> CHyperlinks::Add(std::string_view Placeholder, std::string_view,
                                             std::string_view url, std::string_view info,
                                             std::string_view key) {
  auto hyperlink = std::make_shared<CHyperlink>();
  hyperlink->Init(url, Placeholder, info);
  hyperlinks_.Add(hyperlink, key);
  return hyperlink;
}

std::vector<std::shared_ptr<CHyperlink>> CHyperlinks::NewEnum() const {
  std::vector<std::shared_ptr<CHyperlink>> elements;
  for (std::size_t i = 1; i <= hyperlinks_.Count(); ++i) elements.push_back(hyperlinks_.Item(i));
  return elements;
}

}  // namespace qb
