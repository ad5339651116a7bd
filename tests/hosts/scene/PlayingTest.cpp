// Playing in step with real time, which here is what the test says it is.
#include <gtest/gtest.h>

#include "hosts/replay/Player.h"
#include "hosts/scene/Playback.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

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

TEST(Player, SkipsToASecondBeforeWhatComesNext) {
  ReplayedWidget widget;
  const auto recording = openRecording(InputBytes(bytesOfText(R"({"t":0,"appear":true}
{"t":7200,"disappear":true}
{"t":7210,"appear":true})")));
  Player player(*recording, widget);
  Playback playback(player, 2, {});
  playback.catchUp(Playback::Clock::time_point{} + 1s);
  EXPECT_EQ(player.gap(), 7200);
  EXPECT_EQ(playback.untilNext(), 3599);
  playback.skipGap();
  EXPECT_EQ(player.now(), 7199);
  playback.skipGap();
  playback.step();
  EXPECT_EQ(player.now(), 7200);
  playback.skipGap();  // 10 s can be waited for
  EXPECT_EQ(player.now(), 7200);
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
