// What can happen in a replay.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/CLHeading.h"
#include "platform/CLLocation.h"
#include "platform/CLPlacemark.h"
#include "platform/Host.h"
#include "platform/PropertyValue.h"

namespace wayfell {

namespace event {

/// Writes to a store by key; none removes the key.
using Settings = std::map<std::string, std::optional<PropertyValue>, std::less<>>;
struct WriteSuite {
  Settings settings;
};
struct WriteLocal {
  Settings settings;
};
struct Authorize {
  CLAuthorizationStatus status;
};
/// Whether the compass follows the course.
struct FollowCourse {
  bool course;
};
/// What lookups answer from now on; none makes them fail.
struct AnswerLookups {
  std::optional<CLPlacemark> placemark;
};

struct Appear {};
struct Disappear {};
/// Delivered in one call.
struct Locate {
  std::vector<CLLocation> fixes;
};
struct Turn {
  CLHeading heading;
};
/// On a view, visible or not.
struct Tap {
  enum class View { toggleViewButton, openLabel, openMiniLabel } view;
};
struct PickSegment {
  int segment;
};
struct OpenAppWithCoordinate {};
struct UpdateCurrentLocationDisplay {
  int units;
};
/// Asks for a snapshot.
struct Show {};

}  // namespace event

using Action =
    std::variant<event::WriteSuite, event::WriteLocal, event::Authorize, event::FollowCourse,
                 event::AnswerLookups, event::Appear, event::Disappear, event::Locate, event::Turn,
                 event::Tap, event::PickSegment, event::OpenAppWithCoordinate,
                 event::UpdateCurrentLocationDisplay, event::Show>;

struct Event {
  double t;  ///< seconds since the reference date
  Action action;
};

/// No event is farther than this from the reference date, some 300 years: beyond, half seconds
/// could be lost in rounding and the timers between two events would never end.
inline constexpr double kFarthestTime = 1e10;

}  // namespace wayfell
