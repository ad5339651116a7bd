// What translators are given, against what the system asks for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>

#include "TranslatedWidget.h"
#include "coordinates/ConvertCoordinates.h"
#include "coordinates/CoordinateDistance.h"
#include "coordinates/FindCoordinates.h"
#include "datums/Catalogue.h"
#include "hosts/panel/Spoken.h"
#include "hosts/replay/Demo.h"
#include "hosts/replay/Replay.h"
#include "hosts/services/texts/GettextTable.h"
#include "units/ConvertTimeDistance.h"

namespace wayfell {
namespace {

using Keys = std::set<std::string>;

constexpr int kSystems = 3;  // of units
constexpr int kFormats = 5;  // of the position

class RecordingTable : public StringTable {
 public:
  std::optional<std::string_view> find(std::string_view key) const override {
    keys.emplace(key);
    return std::nullopt;
  }
  mutable Keys keys;
};

std::string unquoted(std::string_view line) {
  line.remove_prefix(line.find('"') + 1);
  line.remove_suffix(line.size() - line.rfind('"'));
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\') {
      text += line[i];
    } else {
      text += line[++i] == 'n' ? '\n' : line[i];
    }
  }
  return text;
}

Keys keysForTranslators() {
  std::ifstream file(WAYFELL_SOURCES "/po/wayfell.pot");
  Keys keys;
  std::string key;
  bool inKey = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("msgid ")) {
      key = unquoted(line);
      inKey = true;
    } else if (line.starts_with("msgstr ")) {
      if (!key.empty()) keys.insert(key);
      inKey = false;
    } else if (inKey) {
      key += unquoted(line);
    }
  }
  return keys;
}

// The demo in one system of units and format of the position, each layout and display of speed.
void playDemo(TranslatedWidget& translated, int units, int format) {
  const auto set = [&translated](const char* key, int value) {
    translated.host().suite.set(key, PropertyValue(value));
  };
  set("units", units);
  set("coordinateUnits", format);
  set("speed", format % kSystems);
  const auto recording = openRecording(InputBytes(demoBytes()));
  const Replay replay(
      60.0, [](ReplayedWidget&) { return true; }, [](double) {});
  replay.play(*recording, translated.widget);
  translated.widget.controller().updateCurrentLocationDisplayWithUnits(format);
}

// What nothing in the demo comes to.
void callEveryOperation(TranslatedWidget& translated) {
  const auto set = [&translated](const char* key, int value) {
    translated.host().local.set(key, PropertyValue(value));
  };
  for (const double size : {1.0, 100.0, 1e3, 1e5}) {  // metres
    for (int units = 0; units < kSystems; ++units) {
      set("units", units);
      using Units = ConvertTimeDistance;
      Units::convertMetersToDistance(size);
      Units::convertAltitude(size);
      Units::altitudeUnits();
      CoordinateDistance::getDistanceStringforDistance(size);
      for (const bool flag : {false, true}) {
        Units::convertMetersToDistanceWithUnits(size, flag);
        Units::distanceUnitsForBaseUnits(units, flag);
        Units::convertMetersToDistanceWithRoundingFactorDecimalPlace(size, 1, flag ? 2 : 1);
      }
      TodayViewController& controller = translated.widget.controller();
      controller.updateDistance(size);
      TodayViewController::convertMetersPerSecondToSpeed(size);
      TodayViewController::convertMetersPerSecondToPace(size);
      TodayViewController::convertMetersPerSecondToPace(0.3);  // the slowest
      controller.hasWaypoint = true;
      controller.calculateETAWithSpeed(size);
    }
  }
  for (const char* word : {"km", "m", "mi", "ft", "nm", "yd", "acres", "acre", "none"}) {
    ConvertTimeDistance::convertMetersToDistanceUnitsString(1, word);
    ConvertTimeDistance::convertMetersToDistanceSquaredUnits(1, word);
  }
  for (const double sign : {1.0, -1.0}) {
    for (int format = 0; format < kFormats; ++format) {
      ConvertCoordinates::convertLatAndLongWithCoordinateUnits(sign * 48, sign * 16, format);
    }
    FindCoordinates::findUTMZoneWithLatAndLong(sign * 48, sign * 16);
  }
}

