#include "apps/office/OfficeConnection.h"

#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/XRequestCallback.hpp>
#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/bridge/XBridgeFactory2.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XTerminateListener.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <condition_variable>
#include <cppuhelper/bootstrap.hxx>
#include <cppuhelper/implbase1.hxx>
#include <exception>
#include <mutex>
#include <rtl/ref.hxx>
#include <utility>
#include <vector>

#include "apps/office/Failure.h"
#include "apps/office/UnoText.h"

namespace qb::office {

namespace uno = com::sun::star::uno;
namespace lang = com::sun::star::lang;
namespace awt = com::sun::star::awt;
using uno::Reference;
using uno::UNO_QUERY;
using uno::UNO_QUERY_THROW;

struct OfficeConnection::Line {
  explicit Line(Happenings& all) : happenings(all) {}

  enum class State { kConnecting, kUp, kEnding, kLost, kLeft };

  Failure Loss() const {
    return state == State::kEnding ? Failure("ended", "The office has been ended")
                                   : Failure("office", "The office has ended");
  }

  Happenings& happenings;
  mutable std::mutex mutex;
  std::condition_variable changed;
  State state = State::kConnecting;
  Reference<lang::XComponent> bridge;
  Reference<uno::XComponentContext> context;
  Reference<com::sun::star::frame::XDesktop2> desktop;
  Reference<awt::XRequestCallback> mainThread;
  std::vector<Reference<uno::XInterface>> kept;
};

namespace {

using Line = OfficeConnection::Line;

constexpr std::chrono::milliseconds kBetweenAttempts{50};

class LossListener : public cppu::WeakImplHelper1<lang::XEventListener> {
 public:
  explicit LossListener(std::shared_ptr<Line> line) : line_(std::move(line)) {}
  void SAL_CALL disposing(const lang::EventObject& /*source*/) override {
    const std::lock_guard lock(line_->mutex);
    if (line_->state == Line::State::kUp) line_->happenings.Push({Happening::Kind::kOfficeGone, 0});
    if (line_->state == Line::State::kUp || line_->state == Line::State::kConnecting)
      line_->state = Line::State::kLost;
    line_->changed.notify_all();
  }

 private:
  std::shared_ptr<Line> line_;
};

/// Hears that the office ends, when nothing is open in it any more. What it is asked from then on it may
/// never do.
class EndListener : public cppu::WeakImplHelper1<com::sun::star::frame::XTerminateListener> {
 public:
  explicit EndListener(std::shared_ptr<Line> line) : line_(std::move(line)) {}
  void SAL_CALL queryTermination(const lang::EventObject& /*source*/) override {}
  void SAL_CALL notifyTermination(const lang::EventObject& /*source*/) override {
    const std::lock_guard lock(line_->mutex);
    if (line_->state != Line::State::kUp) return;
    line_->happenings.Push({Happening::Kind::kOfficeGone, 0});
    line_->state = Line::State::kEnding;
    line_->changed.notify_all();
  }
  void SAL_CALL disposing(const lang::EventObject& /*source*/) override {}

 private:
  std::shared_ptr<Line> line_;
};

/// Work on its way to the office's main thread, which calls `notify` here; what is called inside that runs
/// back there.
class Call : public cppu::WeakImplHelper1<awt::XCallback> {
 public:
  Call(std::shared_ptr<Line> line, std::function<void()> work, std::function<void()> undo)
      : line_(std::move(line)), work_(std::move(work)), undo_(std::move(undo)) {}

  void SAL_CALL notify(const uno::Any& /*data*/) override {
    {
      const std::lock_guard lock(line_->mutex);
      // An office that ends still does what waits for its main thread, and dies of a document.
      if (abandoned_ || line_->state != Line::State::kUp) return;
    }
    const std::exception_ptr failure = Attempt(work_);
    bool late = false;
    {
      const std::lock_guard lock(line_->mutex);
      late = abandoned_;
      done_ = true;
      failure_ = failure;
      line_->changed.notify_all();
    }
    // Nobody waits for the result of this any more.
    if (late && !failure && undo_) Attempt(undo_);
  }

  /// Ends the call before it has begun.
  void Fail(const std::exception_ptr& failure) {
    const std::lock_guard lock(line_->mutex);
    done_ = true;
    failure_ = failure;
    line_->changed.notify_all();
  }

  /// Waits for the end of the work and raises what it raised.
  void Wait(std::chrono::milliseconds patience) {
    std::unique_lock lock(line_->mutex);
    line_->changed.wait_for(lock, patience, [this] { return done_ || line_->state != Line::State::kUp; });
    if (done_ && !failure_) return;
    if (line_->state != Line::State::kUp) throw line_->Loss();
    if (failure_) std::rethrow_exception(failure_);
    abandoned_ = true;
    throw Failure("office", "The office does not answer");
  }

