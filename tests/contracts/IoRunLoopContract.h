// What every run loop with descriptors must do, on real descriptors and its own real clock; nothing
// here depends on how long things take. To be instantiated with the loops of each host:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Terminal, IoRunLoops, EventLoop);
#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

template <class Loop>
class IoRunLoops : public testing::Test {};
TYPED_TEST_SUITE_P(IoRunLoops);

struct SocketPair {
  SocketPair() { socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()); }
  ~SocketPair() {
    for (const int end : ends) close(end);
  }
  std::array<int, 2> ends{};
};

TYPED_TEST_P(IoRunLoops, FiresTimersInOrderOfTimeThenOfCreation) {
  TypeParam loop;
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

TYPED_TEST_P(IoRunLoops, TellsWhatADescriptorIsReadyFor) {
  TypeParam loop;
  const SocketPair pair;
  std::string log;
  loop.watch(pair.ends[0], {.readable = true, .writable = true}, [&](IoRunLoop::Readiness ready) {
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

TYPED_TEST_P(IoRunLoops, AnActionMayEndItsWatchAndBeginAnother) {
  TypeParam loop;
  const SocketPair pair;
  ASSERT_EQ(write(pair.ends[1], "x", 1), 1);
  std::string log;
  IoRunLoop::WatchId first = 0;
  first = loop.watch(pair.ends[0], {.readable = true}, [&](IoRunLoop::Readiness) {
    log += '1';
    loop.unwatch(first);
    loop.watch(pair.ends[0], {.readable = true}, [&](IoRunLoop::Readiness) {
      log += '2';
      loop.stop();
    });
  });
  loop.run();
  EXPECT_EQ(log, "12");
}

TYPED_TEST_P(IoRunLoops, WhatOneWakeUpBringsIsOneTurn) {
  TypeParam loop;
  std::vector<std::uint64_t> turns;
  const auto note = [&] { turns.push_back(loop.turn()); };
  loop.perform(note);
  loop.perform([&] {
    note();
    loop.scheduleTimer(0.01, false, [&] {
      note();
      loop.stop();
    });
  });
  loop.run();
  ASSERT_EQ(turns.size(), 3U);
  EXPECT_EQ(turns[0], turns[1]);
  EXPECT_LT(turns[1], turns[2]);
}

TYPED_TEST_P(IoRunLoops, PassesOnWhatAHandlerThrows) {
  TypeParam loop;
  loop.scheduleTimer(0, false, [] { throw std::runtime_error("it"); });
  EXPECT_THROW(loop.run(), std::runtime_error);
}

TYPED_TEST_P(IoRunLoops, WhatIsCancelledOrUnwatchedIsReleased) {
  TypeParam loop;
  const SocketPair pair;
  const auto held = std::make_shared<int>();
  const auto timer = loop.scheduleTimer(1000, true, [held] {});
  const auto watch = loop.watch(pair.ends[0], {.readable = true}, [held](IoRunLoop::Readiness) {});
  loop.cancelTimer(timer);
  loop.unwatch(watch);
  loop.perform([&] { loop.stop(); });
  loop.run();
  EXPECT_EQ(held.use_count(), 1);
}

TYPED_TEST_P(IoRunLoops, RefusesWhatCannotBeWaitedFor) {
  TypeParam loop;
  const auto ignore = [](IoRunLoop::Readiness) {};
  EXPECT_THROW(loop.watch(-1, {.readable = true}, ignore), std::system_error);
  std::FILE* const file = std::tmpfile();
  EXPECT_THROW(loop.watch(fileno(file), {.readable = true}, ignore), std::system_error);
  std::fclose(file);
}

REGISTER_TYPED_TEST_SUITE_P(IoRunLoops, FiresTimersInOrderOfTimeThenOfCreation,
                            TellsWhatADescriptorIsReadyFor, AnActionMayEndItsWatchAndBeginAnother,
                            WhatOneWakeUpBringsIsOneTurn, PassesOnWhatAHandlerThrows,
                            WhatIsCancelledOrUnwatchedIsReleased, RefusesWhatCannotBeWaitedFor);

}  // namespace wayfell