// Whatever the panel says to those who hear it.
void hearEverything(TranslatedWidget& translated) {
  translated.appear();
  const WidgetInterface& interface = translated.widget.interface();
  const std::pair<const char*, std::vector<const char*>> shown[] = {
      {"headingLabel", {"90°", "1600 mils"}},
      {"altitudeLabel", {"905 m", "2969 ft", ""}},
      {"waypointDistanceLabel", {"1.11 km", "0.69 mi", "0.60 nm"}},
      {"etaLabel", {"8 m", "2 hr 46 m"}},
      {"timeLabel", {"04:57", "1:00:00"}},
      {"distanceLabel", {"0.39 km"}},
      {"addressLabel", {"Lerchenweg 4"}},
      {"speedLabel",
       {"5.2 km/h", "3.2 mph", "2.8 kts", "08:20 /km", "13:24 /mi", "15:26 /nm", "01:08:20 /km",
        "01:13:24 /mi", "01:15:26 /nm"}},
      {"userCoordinateLabel",
       {"46.98000°N, 7.93998°E", "46° 58.8000' S, 7° 56.3988' W",
        "46° 58' 48.00'' N, 7° 56' 23.93'' E", "32 T 419365.1mE 5203402.2mN"}},
  };
  interface.label("speedNameLabel").setText("Speed");
  for (const auto& [label, texts] : shown) {
    for (const char* text : texts) {
      interface.label(label).setText(text);
      spokenText(interface, label);
    }
  }
  interface.label("speedNameLabel").setText("Pace");
  for (int kind = 0; kind < 3; ++kind) {
    translated.host().local.set("compassHeading", PropertyValue(kind));
    spokenText(interface, "headingLabel");
  }
  CompassView& compass = interface.compassRotatingView();
  for (const bool isHidden : {true, false}) {
    compass.compassArrowView()->setHidden(isHidden);
    for (const double bearing : {-90.0, 90.0}) {
      compass.rotateCompassArrowToBearingWithHeading(bearing, 0);
      spokenText(interface, "compassRotatingView");
    }
    interface.view("trackDataView").setHidden(isHidden);
    for (const auto& view : interface.views()) spokenText(interface, view.name);
  }
  compass.setCompassDisplayCourse(true);
  spokenText(interface, "headingLabel");
  for (int format = -1; format < kFormats; ++format) spokenFormat(format);
  spokenCopy();
}

TEST(Keys, TranslatorsGetWhatTheSystemAsksForAndNoMore) {
  const RecordingTable asked;
  for (int units = 0; units < kSystems; ++units) {
    for (int format = 0; format < kFormats; ++format) {
      TranslatedWidget widget(asked);
      playDemo(widget, units, format);
      if (format == 0) callEveryOperation(widget);
    }
  }
  TranslatedWidget heard(asked);
  hearEverything(heard);
  // The names of datums stand in every language.
  for (const CatalogueDatum& datum : kDatums) asked.keys.erase(std::string(datum.name));
  EXPECT_EQ(keysForTranslators(), asked.keys);
}

TEST(Keys, EveryLanguageIsComplete) {
  std::ifstream languages(WAYFELL_SOURCES "/po/LINGUAS");
  ASSERT_TRUE(languages);
  for (std::string language; languages >> language;) {
    SCOPED_TRACE(language);
    const GettextTable strings(WAYFELL_CATALOGUES, {language},
                               [](const std::string& warning) { ADD_FAILURE() << warning; });
    for (const std::string& key : keysForTranslators()) {
      const auto text = strings.find(key);
      ASSERT_TRUE(text) << key;
      if (!key.starts_with("...")) continue;
      // The tape: its points may have other letters, one for one, and nothing else differs.
      ASSERT_EQ(text->size(), key.size());
      for (std::size_t i = 0; i < key.size(); ++i) {
        const bool isPoint = std::string_view("NESW").find(key[i]) != std::string::npos;
        EXPECT_TRUE(isPoint ? std::isupper((*text)[i]) != 0 : (*text)[i] == key[i]) << i;
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
