// What receivers and programs really write, as excerpts in corpus/, each with a line in
// corpus/cases.jsonl: what it stands for, and what a replay of it ends with, worked by hand.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "hosts/replay/GpxWaypoints.h"
#include "hosts/replay/RecordingChoice.h"
#include "hosts/text/InputError.h"
#include "hosts/text/IsoTime.h"

namespace wayfell {
namespace {

using nlohmann::json;

const std::filesystem::path kCorpus = WAYFELL_SOURCES "/tests/hosts/replay/corpus";

void addFix(const Event& event, json& end) {
  const auto* const located = std::get_if<event::Locate>(&event.action);
  if (located == nullptr) return;
  const CLLocation& fix = located->fixes.at(0);
  if (!end.contains("starts")) end["starts"] = isoTimeOf({event.t});
  end["fixes"] = end.value("fixes", 0) + 1;
  end["ends"] = isoTimeOf({event.t});
  end["speed"] = fix.speed;
  end["course"] = fix.course;
  end["accuracy"] = fix.horizontalAccuracy;
}

void addPanel(const WidgetInterface& interface, json& end) {
  const auto& views = interface.views();
  end["position"] = views.userCoordinateLabel.text().value_or("");
  end["altitude"] = views.altitudeLabel.text().value_or("");
  end["heading"] = views.headingLabel.text().value_or("");
}

std::string bytesIn(const std::string& file) {
  const InputFile open(kCorpus / file);
  return InputBytes(bytesOfFile(open.descriptor())).readAll(kLongestGpxFile);
}

// All that a case may say of the end.
json endOf(const std::string& file) {
  json end = {{"fixes", 0}};
  try {
    ReplayedWidget widget;
    const ChosenRecording chosen({.file = kCorpus / file});
    widget.apply(event::WriteSuite{settingOfText("units=1")});
    while (const auto event = (*chosen).next()) {
      widget.host().loop.advanceTo({event->t});
      widget.apply(event->action);
      addFix(*event, end);
    }
    addPanel(widget.interface(), end);
    if (const auto note = (*chosen).note()) end["note"] = *note;
    if (file.ends_with(".gpx")) {
      const auto waypoints = waypointsOfGpx(bytesIn(file));
      if (!waypoints.empty()) end["waypoint"] = waypoints.front().name;
    }
  } catch (const InputError& error) {
    end["error"] = error.what();
  }
  return end;
}

std::vector<json> cases() {
  std::ifstream file(kCorpus / "cases.jsonl");
  std::vector<json> cases;
  for (std::string line; std::getline(file, line);) cases.push_back(json::parse(line));
  return cases;
}

// All but what a case leaves out; a note or an error may not be left out.
void expectEnd(const json& end, json expected) {
  SCOPED_TRACE(expected.dump() + "\n" + end.dump());
  for (const char* trouble : {"note", "error"}) expected.emplace(trouble, nullptr);
  expected.erase("file");
  expected.erase("is");
  for (const auto& [name, value] : expected.items()) {
    EXPECT_EQ(end.value(name, json()), value) << name;
  }
}

TEST(Corpus, IsReplayedToTheEndThatWasWorkedByHand) {
  std::set<std::string> tried{"cases.jsonl"};
  for (const json& expected : cases()) {
    expectEnd(endOf(expected["file"]), expected);
    tried.insert(expected["file"]);
  }
  std::set<std::string> files;
  for (const auto& file : std::filesystem::directory_iterator(kCorpus)) {
    files.insert(file.path().filename());
  }
  EXPECT_EQ(tried, files);
}

}  // namespace
}  // namespace wayfell
