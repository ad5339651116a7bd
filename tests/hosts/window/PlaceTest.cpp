// Where the window stands. All values are worked by hand.
#include <gtest/gtest.h>

#include "hosts/window/WindowPlace.h"

namespace wayfell {
namespace {

const QRect kScreen(0, 30, 1000, 770);   // 30 points below a desktop's bar
const QRect kBeside(1000, 0, 800, 600);  // another screen
const QList<QRect> kScreens = {kScreen, kBeside};
constexpr QSize kCompact(359, 100);
constexpr QSize kExpanded(359, 300);

TEST(WindowPlace, OfAnEarlierRunIsAllOnAScreen) {
  const struct {
    QPoint kept, compact, expanded;
  } cases[] = {
      {{100, 200}, {100, 200}, {100, 200}},    // with room to grow
      {{100, 700}, {100, 700}, {100, 500}},    // grows upwards
      {{-50, 0}, {0, 30}, {0, 30}},            // below the bar
      {{700, 300}, {641, 300}, {641, 300}},    // by 59 to the left
      {{900, 300}, {1000, 300}, {1000, 300}},  // by 100 to the right
      {{1500, 590}, {1441, 500}, {1441, 300}},
      {{5000, 5000}, {1441, 500}, {1441, 300}},
  };
  for (const auto& [kept, compact, expanded] : cases) {
    SCOPED_TRACE(testing::Message() << kept.x() << ", " << kept.y());
    const WindowPlace place(kept);
    EXPECT_EQ(place.cornerFor(kCompact, kScreens), compact);
    EXPECT_EQ(place.cornerFor(kExpanded, kScreens), expanded);
    EXPECT_EQ(place.chosen(), kept);
  }
}

TEST(WindowPlace, IsNoneUnlessToldAndTheTopOfWhatIsTooLarge) {
  EXPECT_FALSE(WindowPlace().cornerFor(kCompact, kScreens));
  EXPECT_EQ(WindowPlace(QPoint(100, 400)).cornerFor({2000, 900}, {kScreen}), QPoint(0, 30));
}

TEST(WindowPlace, WhatTheUserPutOffTheScreenStaysThereAndNoMore) {
  WindowPlace place;
  place.put({QPoint(-100, 750), kCompact});  // 50 points below the edge
  EXPECT_EQ(place.cornerFor(kCompact, {kScreen}), QPoint(-100, 750));
  EXPECT_EQ(place.cornerFor(kExpanded, {kScreen}), QPoint(-100, 550));
  place.bringBack();
  EXPECT_EQ(place.cornerFor(kCompact, {kScreen}), QPoint(0, 700));
}

TEST(WindowPlace, AnotherStepsAsideInwards) {
  const struct {
    QPoint kept, stepped;
  } cases[] = {{{100, 100}, {164, 164}},   // down to the right, twice
               {{641, 700}, {577, 436}}};  // up to the left, from where it has grown to
  for (const auto& [kept, stepped] : cases) {
    WindowPlace place(kept);
    place.stepAside(2, kExpanded, {kScreen});
    EXPECT_EQ(place.cornerFor(kExpanded, {kScreen}), stepped);
  }
}

}  // namespace
}  // namespace wayfell
