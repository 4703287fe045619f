#include "office/OfficeUser.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <stdexcept>

#include "apps/office/UnoText.h"

namespace qb::office {

namespace frame = com::sun::star::frame;
namespace text = com::sun::star::text;

namespace {

constexpr std::chrono::milliseconds kPatience{30000};

void Dispatch(const OfficeConnection& line, const Reference<frame::XModel>& model,
              const std::string& command) {
  const Reference<frame::XDispatchProvider> frame(model->getCurrentController()->getFrame(), UNO_QUERY_THROW);
  frame::DispatchHelper::create(line.Context())->executeDispatch(frame, ToUno(command), "", 0, {});
}

}  // namespace

OfficeUser::OfficeUser(const std::string& pipe) : line_(pipe, happenings_) {
  if (!line_.WaitUntilUp(kPatience)) throw std::runtime_error("No second line to the office");
}

Reference<frame::XModel> OfficeUser::Model(const std::string& path) const {
  const auto components = line_.Desktop()->getComponents()->createEnumeration();
  while (components->hasMoreElements()) {
    const Reference<frame::XModel> model(components->nextElement(), UNO_QUERY);
    if (model.is() && FilePath(model->getURL()) == path) return model;
  }
  return {};
}

void OfficeUser::Write(const std::string& path, const std::string& written) {
  Do([this, path, written] {
    const auto model = Model(path);
    Reference<text::XText> place;
    if (const Reference<text::XTextDocument> document{model, UNO_QUERY}; document.is()) {
      place = document->getText();
    } else {
      const Reference<com::sun::star::drawing::XDrawPagesSupplier> pages(model, UNO_QUERY_THROW);
      const Reference<com::sun::star::container::XIndexAccess> page(pages->getDrawPages()->getByIndex(0),
                                                                    UNO_QUERY_THROW);
      place.set(page->getByIndex(0), UNO_QUERY_THROW);
    }
    place->insertString(place->getEnd(), ToUno(written), false);
    // In a shape that alone does not count as a change.
    Reference<com::sun::star::util::XModifiable>(model, UNO_QUERY_THROW)->setModified(true);
  });
}

std::string OfficeUser::Text(const std::string& path) {
  std::string all;
  Do([this, path, &all] {
    all = ToUtf8(Reference<text::XTextDocument>(Model(path), UNO_QUERY_THROW)->getText()->getString());
  });
  return all;
}

void OfficeUser::Command(const std::string& path, const std::string& command) {
  Do([this, path, command] { Dispatch(line_, Model(path), command); });
}

bool OfficeUser::IsModified(const std::string& path) {
  bool is = false;
  Do([this, path, &is] {
    is = Reference<com::sun::star::util::XModifiable>(Model(path), UNO_QUERY_THROW)->isModified();
  });
  return is;
}

bool OfficeUser::IsActive(const std::string& path) {
  bool is = false;
  Do([this, path, &is] { is = Model(path)->getCurrentController()->getFrame()->isActive(); });
  return is;
}

bool OfficeUser::IsOpen(const std::string& path) {
  bool is = false;
  Do([this, path, &is] { is = Model(path).is(); });
  return is;
}

void OfficeUser::StoreCopy(const std::string& path, const std::string& copy, const std::string& filter,
                           const std::string& password) {
  Do([this, path, copy, filter, password] {
    std::vector<com::sun::star::beans::PropertyValue> values = {Named("FilterName", Any(ToUno(filter)))};
    if (!password.empty()) values.push_back(Named("Password", Any(ToUno(password))));
    Reference<frame::XStorable>(Model(path), UNO_QUERY_THROW)->storeToURL(FileUrl(copy), ToArguments(values));
  });
}

void OfficeUser::StoreAs(const std::string& path, const std::string& name, const std::string& filter) {
  Do([this, path, name, filter] {
    Reference<frame::XStorable>(Model(path), UNO_QUERY_THROW)
        ->storeAsURL(FileUrl(name), ToArguments({Named("FilterName", Any(ToUno(filter)))}));
  });
}

std::string OfficeUser::BuiltInTitle(const std::string& path) {
  std::string title;
  Do([this, path, &title] {
    title =
        ToUtf8(Reference<com::sun::star::document::XDocumentPropertiesSupplier>(Model(path), UNO_QUERY_THROW)
                   ->getDocumentProperties()
                   ->getTitle());
  });
  return title;
}

}  // namespace qb::office
