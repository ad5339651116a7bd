#include "hosts/services/location/GpsdLink.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "hosts/services/location/GpsdNotice.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr std::string_view kWatch = "?WATCH={\"enable\":true,\"json\":true};\n";
constexpr std::string_view kAskVersion = "?VERSION;\n";
constexpr int kMostSilentTicks = 1;

std::string textOf(int error) { return std::generic_category().message(error); }

}  // namespace

GpsdLink::GpsdLink(IoRunLoop& loop, GpsdAddress address, const GpsdIntervals& intervals,
                   Handlers handlers)
    : loop_(loop),
      address_(std::move(address)),
      intervals_(intervals),
      handlers_(std::move(handlers)),
      delay_(intervals.retry) {}

void GpsdLink::open() {
  if (status_ != Status::closed) return;
  delay_.succeeded();
  failure_.clear();
  resolve();
}

void GpsdLink::close() {
  disconnect();
  status_ = Status::closed;
}

void GpsdLink::setStatus(Status status) {
  if (status == status_) return;
  status_ = status;
  handlers_.statusChanged();
}

void GpsdLink::resolve() {
  lookup_ = std::make_unique<NameLookup>(loop_, address_, [this](FoundAddresses found) {
    if (found.first == nullptr) {
      fail(std::move(found.failure));
      return;
    }
    addresses_ = std::move(found.first);
    nextAddress_ = addresses_.get();
    waitForTick();
    connectToNext();
  });
  setStatus(Status::resolving);
}

void GpsdLink::connectToNext() {
  while (nextAddress_ != nullptr) {
    const addrinfo& address = *std::exchange(nextAddress_, nextAddress_->ai_next);
    silentTicks_ = 0;
    socket_ = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket_ >= 0 &&
        (connect(socket_, address.ai_addr, address.ai_addrlen) == 0 || errno == EINPROGRESS)) {
      watch({.writable = true}, [this] { finishConnecting(); });
      setStatus(Status::connecting);
      return;
    }
    failure_ = textOf(errno);
    if (socket_ >= 0) ::close(socket_);
    socket_ = -1;
  }
  fail(failure_);
}

void GpsdLink::finishConnecting() {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket_, SOL_SOCKET, SO_ERROR, &error, &size);
  if (error == 0) {
    greet();
    return;
  }
  failure_ = textOf(error);
  giveUpSocket();
  connectToNext();
}

void GpsdLink::greet() {
  if (!send(kWatch)) return;
  silentTicks_ = 0;
  heard_ = false;
  failure_.clear();
  watch({.readable = true}, [this] { read(); });
  setStatus(Status::open);
}

void GpsdLink::read() {
  std::array<char, 16384> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) {
    fail(count == 0 ? textKey("gpsd has closed the connection") : textOf(errno));
    return;
  }
  lines_.append({buffer.data(), static_cast<std::size_t>(count)});
  const std::size_t connection = connection_;
  while (const auto line = lines_.next()) {
    if (!isGpsdObject(*line)) continue;
    heard_ = true;
    handlers_.lineCame(*line);
    if (connection != connection_) return;
  }
}

bool GpsdLink::send(std::string_view request) {
  const ssize_t count = ::send(socket_, request.data(), request.size(), MSG_NOSIGNAL);
  if (count == static_cast<ssize_t>(request.size())) return true;
  fail(count < 0 ? textOf(errno) : textKey("gpsd takes no requests"));
  return false;
}

// Not a repeating timer: after the machine has slept, what has come is to be read before the next.
void GpsdLink::waitForTick() {
  timer_ = loop_.scheduleTimer(intervals_.tick, false, [this] { tick(); });
}

void GpsdLink::tick() {
  waitForTick();
  if (std::exchange(heard_, false)) {
    silentTicks_ = 0;
  } else {
    ++silentTicks_;
  }
  const bool tooLong = silentTicks_ > kMostSilentTicks;
  if (status_ == Status::connecting) {
    if (!tooLong) return;
    failure_ = textOf(ETIMEDOUT);
    giveUpSocket();
    connectToNext();
  } else if (tooLong) {
    fail(textKey("gpsd does not answer"));
  } else if (silentTicks_ == 0 || send(kAskVersion)) {
    handlers_.ticked();
  }
}

void GpsdLink::watch(IoRunLoop::Readiness awaited, std::function<void()> action) {
  loop_.unwatch(watch_);
  watch_ = loop_.watch(socket_, awaited,
                       [action = std::move(action)](IoRunLoop::Readiness /*ready*/) { action(); });
}

void GpsdLink::giveUpSocket() {
  loop_.unwatch(std::exchange(watch_, 0));
  if (socket_ >= 0) ::close(std::exchange(socket_, -1));
}

void GpsdLink::disconnect() {
  ++connection_;
  lookup_.reset();
  giveUpSocket();
  loop_.cancelTimer(std::exchange(timer_, 0));
  lines_.clear();
}

void GpsdLink::fail(std::string why) {
  disconnect();
  failure_ = std::move(why);
  const std::chrono::duration<double> delay(delay_.afterFailure());
  nextAttempt_ = std::chrono::steady_clock::now() +
                 std::chrono::duration_cast<std::chrono::steady_clock::duration>(delay);
  timer_ = loop_.scheduleTimer(delay.count(), false, [this] { resolve(); });
  setStatus(Status::waiting);
}

bool gpsdAnswers(HostRunLoop& loop, const GpsdAddress& address, double longest) {
  bool answers = false;
  GpsdLink link(loop, address, {},
                {.statusChanged =
                     [&] {
                       if (link.status() == GpsdLink::Status::waiting) loop.stop();
                     },
                 .lineCame =
                     [&](std::string_view /*line*/) {
                       answers = true;
                       loop.stop();
                     },
                 .ticked = [] {}});
  const RunLoop::TimerId end = loop.scheduleTimer(longest, false, [&loop] { loop.stop(); });
  link.open();
  loop.run();
  loop.cancelTimer(end);
  return answers;
}

}  // namespace wayfell
