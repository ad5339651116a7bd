#include "motion/AccuracyTrack.h"

#include <gtest/gtest.h>

namespace wayfell {
namespace {

CLLocation fix(double horizontalAccuracy, double verticalAccuracy) {
  return {{}, 0, horizontalAccuracy, verticalAccuracy, -1, -1, {}};
}

TEST(AccuracyTrack, AveragesWhateverItIsGivenOverThirty) {
  AccuracyTrack track;
  track.addLocation(fix(5, 8));
  track.addLocation(fix(-1, -1));  // an invalid fix pulls the means down
  EXPECT_EQ(track.averageHorizontalAccuracy(), 2);
  EXPECT_EQ(track.averageVerticalAccuracy(), 3.5);
  for (int i = 0; i <= 30; ++i) track.addLocation(fix(i, 2 * i));
  ASSERT_EQ(track.locations().size(), 30U);
  EXPECT_EQ(track.locations().front().horizontalAccuracy, 30);
  EXPECT_EQ(track.locations().back().horizontalAccuracy, 1);
  EXPECT_EQ(track.horizontalSum(), 465);  // 1 + ... + 30
  EXPECT_EQ(track.averageHorizontalAccuracy(), 15.5);
  EXPECT_EQ(track.averageVerticalAccuracy(), 31);

  track.addLocation(track.locations().back());  // one of its own
  EXPECT_EQ(track.locations().front().horizontalAccuracy, 1);
  EXPECT_EQ(track.horizontalSum(), 465);
}

TEST(AccuracyTrack, GoesOnFromTheSumsAsTheyAre) {
  AccuracyTrack track;
  track.setLocations({31, fix(10, 20)});  // one more than it keeps: it drops one a fix, no more
  track.setHorizontalSum(100);
  track.setVerticalSum(200);
  track.addLocation(fix(1, 2));
  EXPECT_EQ(track.locations().size(), 31U);
  EXPECT_EQ(track.averageHorizontalAccuracy(), 91.0 / 31);
  EXPECT_EQ(track.averageVerticalAccuracy(), 182.0 / 31);
}

}  // namespace
}  // namespace wayfell
