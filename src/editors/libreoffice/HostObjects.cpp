#include "editors/libreoffice/HostObjects.h"

#include <algorithm>
#include <utility>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

using Json = nlohmann::json;
using Addresses = std::vector<std::string>;
using Object = std::shared_ptr<AutomationObject>;

/// An address as one line of text. Line breaks and tabs count for nothing in an address.
std::string Address(const Json& link) {
  std::string address = link.is_string() ? link.get<std::string>() : std::string();
  std::erase_if(address, [](char byte) { return static_cast<unsigned char>(byte) < ' '; });
  return address;
}

Addresses ListOf(const Json& answer, const char* name) {
  Addresses addresses;
  const auto list = answer.find(name);
  if (list == answer.end() || !list->is_array()) return addresses;
  for (const Json& link : *list) addresses.push_back(Address(link));
  return addresses;
}

/// One list for each slide.
std::vector<Addresses> SlidesOf(const Json& answer) {
  std::vector<Addresses> slides;
  const auto list = answer.find("slides");
  if (list == answer.end() || !list->is_array()) return slides;
  for (const Json& slide : *list) slides.push_back(ListOf(Json{{"links", slide}}, "links"));
  return slides;
}

[[noreturn]] void NoSuchMember(std::string_view name) {
  RaiseAbout(failure::kNoSuchMember, name);
}

class Link : public AutomationObject {
 public:
  explicit Link(std::string address) : address_(std::move(address)) {}
  std::string TextProperty(std::string_view name) override {
    if (name != "Address") NoSuchMember(name);
    return address_;
  }

 private:
  std::string address_;
};

class List : public AutomationObject {
 public:
  explicit List(std::vector<Object> elements) : elements_(std::move(elements)) {}
  std::string TextProperty(std::string_view name) override { NoSuchMember(name); }
  std::vector<Object> Elements() override { return elements_; }

 private:
  std::vector<Object> elements_;
};

Object LinkList(const Addresses& addresses) {
  std::vector<Object> links;
  links.reserve(addresses.size());
  for (const std::string& address : addresses) links.push_back(std::make_shared<Link>(address));
  return std::make_shared<List>(std::move(links));
}

/// An object with one member of its own.
class Holder : public AutomationObject {
 public:
  using Make = std::function<Object()>;
  Holder(std::string member, Make make) : member_(std::move(member)), make_(std::move(make)) {}
  std::string TextProperty(std::string_view name) override { NoSuchMember(name); }
  Object ObjectProperty(std::string_view name) override {
    if (name != member_) NoSuchMember(name);
    return make_();
  }

 private:
  std::string member_;
  Make make_;
};

Object SlideList(Office& office, OfficeDocument& document) {
  std::vector<Object> slides;
  for (const Addresses& addresses : SlidesOf(office.Links(document))) {
    slides.push_back(std::make_shared<Holder>("Hyperlinks", [addresses] { return LinkList(addresses); }));
  }
  return std::make_shared<List>(std::move(slides));
}

class Application : public AutomationObject {
 public:
  Application(std::shared_ptr<Office> office, std::shared_ptr<OfficeDocument> document)
      : office_(std::move(office)), document_(std::move(document)) {}

  std::string TextProperty(std::string_view name) override {
    if (name != "Name") NoSuchMember(name);
    // A save is recorded even if its links cannot be had: they are not counted on behind this name.
    if (!office_->HasLinks(*document_)) return "LibreOffice";
    // The two hosts whose object model the objects of this file follow.
    if (document_->kind == "text") return "Microsoft Word";
    if (document_->kind == "presentation") return "Microsoft PowerPoint";
    return "LibreOffice";
  }

  Object ObjectProperty(std::string_view name) override {
    if (name != "ActivePresentation" || document_->kind != "presentation") NoSuchMember(name);
    return std::make_shared<Holder>(
        "Slides", [office = office_, document = document_] { return SlideList(*office, *document); });
  }

 private:
  std::shared_ptr<Office> office_;
  std::shared_ptr<OfficeDocument> document_;
};

}  // namespace

std::shared_ptr<AutomationObject> MakeHostApplication(const std::shared_ptr<Office>& office,
                                                      const std::shared_ptr<OfficeDocument>& document) {
  return std::make_shared<Application>(office, document);
}

std::shared_ptr<AutomationObject> MakeHostDocument(const std::shared_ptr<Office>& office,
                                                   const std::shared_ptr<OfficeDocument>& document) {
  return std::make_shared<Holder>("Hyperlinks",
                                  [office, document] { return LinkList(AllAddresses(*office, *document)); });
}

std::vector<std::string> AllAddresses(Office& office, OfficeDocument& document) {
  const Json answer = office.Links(document);
  Addresses all = ListOf(answer, "links");
  for (const Addresses& slide : SlidesOf(answer)) all.insert(all.end(), slide.begin(), slide.end());
  return all;
}

}  // namespace qb