  static std::exception_ptr Attempt(const std::function<void()>& work) {
    try {
      work();
      return nullptr;
    } catch (const Failure&) {
      return std::current_exception();
    } catch (const lang::DisposedException&) {
      return std::make_exception_ptr(
          Failure("no-document", "The document is closed, or the office has ended"));
    } catch (const uno::Exception& failure) {
      return std::make_exception_ptr(Failure("office", ToUtf8(failure.Message)));
    } catch (const std::exception& failure) {
      return std::make_exception_ptr(Failure("office", failure.what()));
    }
  }

 private:
  std::shared_ptr<Line> line_;
  std::function<void()> work_;
  std::function<void()> undo_;
  std::exception_ptr failure_;
  bool done_ = false;
  bool abandoned_ = false;
};

/// One attempt; false if the office is not there, or not ready.
bool TryToConnect(const std::shared_ptr<Line>& line, const OUString& pipe,
                  const Reference<uno::XComponentContext>& local) {
  try {
    const auto connection = com::sun::star::connection::Connector::create(local)->connect(pipe);
    const Reference<com::sun::star::bridge::XBridgeFactory> factory(
        com::sun::star::bridge::BridgeFactory::create(local), UNO_QUERY_THROW);
    // Without a name the bridge is ours alone.
    const auto bridge = factory->createBridge("", "urp", connection, nullptr);
    const Reference<lang::XComponent> component(bridge, UNO_QUERY_THROW);
    bool isLeft = false;
    {
      const std::lock_guard lock(line->mutex);
      line->bridge = component;
      isLeft = line->state == Line::State::kLeft;
    }
    if (isLeft) {
      // Nobody else disposes it, and nobody could end a call through it.
      component->dispose();
      return true;
    }
    const Reference<uno::XComponentContext> context(bridge->getInstance("StarOffice.ComponentContext"),
                                                    UNO_QUERY);
    if (!context.is()) {
      component->dispose();
      return false;
    }
    const auto desktop = com::sun::star::frame::Desktop::create(context);
    const auto mainThread = awt::AsyncCallback::create(context);
    {
      const std::lock_guard lock(line->mutex);
      if (line->state != Line::State::kConnecting) return true;
      line->context = context;
      line->desktop = desktop;
      line->mainThread = mainThread;
      line->state = Line::State::kUp;
      line->changed.notify_all();
    }
    component->addEventListener(new LossListener(line));
    desktop->addTerminateListener(new EndListener(line));
    return true;
  } catch (const uno::Exception&) {
    return false;
  }
}

}  // namespace

OfficeConnection::OfficeConnection(std::string pipe, Happenings& happenings)
    : line_(std::make_shared<Line>(happenings)) {
  caller_.Post([this, pipe = std::move(pipe)] { Connect(pipe); });
}

OfficeConnection::~OfficeConnection() {
  Reference<lang::XComponent> bridge;
  {
    const std::lock_guard lock(line_->mutex);
    line_->state = Line::State::kLeft;
    line_->changed.notify_all();
    bridge = line_->bridge;
  }
  if (bridge.is()) bridge->dispose();
}

void OfficeConnection::Connect(const std::string& pipe) {
  const auto local = cppu::defaultBootstrap_InitialComponentContext();
  while (!TryToConnect(line_, ToUno("pipe,name=" + pipe), local)) {
    std::unique_lock lock(line_->mutex);
    const auto left = [this] { return line_->state != Line::State::kConnecting; };
    if (line_->changed.wait_for(lock, kBetweenAttempts, left)) return;
  }
}

bool OfficeConnection::WaitUntilUp(std::chrono::milliseconds patience) {
  std::unique_lock lock(line_->mutex);
  return line_->changed.wait_for(lock, patience, [this] { return line_->state != Line::State::kConnecting; });
}

bool OfficeConnection::IsLost() const {
  const std::lock_guard lock(line_->mutex);
  return line_->state == Line::State::kLost || line_->state == Line::State::kEnding;
}

Failure OfficeConnection::Loss() const {
  const std::lock_guard lock(line_->mutex);
  return line_->Loss();
}

void OfficeConnection::Run(std::function<void()> work, std::chrono::milliseconds patience,
                           std::function<void()> undo) {
  const rtl::Reference<Call> call(new Call(line_, std::move(work), std::move(undo)));
  caller_.Post([line = line_, call] {
    const std::exception_ptr failure =
        Call::Attempt([&line, &call] { line->mainThread->addCallback(call.get(), uno::Any()); });
    if (failure) call->Fail(failure);
  });
  call->Wait(patience);
}

Reference<uno::XComponentContext> OfficeConnection::Context() const {
  return line_->context;
}

Reference<com::sun::star::frame::XDesktop2> OfficeConnection::Desktop() const {
  return line_->desktop;
}

void OfficeConnection::Keep(const Reference<uno::XInterface>& borne) const {
  const std::lock_guard lock(line_->mutex);
  line_->kept.push_back(borne);
}

}  // namespace qb::office
