#include "bench/SecondLine.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/XDocumentEventBroadcaster.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/implbase1.hxx>
#include <rtl/bootstrap.hxx>
#include <rtl/ref.hxx>
#include <stdexcept>
#include <thread>

#include "apps/office/OfficeConnection.h"
#include "apps/office/OfficeProcess.h"
#include "apps/office/Uno.h"
#include "apps/office/UnoText.h"

namespace qb {
namespace {

namespace star = com::sun::star;
using office::Any;
using office::Named;
using office::Reference;
using office::UNO_QUERY;
using office::UNO_QUERY_THROW;
using Model = Reference<star::frame::XModel>;
using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{30};
/// A document that is closed sooner after its loading can take the office with it.
constexpr std::chrono::milliseconds kLoadedToClosed{1100};

std::string Prepared(std::string pipe) {
  rtl::Bootstrap::set("URE_BOOTSTRAP",
                      office::ToUno("vnd.sun.star.pathname:" QB_OFFICE_PROGRAM "/fundamentalrc"));
  return pipe;
}

Model Load(const office::OfficeConnection& line, const std::string& path, bool readOnly) {
  return Model(line.Desktop()->loadComponentFromURL(
                   office::FileUrl(path), "_blank", 0,
                   office::ToArguments(
                       {Named("ReadOnly", Any(readOnly)), Named("MacroExecutionMode", Any(sal_Int16{0}))})),
               UNO_QUERY_THROW);
}

void Close(const Model& model) {
  Reference<star::util::XCloseable>(model, UNO_QUERY_THROW)->close(false);
}

/// Notes when the office tells of a save.
class SaveWatch : public cppu::WeakImplHelper1<star::document::XDocumentEventListener> {
 public:
  void SAL_CALL documentEventOccured(const star::document::DocumentEvent& event) override {
    if (event.EventName == "OnSaveDone") when = SteadyClock::now();
  }
  void SAL_CALL disposing(const star::lang::EventObject&) override {}
  SteadyClock::time_point when;
};

}  // namespace

struct SecondLine::Parts {
  explicit Parts(const std::string& profile)
      : pipe(Prepared(office::NewPipeName())),
        // An office with this profile runs, so the launcher only tells it where to listen too.
        launcher(QB_OFFICE_PROGRAM "/soffice", profile, pipe),
        line(pipe, happenings) {}
  ~Parts() { office::RemovePipe(pipe); }

  std::string pipe;
  office::Happenings happenings;
  office::OfficeProcess launcher;
  office::OfficeConnection line;
};

SecondLine::SecondLine(const std::string& profile) : parts_(std::make_unique<Parts>(profile)) {
  if (!parts_->line.WaitUntilUp(kPatience)) throw std::runtime_error("No second line to the office");
}

SecondLine::~SecondLine() = default;

double SecondLine::OpenPair(const std::string& source, const std::string& translation) {
  Model first;
  Model second;
  const auto start = SteadyClock::now();
  parts_->line.Run(
      [&] {
        first = Load(parts_->line, source, true);
        second = Load(parts_->line, translation, false);
      },
      kPatience);
  const std::chrono::duration<double> took = SteadyClock::now() - start;
  std::this_thread::sleep_for(kLoadedToClosed);
  parts_->line.Run(
      [&] {
        Close(first);
        Close(second);
      },
      kPatience);
  return took.count();
}

SteadyClock::time_point SecondLine::Save(const std::string& path) {
  const rtl::Reference<SaveWatch> watch(new SaveWatch);
  parts_->line.Run(
      [&] {
        const auto components = parts_->line.Desktop()->getComponents()->createEnumeration();
        while (components->hasMoreElements()) {
          const Model model(components->nextElement(), UNO_QUERY);
          if (!model.is() || office::FilePath(model->getURL()) != path) continue;
          const Reference<star::document::XDocumentEventBroadcaster> events(model, UNO_QUERY_THROW);
          events->addDocumentEventListener(watch.get());
          Reference<star::frame::XStorable>(model, UNO_QUERY_THROW)->store();
          events->removeDocumentEventListener(watch.get());
        }
      },
      kPatience);
  if (watch->when == SteadyClock::time_point()) throw std::runtime_error(path + " was not stored");
  return watch->when;
}

}  // namespace qb
