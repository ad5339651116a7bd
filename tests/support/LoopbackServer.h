// A run loop that runs until something is so, and a server on a loopback port of the same loop.
#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

/// Runs the loop until the condition holds. A test that has waited for half a minute has failed.
template <class Loop>
void runUntil(Loop& loop, const std::function<bool()>& condition) {
  bool late = false;
  const auto deadline = loop.scheduleTimer(30, false, [&] {
    late = true;
    loop.stop();
  });
  loop.onTurnEnd([&] {
    if (condition()) loop.stop();
  });
  loop.run();
  loop.onTurnEnd(nullptr);
  loop.cancelTimer(deadline);
  ASSERT_FALSE(late) << "what was waited for has not happened";
}

/// Listens on 127.0.0.1. It greets each who connects, keeps what they ask, and says what it is
/// told.
class LoopbackServer {
 public:
  explicit LoopbackServer(IoRunLoop& loop, std::string first = "")
      : greeting(std::move(first)), loop_(loop) {
    listen();
  }
  ~LoopbackServer() {
    hangUp();
    stopListening();
  }
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  std::string greeting;
  std::function<std::string(const std::string& request)> answer;
  std::string asked;
  int connections = 0;

  int port() const { return port_; }
  bool isConnected() const { return !clients_.empty(); }
  /// On the same port as before.
  void listen() {
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port_));
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(listener_, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(::listen(listener_, 8), 0);
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    watch_ = loop_.watch(listener_, {.readable = true}, [this](auto) { accept(); });
  }
  void stopListening() {
    if (listener_ < 0) return;
    loop_.unwatch(watch_);
    close(std::exchange(listener_, -1));
  }
  void say(const std::string& text) {
    for (const auto& [client, watch] : clients_) {
      EXPECT_EQ(send(client, text.data(), text.size(), MSG_NOSIGNAL),
                static_cast<ssize_t>(text.size()));
    }
  }
  void hangUp() {
    while (!clients_.empty()) drop(clients_.begin()->first);
  }

 private:
  void accept() {
    const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) return;
    ++connections;
    send(client, greeting.data(), greeting.size(), MSG_NOSIGNAL);
    clients_[client] =
        loop_.watch(client, {.readable = true}, [this, client](auto) { hear(client); });
  }
  void hear(int client) {
    std::array<char, 4096> buffer{};
    const ssize_t count = recv(client, buffer.data(), buffer.size(), 0);
    if (count <= 0) {
      drop(client);
      return;
    }
    const std::string request(buffer.data(), static_cast<std::size_t>(count));
    asked += request;
    if (answer) say(answer(request));
  }
  void drop(int client) {
    loop_.unwatch(clients_.at(client));
    clients_.erase(client);
    close(client);
  }

  IoRunLoop& loop_;
  int listener_ = -1;
  int port_ = 0;
  IoRunLoop::WatchId watch_ = 0;
  std::map<int, IoRunLoop::WatchId> clients_;
};

}  // namespace wayfell
