#include "hosts/loop/qt/QtRunLoop.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace wayfell {
namespace {

[[noreturn]] void failToWait(int error) {
  throw std::system_error(error, std::generic_category(), "waiting for input");
}

// Qt warns of what it cannot wait for and then does not: it is found out here.
void makeReadyToWait(int descriptor) {
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) failToWait(errno);
  if (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)) failToWait(EPERM);
  const int flags = fcntl(descriptor, F_GETFL);
  if (flags < 0 || fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) != 0) failToWait(errno);
}

}  // namespace

// Qt may have it at hand while it is unwatched, so it ends after that.
struct QtRunLoop::Watch : std::enable_shared_from_this<Watch> {
  QtRunLoop& loop;
  std::function<void(Readiness)> action;
  std::vector<QSocketNotifier*> notifiers;

  Watch(QtRunLoop& runLoop, std::function<void(Readiness)> called)
      : loop(runLoop), action(std::move(called)) {}

  void await(int descriptor, QSocketNotifier::Type type, Readiness ready) {
    auto* notifier = new QSocketNotifier(descriptor, type, &loop.context_);
    notifiers.push_back(notifier);
    QObject::connect(notifier, &QSocketNotifier::activated, &loop.context_,
                     [this, ready] { call(ready); });
  }
  void call(Readiness ready) {
    const auto running = shared_from_this();
    loop.guard([&] { action(ready); });
  }
  void end() {
    for (QSocketNotifier* notifier : std::exchange(notifiers, {})) {
      notifier->setEnabled(false);
      notifier->disconnect();
      notifier->deleteLater();
    }
  }
};

QtRunLoop::QtRunLoop() {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &context_, [this] { fireTimers(); });
  // Between two of these lies all that one wake-up brings, whichever dispatcher Qt has.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &context_, [this] { endTurn(); });
}

QtRunLoop::~QtRunLoop() {
  cancelAllTimers();
  const auto ended = std::exchange(watches_, {});
  for (const auto& [id, watch] : ended) watch->end();
}

double QtRunLoop::seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void QtRunLoop::wakeAfter(std::optional<std::chrono::milliseconds> wait) {
  if (wait) {
    timer_.start(*wait);
  } else {
    timer_.stop();
  }
}

IoRunLoop::WatchId QtRunLoop::watch(int descriptor, Readiness awaited,
                                    std::function<void(Readiness)> action) {
  makeReadyToWait(descriptor);
  auto watch = std::make_shared<Watch>(*this, std::move(action));
  if (awaited.readable) watch->await(descriptor, QSocketNotifier::Read, {.readable = true});
  if (awaited.writable) watch->await(descriptor, QSocketNotifier::Write, {.writable = true});
  watches_.emplace(++lastWatch_, std::move(watch));
  return lastWatch_;
}

void QtRunLoop::unwatch(WatchId watch) {
  const auto ended = watches_.extract(watch);
  if (ended) ended.mapped()->end();
}

void QtRunLoop::wake() {
  QMetaObject::invokeMethod(
      &context_, [this] { performPending(); }, Qt::QueuedConnection);
}

void QtRunLoop::runUntilStopped() { QCoreApplication::exec(); }

void QtRunLoop::stop() { QCoreApplication::quit(); }

}  // namespace wayfell
