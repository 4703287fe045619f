#include <signal.h>

#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/beans/XPropertyContainer.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XDocumentEventBroadcaster.hpp>
#include <com/sun/star/document/XDocumentInsertable.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/theGlobalEventBroadcaster.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <cppuhelper/implbase1.hxx>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "apps/office/UnoStart.h"
#include "apps/office/UnoText.h"
#include "office/OfficeUser.h"

// office_user <pipe>: does in a running office what its user does, over a line of its own. Reads lines of
// JSON,
// {"do": "...", "path": "..."} and more, and answers each with a line: {"result": ...} or {"error": "..."}.
namespace qb::office {
namespace {

namespace star = com::sun::star;
using nlohmann::json;
using Model = Reference<star::frame::XModel>;

Model OpenModel(const OfficeUser& user, const std::string& path) {
  const Model model = user.Model(path);
  if (!model.is()) throw std::runtime_error(path + " is not open");
  return model;
}

Reference<star::beans::XPropertyContainer> OwnProperties(const Model& model) {
  return Reference<star::document::XDocumentPropertiesSupplier>(model, UNO_QUERY_THROW)
      ->getDocumentProperties()
      ->getUserDefinedProperties();
}

void WriteTitle(const Model& model, const std::string& title) {
  const auto container = OwnProperties(model);
  const Reference<star::beans::XPropertySet> properties(container, UNO_QUERY_THROW);
  if (properties->getPropertySetInfo()->hasPropertyByName("Title")) {
    properties->setPropertyValue("Title", Any(ToUno(title)));
  } else {
    container->addProperty("Title", star::beans::PropertyAttribute::REMOVABLE, Any(ToUno(title)));
  }
}

json Title(const Model& model) {
  const Reference<star::beans::XPropertySet> properties(OwnProperties(model), UNO_QUERY_THROW);
  if (!properties->getPropertySetInfo()->hasPropertyByName("Title")) return nullptr;
  return ToUtf8(properties->getPropertyValue("Title").get<OUString>());
}

/// Puts another document's content at the end of a text.
void InsertFile(const Model& model, const std::string& file) {
  const auto text = Reference<star::text::XTextDocument>(model, UNO_QUERY_THROW)->getText();
  const Reference<star::document::XDocumentInsertable> end(text->createTextCursorByRange(text->getEnd()),
                                                           UNO_QUERY_THROW);
  end->insertDocumentFromURL(FileUrl(file), {});
}

/// Puts a link at the end of a text.
void InsertLink(const Model& model, const std::string& address) {
  const auto text = Reference<star::text::XTextDocument>(model, UNO_QUERY_THROW)->getText();
  const auto end = text->createTextCursorByRange(text->getEnd());
  end->setString(ToUno(" link"));
  const Reference<star::beans::XPropertySet> properties(end, UNO_QUERY_THROW);
  properties->setPropertyValue("HyperLinkURL", Any(ToUno(address)));
}

/// Puts a field with a link into the first shape of a slide, the first of which is 0.
void InsertSlideLink(const Model& model, sal_Int32 slide, const std::string& address) {
  const auto slides = Reference<star::drawing::XDrawPagesSupplier>(model, UNO_QUERY_THROW)->getDrawPages();
  const Reference<star::container::XIndexAccess> shapes(slides->getByIndex(slide), UNO_QUERY_THROW);
  const Reference<star::text::XText> text(shapes->getByIndex(0), UNO_QUERY_THROW);
  const Reference<star::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
  const Reference<star::text::XTextContent> field(factory->createInstance("com.sun.star.text.TextField.URL"),
                                                  UNO_QUERY_THROW);
  const Reference<star::beans::XPropertySet> properties(field, UNO_QUERY_THROW);
  properties->setPropertyValue("URL", Any(ToUno(address)));
  properties->setPropertyValue("Representation", Any(ToUno(address)));
  text->insertTextContent(text->getEnd(), field, false);
}

/// Kills the office when something happens with a document, in the middle of it: the office waits for who
/// hears of it.
class KillAtEvent : public cppu::WeakImplHelper1<star::document::XDocumentEventListener> {
 public:
  KillAtEvent(const OUString& event, pid_t office) : event_(event), office_(office) {
    if (office <= 1) throw std::runtime_error("That is no office's process");
  }
  void SAL_CALL documentEventOccured(const star::document::DocumentEvent& event) override {
    if (event.EventName == event_) kill(office_, SIGKILL);
  }
  void SAL_CALL disposing(const star::lang::EventObject& /*source*/) override {}

 private:
  OUString event_;
  pid_t office_;
};

class Commands {
 public:
  explicit Commands(const std::string& pipe) : user_(pipe) {
    Add("write", [this](const json& wish) {
      user_.Write(wish.at("path"), wish.at("text"));
      return json();
    });
    Add("command", [this](const json& wish) {
      user_.Command(wish.at("path"), wish.at("command"));
      return json();
    });
    Add("killAt", [this](const json& wish) {
      const Reference<star::document::XDocumentEventListener> listener(
          new KillAtEvent(ToUno(wish.at("event").get<std::string>()), wish.at("process")));
      user_.Do([&] {
        star::frame::theGlobalEventBroadcaster::get(user_.Context())->addDocumentEventListener(listener);
      });
      return json();
    });
    Add("isModified", [this](const json& wish) { return json(user_.IsModified(wish.at("path"))); });
    AddOnModel("isReadOnly", [](const Model& model, const json&) {
      return json(bool(Reference<star::frame::XStorable>(model, UNO_QUERY_THROW)->isReadonly()));
    });
    AddOnModel("title", [](const Model& model, const json&) { return Title(model); });
    AddOnModel("setTitle", [](const Model& model, const json& wish) {
      WriteTitle(model, wish.at("title"));
      return json();
    });
    AddOnModel("insertFile", [](const Model& model, const json& wish) {
      InsertFile(model, wish.at("file"));
      return json();
    });
    AddOnModel("insertLink", [](const Model& model, const json& wish) {
      InsertLink(model, wish.at("address"));
      return json();
    });
    AddOnModel("insertSlideLink", [](const Model& model, const json& wish) {
      InsertSlideLink(model, wish.at("slide"), wish.at("address"));
      return json();
    });
  }

  json Answer(const std::string& line) {
    try {
      const json wish = json::parse(line);
      return {{"result", commands_.at(wish.at("do"))(wish)}};
    } catch (const star::uno::Exception& error) {
      return {{"error", ToUtf8(error.Message)}};
    } catch (const std::exception& error) {
      return {{"error", error.what()}};
    }
  }

 private:
  using Command = std::function<json(const json& wish)>;

  void Add(const std::string& name, Command command) { commands_[name] = std::move(command); }

  /// What is done with a document on the office's main thread.
  void AddOnModel(const std::string& name, std::function<json(const Model&, const json&)> work) {
    Add(name, [this, work = std::move(work)](const json& wish) {
      json result;
      user_.Do([&] { result = work(OpenModel(user_, wish.at("path")), wish); });
      return result;
    });
  }

  OfficeUser user_;
  std::map<std::string, Command> commands_;
};

}  // namespace
}  // namespace qb::office

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: office_user <pipe>\n";
    return 2;
  }
  qb::office::PrepareUno();
  qb::office::Commands commands(arguments[1]);
  for (std::string line; std::getline(std::cin, line);) {
    std::cout << commands.Answer(line).dump() << std::endl;
  }
}
