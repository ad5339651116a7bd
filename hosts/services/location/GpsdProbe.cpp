#include "hosts/services/location/GpsdProbe.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/services/location/NameLookup.h"

namespace wayfell {
namespace {

constexpr std::string_view kBanner = "{\"class\":\"VERSION\"";

// One of the daemon's addresses, and what has come from there.
class Candidate {
 public:
  explicit Candidate(const SocketAddress& address)
      : socket_(socket(address.get()->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    if (connect(socket_, address.get(), address.size) != 0 && errno != EINPROGRESS) end();
  }
  ~Candidate() { end(); }
  Candidate(Candidate&& other) noexcept
      : socket_(std::exchange(other.socket_, -1)), heard_(std::move(other.heard_)) {}
  Candidate(const Candidate&) = delete;
  Candidate& operator=(const Candidate&) = delete;
  Candidate& operator=(Candidate&&) = delete;

  // -1, which poll passes over, when nothing is to be expected any more.
  int descriptor() const { return socket_; }
  bool isGpsd() const { return heard_ == kBanner; }
  void read() {
    std::array<char, kBanner.size()> buffer{};
    const ssize_t count = recv(socket_, buffer.data(), kBanner.size() - heard_.size(), 0);
    if (count > 0) heard_.append(buffer.data(), static_cast<std::size_t>(count));
    const bool isOther = kBanner.substr(0, heard_.size()) != heard_;
    if (count == 0 || isOther || (count < 0 && errno != EAGAIN && errno != EINTR)) end();
  }

 private:
  void end() {
    if (socket_ >= 0) close(socket_);
    socket_ = -1;
  }

  int socket_;
  std::string heard_;
};

}  // namespace

bool gpsdAnswers(const GpsdAddress& address, std::chrono::milliseconds longest) {
  using std::chrono::steady_clock;
  std::vector<Candidate> candidates;
  for (const SocketAddress& each : lookUp(address).addresses) candidates.emplace_back(each);
  const auto end = steady_clock::now() + longest;
  for (;;) {
    std::vector<pollfd> awaited;
    bool any = false;
    for (const Candidate& each : candidates) {
      awaited.push_back({each.descriptor(), POLLIN, 0});
      any = any || each.descriptor() >= 0;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now());
    if (!any || left.count() <= 0) return false;
    poll(awaited.data(), awaited.size(), static_cast<int>(left.count()));
    for (std::size_t i = 0; i < awaited.size(); ++i) {
      if (awaited[i].revents != 0) candidates[i].read();
      if (candidates[i].isGpsd()) return true;
    }
  }
}

}  // namespace wayfell
