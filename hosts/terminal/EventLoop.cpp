#include "hosts/terminal/EventLoop.h"

#include <sys/epoll.h>
#include <unistd.h>
#include <uv.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace wayfell {
namespace {

constexpr const char* kInput = "waiting for input";
constexpr const char* kSignals = "waiting for signals";

void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

// What tells that a descriptor is readable. libuv makes what it watches non-blocking, for all who
// have it open; a terminal is shared with the shell and must not become so.
class Readiness {
 public:
  explicit Readiness(int descriptor) : epoll_(epoll_create1(EPOLL_CLOEXEC)) {
    epoll_event event = {};
    event.events = EPOLLIN;
    if (epoll_ < 0 || epoll_ctl(epoll_, EPOLL_CTL_ADD, descriptor, &event) != 0) {
      check(-errno, kInput);
    }
  }
  ~Readiness() { close(epoll_); }
  Readiness(const Readiness&) = delete;
  Readiness& operator=(const Readiness&) = delete;

  int descriptor() const { return epoll_; }
  // Whether there never will be anything to read again.
  bool isOver() const {
    epoll_event event = {};
    return epoll_wait(epoll_, &event, 1, 0) == 1 && (event.events & (EPOLLHUP | EPOLLERR)) != 0;
  }

 private:
  int epoll_;
};

bool isIgnored(int signal) {
  struct sigaction action = {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

// libuv knows them by their addresses until they are closed.
struct EventLoop::Watchers {
  struct Input {
    Readiness readiness;
    EventLoop* loop;
    Handler readable;
    Handler gone;
    uv_poll_t handle = {};
  };
  struct Signal {
    EventLoop* loop;
    Handler handler;
    int number;
    uv_signal_t handle = {};

    void start() {
      const auto call = [](uv_signal_t* watcher, int) {
        const auto* self = static_cast<const Signal*>(watcher->data);
        self->loop->guard(self->handler);
      };
      check(uv_signal_start(&handle, call, number), kSignals);
    }
  };
  struct Wait {
    EventLoop* loop = nullptr;
    Handler handler;
    uv_timer_t handle = {};
  };

  std::vector<std::unique_ptr<Input>> inputs;
  std::vector<std::unique_ptr<Signal>> signals;
  Wait wait;
};

EventLoop::EventLoop()
    : loop_(std::make_unique<uv_loop_t>()), watchers_(std::make_unique<Watchers>()) {
  check(uv_loop_init(loop_.get()), "the event loop");
  Watchers::Wait& wait = watchers_->wait;
  wait.loop = this;
  uv_timer_init(loop_.get(), &wait.handle);
  wait.handle.data = &wait;
}

EventLoop::~EventLoop() {
  const auto close = [](uv_handle_t* handle, void*) { uv_close(handle, nullptr); };
  uv_walk(loop_.get(), close, nullptr);
  uv_run(loop_.get(), UV_RUN_DEFAULT);
  uv_loop_close(loop_.get());
}

void EventLoop::onReadable(int descriptor, Handler readable, Handler gone) {
  std::unique_ptr<Watchers::Input> input(
      new Watchers::Input{Readiness(descriptor), this, std::move(readable), std::move(gone)});
  check(uv_poll_init(loop_.get(), &input->handle, input->readiness.descriptor()), kInput);
  input->handle.data = input.get();
  const auto call = [](uv_poll_t* watcher, int /*status*/, int /*events*/) {
    const auto* self = static_cast<const Watchers::Input*>(watcher->data);
    self->loop->guard(self->readiness.isOver() ? self->gone : self->readable);
  };
  check(uv_poll_start(&input->handle, UV_READABLE, call), kInput);
  watchers_->inputs.push_back(std::move(input));
}

void EventLoop::onSignal(int signal, Handler handler) {
  if (isIgnored(signal)) return;
  std::unique_ptr<Watchers::Signal> watcher(new Watchers::Signal{this, std::move(handler), signal});
  check(uv_signal_init(loop_.get(), &watcher->handle), kSignals);
  watcher->handle.data = watcher.get();
  watcher->start();
  watchers_->signals.push_back(std::move(watcher));
}

void EventLoop::onWaited(Handler handler) { watchers_->wait.handler = std::move(handler); }

void EventLoop::setWait(std::optional<std::chrono::milliseconds> wait) {
  Watchers::Wait& waiting = watchers_->wait;
  if (!wait) {
    uv_timer_stop(&waiting.handle);
    return;
  }
  const auto call = [](uv_timer_t* timer) {
    const auto* self = static_cast<const Watchers::Wait*>(timer->data);
    self->loop->guard(self->handler);
  };
  // The loop counts whole milliseconds from when it last looked at the clock. One more, for a wait
  // never to end early and have to be set again.
  uv_update_time(loop_.get());
  uv_timer_start(&waiting.handle, call, static_cast<std::uint64_t>(wait->count()) + 1, 0);
}

void EventLoop::raiseDefault(int signal) {
  for (const auto& watcher : watchers_->signals) {
    if (watcher->number != signal) continue;
    uv_signal_stop(&watcher->handle);  // which leaves the default
    std::raise(signal);
    watcher->start();
  }
}

void EventLoop::run() {
  uv_run(loop_.get(), UV_RUN_DEFAULT);
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
}

void EventLoop::stop() { uv_stop(loop_.get()); }

// Nothing may be thrown through libuv, which is C.
void EventLoop::guard(const Handler& handler) {
  try {
    handler();
  } catch (...) {
    thrown_ = std::current_exception();
    stop();
  }
}

}  // namespace wayfell
