#include "hosts/loop/uv/EventLoop.h"

#include <sys/epoll.h>
#include <unistd.h>
#include <uv.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <map>
#include <system_error>
#include <utility>

namespace wayfell {
namespace {

constexpr const char* kInput = "waiting for input";
constexpr const char* kSignals = "waiting for signals";

void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

// What tells that a terminal has input. libuv makes what it watches non-blocking, for all who
// have it open; a terminal is shared with the shell and must not become so.
class InputReadiness {
 public:
  explicit InputReadiness(int descriptor) : epoll_(epoll_create1(EPOLL_CLOEXEC)) {
    epoll_event event = {};
    event.events = EPOLLIN;
    if (epoll_ < 0 || epoll_ctl(epoll_, EPOLL_CTL_ADD, descriptor, &event) != 0) {
      check(-errno, kInput);
    }
  }
  ~InputReadiness() { close(epoll_); }
  InputReadiness(const InputReadiness&) = delete;
  InputReadiness& operator=(const InputReadiness&) = delete;

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
    InputReadiness readiness;
    EventLoop* loop;
    Handler readable;
    Handler gone;
    uv_poll_t handle = {};
  };
  struct Descriptor {
    EventLoop* loop;
    int events;
    std::function<void(IoRunLoop::Readiness)> action;
    uv_poll_t handle = {};

    void start() {
      const auto call = [](uv_poll_t* watcher, int status, int happened) {
        auto* self = static_cast<Descriptor*>(watcher->data);
        // After a failure libuv stops to watch, and leaves it to the watcher to find out.
        if (status < 0) happened = self->events;
        self->loop->guard([self, happened] {
          self->action({(happened & UV_READABLE) != 0, (happened & UV_WRITABLE) != 0});
        });
        if (status < 0 && uv_is_closing(self->asHandle()) == 0) self->start();
      };
      check(uv_poll_start(&handle, events, call), kInput);
    }
    uv_handle_t* asHandle() { return reinterpret_cast<uv_handle_t*>(&handle); }
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

  std::vector<std::unique_ptr<Input>> inputs;
  std::map<WatchId, std::unique_ptr<Descriptor>> descriptors;
  WatchId lastWatch = 0;
  std::vector<std::unique_ptr<Signal>> signals;
  uv_timer_t timer = {};
  uv_prepare_t turnEnd = {};
  uv_async_t performed = {};
};

EventLoop::EventLoop()
    : loop_(std::make_unique<uv_loop_t>()), watchers_(std::make_unique<Watchers>()) {
  check(uv_loop_init(loop_.get()), "the event loop");
  uv_timer_init(loop_.get(), &watchers_->timer);
  uv_prepare_init(loop_.get(), &watchers_->turnEnd);
  check(uv_async_init(
            loop_.get(), &watchers_->performed,
            [](uv_async_t* watcher) { static_cast<EventLoop*>(watcher->data)->performPending(); }),
        "the event loop");
  watchers_->timer.data = watchers_->turnEnd.data = watchers_->performed.data = this;
  uv_prepare_start(&watchers_->turnEnd, [](uv_prepare_t* watcher) {
    static_cast<EventLoop*>(watcher->data)->endTurn();
  });
}

EventLoop::~EventLoop() {
  cancelAllTimers();
  const auto close = [](uv_handle_t* handle, void*) {
    if (uv_is_closing(handle) == 0) uv_close(handle, nullptr);
  };
  uv_walk(loop_.get(), close, nullptr);
  // Stopped outside run(), it ends its next run at once.
  while (uv_run(loop_.get(), UV_RUN_DEFAULT) != 0) {
  }
  uv_loop_close(loop_.get());
}

double EventLoop::seconds() {
  uv_update_time(loop_.get());
  return static_cast<double>(uv_now(loop_.get())) / 1000;
}

void EventLoop::wakeAfter(std::optional<std::chrono::milliseconds> wait) {
  if (!wait) {
    uv_timer_stop(&watchers_->timer);
    return;
  }
  uv_update_time(loop_.get());
  uv_timer_start(
      &watchers_->timer,
      [](uv_timer_t* timer) { static_cast<EventLoop*>(timer->data)->fireTimers(); },
      static_cast<std::uint64_t>(wait->count()), 0);
}

IoRunLoop::WatchId EventLoop::watch(int descriptor, IoRunLoop::Readiness awaited,
                                    std::function<void(IoRunLoop::Readiness)> action) {
  const int events = (awaited.readable ? UV_READABLE : 0) | (awaited.writable ? UV_WRITABLE : 0);
  std::unique_ptr<Watchers::Descriptor> watcher(
      new Watchers::Descriptor{this, events, std::move(action)});
  check(uv_poll_init(loop_.get(), &watcher->handle, descriptor), kInput);
  watcher->handle.data = watcher.get();
  const WatchId id = ++watchers_->lastWatch;
  Watchers::Descriptor& started = *watcher;
  watchers_->descriptors.emplace(id, std::move(watcher));
  started.start();
  return id;
}

void EventLoop::unwatch(WatchId watch) {
  auto ended = watchers_->descriptors.extract(watch);
  if (!ended) return;
  Watchers::Descriptor* const watcher = ended.mapped().release();
  uv_close(watcher->asHandle(),
           [](uv_handle_t* handle) { delete static_cast<Watchers::Descriptor*>(handle->data); });
}

void EventLoop::wake() { uv_async_send(&watchers_->performed); }

void EventLoop::onInput(int descriptor, Handler readable, Handler gone) {
  std::unique_ptr<Watchers::Input> input(
      new Watchers::Input{InputReadiness(descriptor), this, std::move(readable), std::move(gone)});
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

void EventLoop::raiseDefault(int signal) {
  for (const auto& watcher : watchers_->signals) {
    if (watcher->number != signal) continue;
    uv_signal_stop(&watcher->handle);  // which leaves the default
    std::raise(signal);
    watcher->start();
  }
}

void EventLoop::runUntilStopped() { uv_run(loop_.get(), UV_RUN_DEFAULT); }

void EventLoop::stop() { uv_stop(loop_.get()); }

}  // namespace wayfell
