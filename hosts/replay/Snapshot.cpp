#include "hosts/replay/Snapshot.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <variant>
#include <vector>

namespace wayfell {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kTickSeconds = 0.5;

Json json(double value) {
  if (std::isfinite(value)) return value;
  if (std::isnan(value)) return "nan";
  return value < 0 ? "-inf" : "inf";
}

template <class Value>
Json orNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}

Json json(const PropertyValue& value);
Json json(std::int64_t integer) { return integer; }
Json json(bool boolean) { return boolean; }
Json json(const std::string& text) { return text; }
Json json(NSDate date) { return json(date.timeIntervalSinceReferenceDate); }
Json json(const PropertyValue::Data& data) { return Json::array_t(data.begin(), data.end()); }
Json json(const PropertyValue::List& list) {
  Json result = Json::array();
  for (const PropertyValue& element : list) result.push_back(json(element));
  return result;
}
Json json(const PropertyValue::Dictionary& dictionary) {
  Json result = Json::object();
  for (const auto& [key, value] : dictionary) result[key] = json(value);
  return result;
}
Json json(const PropertyValue& value) {
  return std::visit([](const auto& stored) { return json(stored); }, value.storage());
}

Json labels(const WidgetInterface& interface) {
  Json result = Json::object();
  for (const auto& [name, label] : interface.labels()) {
    result[std::string(name)] = orNull(label->text());
  }
  return result;
}

Json hiddenViews(const WidgetInterface& interface) {
  std::vector<std::string> names;
  for (const auto& [name, view] : interface.views()) {
    if (view->hidden()) names.emplace_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

Json arrow(const WidgetInterface& interface) {
  const auto& arrow = interface.compassRotatingView().arrow();
  if (!arrow) return nullptr;
  return {{"bearing", json(arrow->bearing)}, {"heading", json(arrow->heading)}};
}

Json openedURLs(const RecordingUrlOpener& opener) {
  Json result = Json::array();
  for (const auto& url : opener.requests) {
    result.push_back(url ? Json(url->absoluteString()) : Json(nullptr));
  }
  return result;
}

// Before it is loaded the controller has no velocity manager, and asking for one would start its
// clocks: the figures are then those of a new one.
Json motion(const ReplayedWidget& widget) {
  const VelocityManager unstarted;
  const VelocityManager& manager =
      widget.loaded() ? widget.controller().velocityManager() : unstarted;
  return {{"averageSpeed", json(manager.averageSpeed())},
          {"averageAltitude", json(manager.averageAltitude())},
          {"verticalSpeed", json(manager.verticalSpeed())},
          {"glideRatio", json(manager.glideRatio())},
          {"slope", json(manager.slope())},
          {"slopeAngle", json(manager.slopeAngle())},
          {"altitudeAscent", json(manager.altitudeAscent())},
          {"altitudeDescent", json(manager.altitudeDescent())}};
}

Json accuracy(TodayViewController& controller) {
  const AccuracyTrack& track = controller.accuracyTrack();
  return {{"averageHorizontalAccuracy", json(track.averageHorizontalAccuracy())},
          {"averageVerticalAccuracy", json(track.averageVerticalAccuracy())}};
}

}  // namespace

std::string snapshotLine(const ReplayedWidget& widget) {
  const SimulatedHost& host = widget.host();
  const WidgetInterface& interface = widget.interface();
  const auto tape = interface.leftConstraint().constant();
  const Json snapshot = {
      {"t", json(host.loop.now())},
      {"height", json(widget.controller().preferredContentSize().height)},
      {"labels", labels(interface)},
      {"hidden", hiddenViews(interface)},
      {"tape", tape ? json(*tape) : Json(nullptr)},
      {"segment", interface.coordinateControl().selectedSegmentIndex()},
      {"arrow", arrow(interface)},
      {"button", json(interface.view("toggleViewButton").transform().rotation)},
      {"opened", openedURLs(host.urls)},
      {"lookups", host.geocoder.requests()},
      {"timers", host.loop.timersWithInterval(kTickSeconds)},
      {"motion", motion(widget)},
      {"accuracy", accuracy(widget.controller())},
      {"suite", json(host.suite.values())},
      {"local", json(host.local.values())},
  };
  return snapshot.dump();
}

}  // namespace wayfell
