#include "settings/UserDefaults.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/NSUserDefaults.h"
#include "platform/Numbers.h"

namespace wayfell {
namespace {

// Which type a key takes when it comes down from the cloud. Most keys belong to the containing
// app, and the widget merely carries them.

constexpr std::array<std::string_view, 15> kNumberKeys = {
    "compassHeadingSelection",
    "rateAppCount",
    "units",
    "coordinateUnits",
    "speed",
    "useMils",
    "compassHeading",
    "autoDropboxExportType",
    "measureModeControl",
    "measureType",
    "defaultTrackName",  // a number, whatever its name suggests
    "compassHeading",    // a second time, harmless
    "utmType",
    "trackWidthType",
    "mapCompassType",
};

constexpr std::array<std::string_view, 24> kObjectKeys = {
    "defaultGroup",
    "display1",
    "display2",
    "display3",
    "display4",
    "dashboardDisplay1",
    "dashboardDisplay2",
    "dashboardDisplay3",
    "dashboardDisplay4",
    "dashboardDisplay5",
    "showTrackPins",  // also among the booleans, which come later and do not get it
    "trackFilterDateType",
    "trackFilterStartDate",
    "trackFilterEndDate",
    "customMapArray",
    "customMapType",
    "customURLDict",
    "measureUnitsButton",
    "whatsNewVersion",
    "trackWidthScaled",
    "trackWidthFixed",
    "waypointAlertRadius",
    "defaultTrackColor",
    "defaultTrackFolderUniqueID",
};

constexpr std::array<std::string_view, 24> kBooleanKeys = {
    "didRateApp",
    "rotateMap",
    "autoPause",
    "showArrow",
    "sleepMode",
    "hideWaypointLines",
    "sounds",
    "mapViewStatsDisabled",
    "showUserLocationArrow",
    "displayCheckInAlerts",
    "showUserCoordinates",
    "keepWaypoints",
    "keepTracks",
    "didUpdateWaypointLines",
    "showPointsOfInterest",
    "showRoadNamesForCustomMaps",
    "displayCompassCalibration",
    "showTrackPins",
    "groundOverlayTransparency",  // a boolean, whatever its name suggests
    "etaAbsolute",
    "disableExportStartStopPins",
    "fetchPicturesFromCameraRollWhileTracking",
    "showTraffic",
    "hideToolbar",
};

template <class Keys>
bool contains(const Keys& keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

bool UserDefaults::checkDefaults(std::string_view key) {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults && defaults->boolForKey(key);
}

void UserDefaults::setBoolForString(bool boolean, std::string_view key) {
  setIntForString(boolean ? 1 : 0, key);
}

std::int32_t UserDefaults::checkIntDefaults(std::string_view key) {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults ? lowInt32(defaults->integerForKey(key)) : 0;
}

void UserDefaults::setIntForString(std::int64_t integer, std::string_view key) {
  if (auto defaults = NSUserDefaults::standardUserDefaults()) {
    defaults->setIntegerForKey(integer, key);
  }
}

std::optional<PropertyValue> UserDefaults::checkObjectDefaults(std::string_view key) {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults ? defaults->objectForKey(key) : std::nullopt;
}

std::optional<PropertyValue> UserDefaults::checkObjectDefaultsWithiCloud(std::string_view key) {
  if (const auto cloud = NSUbiquitousKeyValueStore::defaultStore()) {
    if (auto object = cloud->objectForKey(key)) return object;
  }
  return checkObjectDefaults(key);
}

void UserDefaults::setObjectForKey(std::optional<PropertyValue> object, std::string_view key) {
  if (auto defaults = NSUserDefaults::standardUserDefaults()) {
    defaults->setObjectForKey(std::move(object), key);
  }
}

std::optional<std::string> UserDefaults::checkStringDefaults(std::string_view key) {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults ? defaults->stringForKey(key) : std::nullopt;
}

void UserDefaults::setStringForKey(std::optional<std::string> string, std::string_view key) {
  setObjectForKey(string ? std::optional(PropertyValue(*std::move(string))) : std::nullopt, key);
}

void UserDefaults::syncronizeKey(std::string_view key) {
  const auto cloud = NSUbiquitousKeyValueStore::defaultStore();
  auto defaults = NSUserDefaults::standardUserDefaults();
  if (!cloud || !defaults) return;
  // A key that stands in two sets takes the earlier set's rule.
  if (contains(kNumberKeys, key)) {
    defaults->setIntegerForKey(truncatedToInt64(cloud->doubleForKey(key)), key);
  } else if (contains(kObjectKeys, key)) {
    defaults->setObjectForKey(cloud->objectForKey(key), key);
  } else if (contains(kBooleanKeys, key)) {
    defaults->setBoolForKey(cloud->boolForKey(key), key);
  }
}

}  // namespace wayfell
