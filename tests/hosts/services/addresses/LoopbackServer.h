// An HTTP server on the loopback, on the same run loop as what asks it: whoever blocks the loop
// gets no answer.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

class LoopbackServer {
 public:
  /// Bytes sent for each request, as they are.
  std::string reply;
  /// Sends that many bytes at a time, one piece for each tick of 10 ms; 0 is all at once.
  std::size_t piece = 0;
  bool closesAfterwards = true;

  /// The heads of all requests, from the first line to the blank one.
  std::vector<std::string> requests;

  explicit LoopbackServer(IoRunLoop& loop)
      : loop_(loop), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, any, size) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, any, &size) != 0) {
      throw std::runtime_error("no loopback");
    }
    port_ = ntohs(address.sin_port);
    watch_ = loop_.watch(listener_, {.readable = true}, [this](auto) { accept(); });
    tick_ = loop_.scheduleTimer(0.01, true, [this] {
      for (auto& [descriptor, connection] : connections_) connection.allowed += piece;
      sendAll();
    });
  }
  ~LoopbackServer() {
    loop_.cancelTimer(tick_);
    loop_.unwatch(watch_);
    close(listener_);
    while (!connections_.empty()) end(connections_.begin()->first);
  }
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  std::string url() const { return "http://127.0.0.1:" + std::to_string(port_); }

  static std::string ok(const std::string& body) { return answer("200 OK", body); }
  static std::string answer(const std::string& status, const std::string& body,
                            const std::string& headers = "") {
    return "HTTP/1.1 " + status + "\r\n" + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
  }

 private:
  struct Connection {
    IoRunLoop::WatchId watch = 0;
    std::string received;
    std::string toSend;
    std::size_t allowed = 0;  // bytes of it
    bool asked = false;
  };

  void accept() {
    const int descriptor = ::accept(listener_, nullptr, nullptr);
    if (descriptor < 0) return;
    connections_[descriptor].watch =
        loop_.watch(descriptor, {.readable = true}, [this, descriptor](auto) { read(descriptor); });
  }

  void read(int descriptor) {
    std::array<char, 4096> buffer{};
    const ssize_t count = recv(descriptor, buffer.data(), buffer.size(), 0);
    if (count <= 0) {
      if (count == 0 || errno != EAGAIN) end(descriptor);
      return;
    }
    Connection& connection = connections_[descriptor];
    connection.received.append(buffer.data(), static_cast<std::size_t>(count));
    if (connection.received.find("\r\n\r\n") == std::string::npos) return;
    requests.push_back(connection.received);
    connection.received.clear();
    connection.asked = true;
    connection.toSend = reply;
    connection.allowed = piece == 0 ? reply.size() : piece;
    sendAll();
  }

  void sendAll() {
    std::vector<int> done;
    for (auto& [descriptor, connection] : connections_) {
      const std::size_t size = std::min(connection.allowed, connection.toSend.size());
      const ssize_t sent = send(descriptor, connection.toSend.data(), size, MSG_NOSIGNAL);
      if (sent > 0) {
        connection.toSend.erase(0, static_cast<std::size_t>(sent));
        connection.allowed -= static_cast<std::size_t>(sent);
      }
      const bool broken = sent < 0 && errno != EAGAIN;
      if (broken || (connection.asked && connection.toSend.empty() && closesAfterwards)) {
        done.push_back(descriptor);
      }
    }
    for (const int descriptor : done) end(descriptor);
  }

  void end(int descriptor) {
    loop_.unwatch(connections_[descriptor].watch);
    connections_.erase(descriptor);
    close(descriptor);
  }

  IoRunLoop& loop_;
  int listener_;
  int port_ = 0;
  IoRunLoop::WatchId watch_ = 0;
  RunLoop::TimerId tick_ = 0;
  std::map<int, Connection> connections_;
};

/// An answer of a server, with just what matters.
inline constexpr const char* kParis =
    R"({"licence":"Data © OpenStreetMap contributors","address":{"house_number":"10",)"
    R"("road":"Rue Daru","city":"Paris","state":"Île-de-France","country_code":"fr"}})";

}  // namespace wayfell
