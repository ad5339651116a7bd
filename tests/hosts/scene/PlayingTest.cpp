// Playing in step with real time, which here is what the test says it is.
#include <gtest/gtest.h>

#include "hosts/replay/Demo.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/scene/Playback.h"
#include "hosts/scene/Player.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

std::string takeSnapshot(ReplayedWidget& widget) {
  const std::string line = snapshotLine(widget);
  widget.host().urls.requests.clear();
  return line;
}

TEST(Player, StandsWhereAReplayWouldStand) {
  std::vector<std::string> replayed;
  {
    ReplayedWidget widget;
    const auto show = [&](ReplayedWidget& shown) {
      replayed.push_back(takeSnapshot(shown));
      return true;
    };
    Replay(7, show, [](double) {}).play(*openRecording(InputBytes(demoBytes())), widget);
  }
  ReplayedWidget widget;
  const auto recording = openRecording(InputBytes(demoBytes()));
  Player player(*recording, widget);
  const double start = player.now();
  std::vector<std::string> played;
  while (!player.ended()) {
    // On the way, at instants at which nothing happens.
    player.advanceTo(start + 7.0 * static_cast<double>(played.size()) + 3.14159);
    player.advanceTo(start + 7.0 * static_cast<double>(played.size() + 1));
    played.push_back(takeSnapshot(widget));
  }
  // The demo lasts 180 times 7 seconds and 0.4 more, of which a replay shows the end.
  ASSERT_EQ(replayed.size(), played.size());
  for (std::size_t i = 0; i < played.size(); ++i) ASSERT_EQ(played[i], replayed[i]) << i;
}

class Playing : public testing::Test {
 protected:
  static constexpr std::string_view kRecording = R"({"t":100,"appear":true}
{"t":110,"disappear":true}
{"t":120.25,"appear":true})";

  ReplayedWidget widget_;
  std::unique_ptr<Recording> recording_ = openRecording(InputBytes(bytesOfText(kRecording)));
  Player player_{*recording_, widget_};
  Playback::Clock::time_point now_{};
};

TEST_F(Playing, FollowsRealTimeAtItsRate) {
  Playback playback(player_, 1, now_);
  EXPECT_EQ(playback.wait(), 500ms);  // the widget's tick
  playback.catchUp(now_ += 250ms);
  EXPECT_EQ(player_.now(), 100.25);
  EXPECT_EQ(playback.wait(), 250ms);
  playback.faster();
  EXPECT_EQ(playback.rate(), 2);
  EXPECT_EQ(playback.wait(), 125ms);
  playback.catchUp(now_ += 125ms);
  EXPECT_EQ(player_.now(), 100.5);
  for (int i = 0; i < 20; ++i) playback.faster();
  EXPECT_EQ(playback.rate(), Playback::kFastest);
  EXPECT_EQ(playback.wait(), 30ms);  // not at every tick
  for (int i = 0; i < 20; ++i) playback.slower();
  EXPECT_EQ(playback.rate(), Playback::kSlowest);
}

TEST_F(Playing, PausesAndSteps) {
  Playback playback(player_, 0, now_);
  EXPECT_TRUE(playback.paused());
  EXPECT_EQ(playback.rate(), 1);
  EXPECT_EQ(playback.wait(), std::nullopt);
  playback.catchUp(now_ += 1h);
  EXPECT_EQ(player_.now(), 100);
  playback.step();
  EXPECT_EQ(player_.now(), 101);
  playback.togglePause();
  playback.catchUp(now_ += 250ms);
  EXPECT_EQ(player_.now(), 101.25);
}

TEST_F(Playing, DoesNotCatchUpWithAStop) {
  Playback playback(player_, 1, now_);
  EXPECT_EQ(playback.wait(), 500ms);
  playback.catchUp(now_ += 1h);  // unforeseen, such as by SIGSTOP
  EXPECT_DOUBLE_EQ(player_.now(), 101.5);
  playback.wait();
  playback.skipTo(now_ += 1h);  // foreseen
  playback.catchUp(now_ += 100ms);
  EXPECT_DOUBLE_EQ(player_.now(), 101.6);
}

TEST_F(Playing, EndsWithTheLastEvent) {
  Playback playback(player_, 1000, now_);
  EXPECT_TRUE(player_.onScreen());
  playback.catchUp(now_ += 15ms);
  EXPECT_FALSE(player_.onScreen());
  playback.catchUp(now_ += 1s);
  EXPECT_TRUE(player_.onScreen());
  EXPECT_TRUE(player_.ended());
  EXPECT_EQ(player_.elapsed(), 20.25);
  EXPECT_EQ(playback.wait(), std::nullopt);
}

TEST(Player, KeepsWhatCameBeforeAFault) {
  ReplayedWidget widget;
  const auto recording = openRecording(InputBytes(bytesOfText(R"({"t":1,"appear":true}
{"t":2,"nonsense":true})")));
  Player player(*recording, widget);
  player.advanceTo(5);
  EXPECT_TRUE(player.ended());
  EXPECT_TRUE(player.onScreen());
  EXPECT_EQ(player.elapsed(), 0);
  EXPECT_EQ(player.fault(), "line 2: nonsense: unknown event");
}

}  // namespace
}  // namespace wayfell
