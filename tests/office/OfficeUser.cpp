#include "office/OfficeUser.h"

#include <algorithm>
#include <array>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/theGlobalEventBroadcaster.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <cppuhelper/implbase1.hxx>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "apps/office/Failure.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace frame = com::sun::star::frame;
namespace text = com::sun::star::text;

namespace {

constexpr std::chrono::milliseconds kPatience{60000};

void Dispatch(const OfficeConnection& line, const Reference<frame::XModel>& model, const std::string& command,
              bool waits) {
  const Reference<frame::XDispatchProvider> frame(model->getCurrentController()->getFrame(), UNO_QUERY_THROW);
  const auto helper = frame::DispatchHelper::create(line.Context());
  const Any result =
      helper->executeDispatch(frame, ToUno(command), "", 0, ToArguments({Named("SynchronMode", Any(waits))}));
  // The result holds what did the work, which a close leaves to nobody else. Its last holder must not be the
  // office's thread that writes to us: that one would wait for the main thread, which waits for its next word
  // to be written. The thread has let go of the result when it writes another answer.
  line.Context()->getValueByName("");
}

class EventListener : public cppu::WeakImplHelper1<com::sun::star::document::XDocumentEventListener> {
 public:
  EventListener(std::string event, std::function<void()> then)
      : event_(std::move(event)), then_(std::move(then)) {}
  void SAL_CALL documentEventOccured(const com::sun::star::document::DocumentEvent& event) override {
    // As the helper keeps its documents.
    views_.push_back(event.ViewController);
    if (ToUtf8(event.EventName) == event_) then_();
  }
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& /*source*/) override {}

 private:
  const std::string event_;
  const std::function<void()> then_;
  std::vector<Reference<frame::XController2>> views_;
};

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
  Do([this, path, command] { Dispatch(line_, Model(path), command, true); });
}

void OfficeUser::Begin(const std::string& path, const std::string& command) {
  Do([this, path, command] { Dispatch(line_, Model(path), command, false); });
}

void OfficeUser::Load(const std::string& path) {
  Do([this, path] {
    const auto model = Desktop()->loadComponentFromURL(FileUrl(path), "_blank", 0, {});
    if (!model.is()) throw std::runtime_error(path);
  });
}

void OfficeUser::Unload(const std::string& path) {
  Do([this, path] {
    Reference<com::sun::star::util::XCloseable>(Model(path), UNO_QUERY_THROW)->close(false);
  });
}

void OfficeUser::EndOffice() {
  try {
    Do([this] { Desktop()->terminate(); });
  } catch (const Failure& failure) {
    // It says so before it answers.
    if (failure.Code() != "ended") throw;
  }
}

void OfficeUser::At(const std::string& event, const std::function<void()>& then) {
  Do([this, event, then] {
    frame::theGlobalEventBroadcaster::get(line_.Context())
        ->addDocumentEventListener(new EventListener(event, then));
  });
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
    if (!password.empty()) {
      values.push_back(Named("Password", Any(ToUno(password))));
      // Another format wants the same in this way.
      const std::array<com::sun::star::beans::NamedValue, 2> secret = {
          com::sun::star::beans::NamedValue("OOXPassword", Any(ToUno(password))),
          com::sun::star::beans::NamedValue("CryptoType", Any(OUString("Standard")))};
      if (filter.ends_with("XML"))
        values.back() =
            Named("EncryptionData", Any(uno::Sequence<com::sun::star::beans::NamedValue>(secret.data(), 2)));
    }
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

int WindowsOnScreen() {
  const std::unique_ptr<FILE, decltype(&pclose)> list(popen("xprop -root _NET_CLIENT_LIST", "r"), pclose);
  std::array<char, 4096> line{};
  if (!list || std::fgets(line.data(), line.size(), list.get()) == nullptr) {
    throw std::runtime_error("The windows of the session cannot be counted");
  }
  // _NET_CLIENT_LIST(WINDOW): window id # 0x1, 0x2
  const std::string windows = line.data();
  return static_cast<int>(std::count(windows.begin(), windows.end(), 'x'));
}

}  // namespace qb::office
