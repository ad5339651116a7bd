#include "hosts/replay/Snapshot.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "hosts/settings/SettingJson.h"

namespace wayfell {
namespace {

struct Number {
  std::string_view name;
  double value;
};

// Numbers that are not finite are texts, as those of settings are.
void write(JsonWriter& json, const Number& number) {
  writePlainJson(json.key(number.name), number.value);
}

void writeNumbers(JsonWriter& json, std::initializer_list<Number> numbers) {
  json.beginObject();
  for (const Number& number : numbers) write(json, number);
  json.endObject();
}

void writeLabels(JsonWriter& json, const WidgetInterface& interface) {
  json.beginObject();
  for (const auto& named : interface.named()) {
    if (named.label) json.member(named.name, named.label->text());
  }
  json.endObject();
}

void writeHiddenViews(JsonWriter& json, const WidgetInterface& interface) {
  std::vector<std::string_view> names;
  for (const auto& named : interface.named()) {
    if (named.view->hidden()) names.emplace_back(named.name);
  }
  std::sort(names.begin(), names.end());
  json.beginList();
  for (const std::string_view name : names) json.value(name);
  json.endList();
}

void writeTape(JsonWriter& json, const WidgetInterface& interface) {
  const auto tape = interface.views().leftConstraint.constant();
  if (tape) {
    writePlainJson(json, *tape);
  } else {
    json.value(nullptr);
  }
}

void writeArrow(JsonWriter& json, const WidgetInterface& interface) {
  const auto& arrow = interface.views().compassRotatingView.arrow();
  if (arrow) {
    writeNumbers(json, {{"bearing", arrow->bearing}, {"heading", arrow->heading}});
  } else {
    json.value(nullptr);
  }
}

void writeOpenedURLs(JsonWriter& json, const RecordingUrlOpener& opener) {
  json.beginList();
  for (const auto& url : opener.requests) {
    json.value(url ? std::optional(url->absoluteString()) : std::nullopt);
  }
  json.endList();
}

// Before it is loaded the controller has no velocity manager, and asking for one would start its
// clocks: the figures are then those of a new one.
void writeMotion(JsonWriter& json, const ReplayedWidget& widget) {
  const VelocityManager unstarted;
  const VelocityManager& manager =
      widget.loaded() ? widget.controller().velocityManager() : unstarted;
  writeNumbers(json, {{"averageSpeed", manager.averageSpeed()},
                      {"averageAltitude", manager.averageAltitude()},
                      {"verticalSpeed", manager.verticalSpeed()},
                      {"glideRatio", manager.glideRatio()},
                      {"slope", manager.slope()},
                      {"slopeAngle", manager.slopeAngle()},
                      {"altitudeAscent", manager.altitudeAscent()},
                      {"altitudeDescent", manager.altitudeDescent()}});
}

void writeAccuracy(JsonWriter& json, TodayViewController& controller) {
  const AccuracyTrack& track = controller.accuracyTrack();
  writeNumbers(json, {{"averageHorizontalAccuracy", track.averageHorizontalAccuracy()},
                      {"averageVerticalAccuracy", track.averageVerticalAccuracy()}});
}

}  // namespace

std::string snapshotLine(const ReplayedWidget& widget) {
  const SimulatedHost& host = widget.host();
  const WidgetInterface& interface = widget.interface();
  JsonWriter json;
  json.beginObject();
  write(json, {"t", host.loop.now().timeIntervalSinceReferenceDate});
  write(json, {"height", widget.controller().preferredContentSize().height});
  writeLabels(json.key("labels"), interface);
  writeHiddenViews(json.key("hidden"), interface);
  writeTape(json.key("tape"), interface);
  json.member("segment", interface.views().coordinateControl.selectedSegmentIndex());
  writeArrow(json.key("arrow"), interface);
  write(json, {"button", interface.views().toggleViewButton.transform().rotation});
  writeOpenedURLs(json.key("opened"), host.urls);
  json.member("lookups", host.geocoder.requests());
  json.member("timers",
              static_cast<int>(host.loop.timersWithInterval(TodayViewController::kTickSeconds)));
  writeMotion(json.key("motion"), widget);
  writeAccuracy(json.key("accuracy"), widget.controller());
  writePlainJson(json.key("suite"), host.suite.values());
  writePlainJson(json.key("local"), host.local.values());
  json.endObject();
  return json.text();
}

}  // namespace wayfell
