// What a live scene makes of its source, on a clock of the test's; and from a source's name to a
// scene that shows it.
#include <gtest/gtest.h>

#include "hosts/live/AutoStage.h"
#include "hosts/live/LiveScene.h"
#include "hosts/live/OpenSource.h"
#include "hosts/loop/uv/EventLoop.h"
#include "hosts/scene/ViewWatch.h"
#include "hosts/services/location/GpsdLink.h"
#include "hosts/text/InputError.h"
#include "platform/SimulatedHost.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

// Stands still, and knows its timers.
class StillLoop : public IoRunLoop {
 public:
  SimulatedRunLoop timers;

  TimerId scheduleTimer(double interval, bool repeats, std::function<void()> action) override {
    return timers.scheduleTimer(interval, repeats, std::move(action));
  }
  void cancelTimer(TimerId timer) override { timers.cancelTimer(timer); }
  WatchId watch(int, Readiness, std::function<void(Readiness)>) override { return 0; }
  void unwatch(WatchId) override {}
  void perform(std::function<void()>) override {}
  std::uint64_t turn() const override { return 1; }
};

// Files are in a folder of the test's, and the source says what the test says.
class Live : public testing::Test {
 protected:
  Live() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
      setenv(name, folder.path().c_str(), 1);
    }
    setenv("LC_ALL", "C", 1);
  }

  SourceStatus status() {
    return {[] { return "what the test says"; }, [this] { return trouble; },
            [this] { return hasCompass; }};
  }

  Folder folder;
  std::string trouble;
  bool hasCompass = false;
  std::vector<std::string> warnings;
  Warn warn = [this](const std::string& sentence) { warnings.push_back(sentence); };
};

class LiveScenes : public Live {
 protected:
  // A fix on the equator, with no speed.
  void report(double longitude, double course = -1) {
    source.deliver(
        std::vector{CLLocation{{0, longitude}, 100, 5, 5, -1, course, systemClock().now()}});
    scene->settle();
  }
  std::string heading() const {
    return scene->interface().views().headingLabel.text().value_or("");
  }

  std::string position() const {
    return scene->interface().views().userCoordinateLabel.text().value_or("");
  }

  StillLoop loop;
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
  report(1);
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
  report(2);
  EXPECT_EQ(scene->lines().warning, "no contact");
  scene->disappear();
  EXPECT_EQ(scene->lines().warning, "");
}

TEST_F(LiveScenes, TellWhyWhatComesIsNotShown) {
  // From which on a fix is old.
  const auto come = [this](double horizontal, double vertical, double altitude = 100) {
    now += 6s;
    source.deliver(std::vector{
        CLLocation{{0, 1}, altitude, horizontal, vertical, -1, -1, systemClock().now()}});
    scene->settle();
  };
  const std::tuple<double, double, const char*> cases[] = {
      {25000, -1, "fix too inaccurate: 25000 m"},
      {200.2, 5, "fix too inaccurate: 201 m"},  // better ones teach what to expect
      {50, 70, ""},
      {50, 80, "fix 6 s old, fix too inaccurate in height: 80 m"},  // the mean is 75 m now
      {900, 5, "fix 12 s old, fix too inaccurate: 900 m"},
  };
  for (const auto& [horizontal, vertical, warning] : cases) {
    come(horizontal, vertical);
    EXPECT_EQ(scene->lines().warning, warning);
  }
  // What the source says comes first.
  trouble = "no contact";
  EXPECT_EQ(scene->lines().warning, "fix 12 s old, no contact");
  trouble = "";
  come(5, -1, 0);
  EXPECT_EQ(scene->lines().warning, "no altitude");
  come(5, -1, 408);  // kept by the source
  EXPECT_EQ(scene->lines().warning, "");
}

// Its weeks have run over, it is put right, and it falls back: the panel follows, as fresh as ever.
TEST_F(LiveScenes, AreNotMisledByAReceiversDate) {
  constexpr double kWeeks = 1024 * 7 * 86400.0;
  const double start = systemClock().now().timeIntervalSinceReferenceDate;
  int second = 0;
  for (const double wrong : {0.0, kWeeks, kWeeks, 0.0, 0.0, kWeeks, kWeeks}) {
    now += 6s;
    const double longitude = ++second * 0.0001;
    source.deliver(
        std::vector{CLLocation{{0, longitude}, 100, 5, 5, 11, 90, {start - wrong + second}}});
    scene->settle();
    EXPECT_EQ(scene->controller().currentLocation->coordinate.longitude, longitude);
    EXPECT_EQ(scene->lines().warning, "");
  }
}

