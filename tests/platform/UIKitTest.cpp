#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/NSURL.h"
#include "platform/UILabel.h"
#include "platform/UIViewController.h"

namespace wayfell {
namespace {

class Watcher : public UIViewObserver {
 public:
  void viewDidChange(UIView&) override { ++changes; }
  void viewDidAnimate(UIView&, const UIViewAnimation& animation) override {
    animations.push_back(animation);
  }
  int changes = 0;
  std::vector<UIViewAnimation> animations;
};

TEST(View, TellsOnlyOfWhatChanges) {
  Watcher watcher;
  UILabel label;
  label.setObserver(&watcher);
  label.setText("12.3 km/h");
  label.setText("12.3 km/h");
  label.setHidden(false);
  EXPECT_EQ(watcher.changes, 1);
  label.setText(std::nullopt);
  label.setHidden(true);
  label.setFont(UIFont::boldSystemFontOfSize(18));
  EXPECT_EQ(watcher.changes, 4);
}

TEST(View, AnimationsAreHandedOverAsData) {
  Watcher watcher;
  UIButton button;
  button.setObserver(&watcher);
  bool completed = false;
  const auto turn = [&](double radians) {
    UIView::animateWithDurationDelayOptionsAnimationsCompletion(
        0.2, 0, kAnimationOptionCurveEaseOut, [&] { button.setTransform({radians}); },
        [&](bool) { completed = true; });
  };
  turn(1.5);
  turn(1.5);  // it stands there already
  ASSERT_EQ(watcher.animations.size(), 1U);
  EXPECT_EQ(watcher.animations[0].duration, 0.2);
  EXPECT_EQ(watcher.animations[0].from.rotation, 0);
  EXPECT_EQ(watcher.animations[0].to.rotation, 1.5);
  EXPECT_EQ(watcher.changes, 0);
  EXPECT_TRUE(completed);
  button.setTransform({0});  // outside of an animation it is a plain change again
  EXPECT_EQ(watcher.changes, 1);
}

// The characters are those of RFC 3986, sections 2.1 to 2.3 and 3.5.
TEST(Url, KeepsToTheGrammar) {
  for (const char* text : {"wayfell://openFromWidget", "wayfell://12_Main_St__IL/44.5/-93.25",
                           "a:b?c=d&e=%C3%A9#f", "x(y)!*';@"}) {
    ASSERT_TRUE(NSURL::URLWithString(text)) << text;
    EXPECT_EQ(NSURL::URLWithString(text)->absoluteString(), text);
  }
  for (const char* text : {"", "a b", "Straße", "–", "a\"b", "<a>", "a%", "a%4", "a%zz", "a#b#c",
                           "a[b]", "a\\b", "a^b", "a\nb"}) {
    EXPECT_FALSE(NSURL::URLWithString(text)) << text;
  }
}

}  // namespace
}  // namespace wayfell
