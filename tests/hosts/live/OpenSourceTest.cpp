// From a source's name to a scene that shows it.
#include "hosts/live/OpenSource.h"

#include "LiveTest.h"
#include "hosts/services/location/GpsdProbe.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

class OpenedSources : public Live {
 protected:
  LiveKind kind(const std::string& name, bool isThere) {
    return {.name = name,
            .forms = {{name, "where " + name + "s are"}},
            .takes = [](const std::string& where) { return where.empty(); },
            .open =
                [this](HostRunLoop& /*loop*/, const std::string& /*where*/) {
                  return LiveSource{std::make_unique<SimulatedLocationSource>(), status()};
                },
            .called = name,
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
  EXPECT_EQ(live.missing, "no gpsd at localhost:2947 and no kite: positions are boat's");
  EXPECT_EQ(live.stage->scene().lines().badge, "LIVE");
  EXPECT_EQ(live.stage->player(), nullptr);
}

TEST_F(OpenedSources, SayWhatTheyAre) {
  const auto gpx = folder / "walk\x1b.gpx";
  putBytes(gpx, R"(<gpx><trk><trkseg><trkpt lat="1" lon="2"/></trkseg></trk></gpx>)");
  struct Case {
    std::string source;
    const char* badge;
    std::string title;
    std::optional<std::string> note;
  };
  const Case cases[] = {
      {"demo", "DEMO", "a walk nobody took", std::nullopt},
      {"replay=" + gpx.string(), "REPLAY", "walk .gpx",
       "the track has no times: its points are taken one second apart"},
      {"gpsd=127.0.0.1:1", "LIVE", "gpsd at 127.0.0.1:1", std::nullopt},
  };
  for (const Case& each : cases) {
    const OpenedSource opened = open(Sources(), each.source);
    EXPECT_EQ(opened.stage->scene().lines().badge, each.badge);
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