// c goes from what there is to the other one for good, and back.
TEST_F(LiveScenes, ShowTheCompassOrTheCourse) {
  report(1, 45);
  EXPECT_EQ(heading(), "45°");
  EXPECT_EQ(scene->lines().state, "course");
  source.deliver(CLHeading{-1, 88, 5});  // from which on the source knows that it has a compass
  hasCompass = true;
  scene->settle();
  EXPECT_EQ(scene->lines().state, "course");  // while the true heading is not known
  source.deliver(CLHeading{90, 88, 5});
  scene->settle();
  EXPECT_EQ(heading(), "90°");
  EXPECT_EQ(scene->lines().state, "compass, true");

  scene->act({PanelAction::chooseHeading});
  EXPECT_EQ(scene->takeNews(), "heading: the course, always");
  EXPECT_EQ(scene->takeNews(), std::nullopt);
  EXPECT_EQ(heading(), "45°");
  report(2, 180);
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
  report(1);
  EXPECT_EQ(scene->controller().currentLocation, std::nullopt);
  scene->appear();
  report(2);
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

// A fix that is handed over is as old as it was, and so is its course.
TEST_F(LiveScenes, AreFreshWhenTheyAppearAgainButForTheLastFix) {
  hasCompass = true;
  scene->settle();
  report(1, 45);
  source.deliver(CLHeading{90, 88, 5});
  const ViewWatch watch(*scene);
  scene->act({PanelAction::showOrHide});
  now += 61s;
  scene->act({PanelAction::showOrHide});
  EXPECT_EQ(position(), "0.00000°S, 1.00000°E");
  EXPECT_EQ(scene->lines().warning, "fix 1 min old");
  EXPECT_EQ(heading(), "");
  source.deliver(CLHeading{180, 178, 5});
  EXPECT_EQ(heading(), "180°");
  EXPECT_EQ(scene->freshness(), (Freshness{.fix = false, .heading = true, .moving = false}));

  scene->act({PanelAction::chooseHeading});
  scene->disappear();
  scene->appear();
  EXPECT_EQ(heading(), "45°");
  EXPECT_EQ(scene->freshness(), (Freshness{.fix = false, .heading = true, .moving = false}));
  report(2);
  EXPECT_EQ(heading(), "45°");
  EXPECT_EQ(scene->freshness(), (Freshness{.fix = true, .heading = false, .moving = false}));
}

// The widget's ticks of 0.5, 2 and 5 s are of one appearance, and a hidden one has none.
TEST_F(LiveScenes, HaveTheTimersOfOneAppearance) {
  const auto timers = [this] {
    std::vector<std::size_t> counts;
    for (const double seconds : {0.5, 2.0, 5.0, 7.0}) {
      counts.push_back(loop.timers.timersWithInterval(seconds));
    }
    return counts;
  };
  for (int i = 0; i < 50; ++i) {
    scene->disappear();
    EXPECT_EQ(timers(), (std::vector<std::size_t>{0, 0, 0, 0}));
    scene->appear();
    report(i);
    report(i + 0.5);  // which the wait of 7 s for a standstill begins with
    loop.timers.advanceBy(i % 2 * 10);
  }
  EXPECT_EQ(timers(), (std::vector<std::size_t>{1, 1, 1, 0}));
}

class OpenedSources : public Live {
 protected:
  EventLoop loop;

  LiveKind kind(const std::string& name, bool isThere) {
    return {.name = name,
            .forms = {{name, "where " + name + "s are"}},
            .takes = [](const std::string& where) { return where.empty(); },
            .open =
                [this](HostRunLoop& /*loop*/, const std::string& /*where*/) {
                  return LiveSource{std::make_unique<SimulatedLocationSource>(), status()};
                },
            .called = [name] { return name; },
            .isThere = [isThere](HostRunLoop& /*loop*/) { return isThere; }};
  }
  OpenedSource open(const Sources& sources, const std::string& source) {
    SourceWishes wishes;
    wishes.source = *sources.choiceOf(source);
    return openSource(loop, sources, wishes, warn);
  }
};

TEST_F(OpenedSources, AreTheFirstThatIsThereOrElseTheDemo) {
  if (gpsdAnswers(loop, {})) GTEST_SKIP() << "this machine has a gpsd";
  const Sources boat({kind("kite", false), kind("boat", true)});
  const OpenedSource live = open(boat, "auto");
  EXPECT_EQ(live.missing, "no gpsd at localhost:2947 and no kite: positions come from boat");
  EXPECT_EQ(live.stage->scene().lines().kind, Scene::Kind::live);
  EXPECT_EQ(live.stage->player(), nullptr);
}

TEST_F(OpenedSources, GiveWayToThePreferredOneWhenItComes) {
  for (const bool onScreen : {true, false}) {
    std::function<void()> come;
    LiveKind kite = kind("kite", false);
    kite.await = [&come](HostRunLoop& /*loop*/, std::function<void()> isThere) {
      come = std::move(isThere);
      return std::make_shared<int>();
    };
    AutoStage stage(loop, kite, open(Sources(), "demo").stage,
                    [this, &kite] { return open(Sources({kite}), "kite").stage; });
    Scene& scene = stage.scene();
    ViewWatch watch(scene);
    stage.player()->advanceToFirstFix();
    scene.act({PanelAction::switchLayout});
    EXPECT_TRUE(stage.fix());
    EXPECT_EQ(scene.lines().kind, Scene::Kind::demo);
    EXPECT_EQ(scene.lines().warning, "demo: not your position");
    if (!onScreen) scene.disappear();
    watch.takeChanged();

    come();
    come();
    EXPECT_TRUE(stage.player());  // whoever calls is not ended by it
    loop.perform([this] { loop.stop(); });
    loop.run();
    EXPECT_TRUE(watch.takeChanged());
    EXPECT_EQ(scene.takeNews(), "kite is there now: positions are its");
    EXPECT_EQ(scene.lines().kind, Scene::Kind::live);
    EXPECT_EQ(scene.lines().warning, onScreen ? "no fix yet" : "");
    EXPECT_EQ(scene.onScreen(), onScreen);
    EXPECT_FALSE(stage.fix());
    EXPECT_FALSE(stage.player());
    EXPECT_FALSE(isCompact(scene.interface()));  // as the settings on the disk have it
  }
}

TEST_F(OpenedSources, SayWhatTheyAre) {
  const auto gpx = folder / "walk\x1b.gpx";
  putBytes(gpx, R"(<gpx><trk><trkseg><trkpt lat="1" lon="2"/></trkseg></trk></gpx>)");
  struct Case {
    std::string source;
    Scene::Kind kind;
    std::string title;
    std::optional<std::string> note;
  };
  const Case cases[] = {
      {"demo", Scene::Kind::demo, "a walk nobody took", std::nullopt},
      {"replay=" + gpx.string(), Scene::Kind::replay, "walk .gpx",
       "the track has no times: its points are taken one second apart"},
      {"gpsd=127.0.0.1:1", Scene::Kind::live, "gpsd at 127.0.0.1:1", std::nullopt},
  };
  for (const Case& each : cases) {
    const OpenedSource opened = open(Sources(), each.source);
    EXPECT_EQ(opened.stage->scene().lines().kind, each.kind);
    EXPECT_EQ(opened.stage->scene().lines().title, each.title);
    EXPECT_EQ(opened.note, each.note);
    EXPECT_EQ(opened.missing, std::nullopt);
  }
}

TEST_F(OpenedSources, NameTheRecordingThatCannotBeRead) {
  const auto complaint = [this](const std::string& text) {
    putBytes(folder / "bad", text);
    try {
      const OpenedSource opened = open(Sources(), "replay=" + (folder / "bad").string());
      opened.stage->player()->advanceTo(10);
      return opened.stage->fault().value_or("");
    } catch (const InputError& error) {
      return std::string(error.what());
    }
  };
  const std::string name = (folder / "bad").string();
  EXPECT_EQ(complaint(""), name + ": empty");
  EXPECT_EQ(complaint("{\"t\":1,\"appear\":true}\n{\"t\":2,\"fly\":true}"),
            name + ": line 2: fly: unknown event");
}

}  // namespace
}  // namespace wayfell
