// The terminal's run loop on real descriptors and its own real clock; nothing here depends on how
// long things take.
#include "hosts/terminal/EventLoop.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>
#include <thread>

namespace wayfell {
namespace {

struct SocketPair {
  SocketPair() { socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()); }
  ~SocketPair() {
    for (const int end : ends) close(end);
  }
  std::array<int, 2> ends{};
};

TEST(EventLoop, FiresTimersInOrderOfTimeThenOfCreation) {
  EventLoop loop;
  std::string log;
  loop.scheduleTimer(0.04, false, [&] { log += 'd'; });
  loop.scheduleTimer(0.02, true, [&] {
    log += 'b';
    if (log.size() > 5) loop.stop();
  });
  const auto never = loop.scheduleTimer(0.01, true, [&] { log += 'x'; });
  loop.scheduleTimer(0, false, [&] {
    log += 'a';
    loop.cancelTimer(never);
  });
  loop.run();
  // Due at one time, as both times are sums of the same: the one that was created first.
  EXPECT_EQ(log.substr(0, 4), "abdb");
  EXPECT_EQ(log.find('x'), std::string::npos);
}

TEST(EventLoop, TellsWhatADescriptorIsReadyFor) {
  EventLoop loop;
  const SocketPair pair;
  std::string log;
  loop.watch(pair.ends[0], {.readable = true, .writable = true}, [&](EventLoop::Readiness ready) {
    if (ready.writable && log.empty()) {
      log += 'w';
      ASSERT_EQ(write(pair.ends[1], "x", 1), 1);
    } else if (ready.readable) {
      log += 'r';
      loop.stop();
    }
  });
  loop.run();
  EXPECT_EQ(log, "wr");
}

TEST(EventLoop, AnActionMayEndItsWatchAndBeginAnother) {
  EventLoop loop;
  const SocketPair pair;
  ASSERT_EQ(write(pair.ends[1], "x", 1), 1);
  std::string log;
  EventLoop::WatchId first = 0;
  first = loop.watch(pair.ends[0], {.readable = true}, [&](EventLoop::Readiness) {
    log += '1';
    loop.unwatch(first);
    loop.watch(pair.ends[0], {.readable = true}, [&](EventLoop::Readiness) {
      log += '2';
      loop.stop();
    });
  });
  loop.run();
  EXPECT_EQ(log, "12");
}

// A connection to a port that nobody listens on.
TEST(EventLoop, AFailedConnectionIsReady) {
  const int reserved = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  ASSERT_EQ(bind(reserved, reinterpret_cast<sockaddr*>(&address), size), 0);
  getsockname(reserved, reinterpret_cast<sockaddr*>(&address), &size);

  EventLoop loop;
  const int connection = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
  connect(connection, reinterpret_cast<sockaddr*>(&address), size);
  int calls = 0;
  const auto watch = loop.watch(connection, {.writable = true}, [&](EventLoop::Readiness ready) {
    EXPECT_TRUE(ready.writable);
    if (++calls == 2) loop.stop();  // and stays so
  });
  loop.run();
  loop.unwatch(watch);
  close(connection);
  close(reserved);
  EXPECT_EQ(calls, 2);
}

TEST(EventLoop, OtherThreadsMayHaveItPerform) {
  EventLoop loop;
  std::thread::id performer;
  std::thread other([&] {
    loop.perform([&] {
      performer = std::this_thread::get_id();
      loop.stop();
    });
  });
  loop.run();
  other.join();
  EXPECT_EQ(performer, std::this_thread::get_id());
}

TEST(EventLoop, WhatOneWakeUpBringsIsOneTurn) {
  EventLoop loop;
  std::vector<std::uint64_t> turns;
  for (int i = 0; i < 2; ++i) {
    loop.scheduleTimer(0.005, true, [&] { turns.push_back(loop.turn()); });
  }
  loop.scheduleTimer(0.03, false, [&] { loop.stop(); });
  loop.run();
  ASSERT_GE(turns.size(), 4U);
  for (std::size_t i = 0; i + 1 < turns.size(); i += 2) EXPECT_EQ(turns[i], turns[i + 1]);
  EXPECT_LT(turns[0], turns[2]);
}

TEST(EventLoop, PassesOnWhatAHandlerThrows) {
  EventLoop loop;
  loop.scheduleTimer(0, false, [] { throw std::runtime_error("it"); });
  EXPECT_THROW(loop.run(), std::runtime_error);
}

}  // namespace
}  // namespace wayfell
