// What a live scene makes of its source, on a clock of the test's.
#include "hosts/live/LiveScene.h"

#include "LiveTest.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

class LiveScenes : public Live {
 protected:
  void report(const CLLocation& fix) {
    source.deliver(std::vector{fix});
    scene->settle();
  }
  std::string heading() const {
    return scene->interface().views().headingLabel.text().value_or("");
  }

  SimulatedLocationSource source;
  std::chrono::steady_clock::time_point now{};
  LiveHost host{loop, source, warn};
  std::unique_ptr<LiveScene> scene =
      std::make_unique<LiveScene>(host, status(), [this] { return now; });
};

TEST_F(LiveScenes, TellOfTheSourcesTroubleAndTheFixsAge) {
  struct Case {
    std::chrono::milliseconds passed;
    const char* trouble;
    const char* warning;
  };
  EXPECT_EQ(scene->lines().warning, "no fix yet");
  trouble = "no receiver";
  EXPECT_EQ(scene->lines().warning, "no receiver");
  report(fixAt(1));
  // The age comes first, which is never cut off; a fix of 5 s is fresh.
  const Case cases[] = {{0s, "", ""},
                        {5s, "silent", "silent"},
                        {6s, "", "fix 11 s old"},
                        {1s, "no contact", "fix 12 s old, no contact"}};
  for (const Case& each : cases) {
    now += each.passed;
    trouble = each.trouble;
    scene->settle();
    EXPECT_EQ(scene->lines().warning, each.warning);
  }
  report(fixAt(2));
  EXPECT_EQ(scene->lines().warning, "no contact");
  scene->disappear();
  EXPECT_EQ(scene->lines().warning, "");
}

// c goes from what there is to the other one for good, and back.
TEST_F(LiveScenes, ShowTheCompassOrTheCourse) {
  report(fixAt(1, 45));
  EXPECT_EQ(heading(), "45°");
  EXPECT_EQ(scene->lines().state, "course");
  hasCompass = true;
  scene->settle();
  source.deliver(CLHeading{90, 88, 5});
  EXPECT_EQ(heading(), "90°");
  EXPECT_EQ(scene->lines().state, "compass, true");

  scene->act({PanelAction::chooseHeading});
  EXPECT_EQ(scene->takeNews(), "heading: the course, always");
  EXPECT_EQ(scene->takeNews(), std::nullopt);
  report(fixAt(2, 180));
  source.deliver(CLHeading{91, 89, 5});
  EXPECT_EQ(heading(), "180°");
  scene->act({PanelAction::chooseHeading});
  EXPECT_EQ(scene->takeNews(), "heading: the compass where there is one, else the course");
  EXPECT_EQ(scene->lines().state, "compass, true");

  hasCompass = false;
  scene->act({PanelAction::chooseHeading});
  EXPECT_EQ(scene->takeNews(), "heading: the compass, always");
  EXPECT_EQ(scene->lines().state, "compass, true");
}

TEST_F(LiveScenes, ListenWhileTheyAreOnTheScreen) {
  EXPECT_TRUE(source.updatingLocation());
  scene->disappear();
  EXPECT_FALSE(scene->onScreen());
  EXPECT_FALSE(source.updatingLocation());
  report(fixAt(1));
  EXPECT_EQ(scene->controller().currentLocation, std::nullopt);
  scene->appear();
  report(fixAt(2));
  EXPECT_EQ(scene->controller().currentLocation->coordinate.longitude, 2);
}

TEST_F(LiveScenes, KeepWhatTheUserDoesAndShowWhatOthersWrite) {
  host.sharedDefaults("group.org.wayfell.Wayfell")->set("compassHeading", PropertyValue(1));
  scene->act({PanelAction::switchLayout});
  scene->disappear();
  scene->appear();
  hasCompass = true;
  scene->settle();
  EXPECT_EQ(scene->lines().state, "compass, magnetic");
  Stores others([] { return 1; }, warn);
  const PropertyValue* const hidden =
      others.sharedDefaults("group.org.wayfell.Wayfell")->find("viewHidden");
  ASSERT_NE(hidden, nullptr);
  EXPECT_TRUE(hidden->boolValue());
  EXPECT_TRUE(warnings.empty()) << warnings.front();
}

}  // namespace
}  // namespace wayfell
