#include "hosts/window/panel/Spoken.h"

#include <array>
#include <cmath>
#include <span>

#include "hosts/window/panel/FormatReading.h"
#include "platform/NSBundle.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

// A format that prints a value, and the words for what it has printed.
struct Reading {
  std::string_view format;
  std::string_view words;
};

constexpr Reading kHeadings[] = {{"%0.0f°", "%@ degrees"}, {"%0.0f mils", "%@ mils"}};

constexpr Reading kDistances[] = {{"%0.0f m", "%@ metres"},
                                  {"%0.0f ft", "%@ feet"},
                                  {"%0.2f km", "%@ kilometres"},
                                  {"%0.2f mi", "%@ miles"},
                                  {"%0.2f nm", "%@ nautical miles"}};

constexpr Reading kSpeeds[] = {
    {"%0.1f km/h", "%@ kilometres per hour"},
    {"%0.1f mph", "%@ miles per hour"},
    {"%0.1f kts", "%@ knots"},
    {"%02d:%02d /km", "%@ minutes %@ seconds per kilometre"},
    {"%02d:%02d /mi", "%@ minutes %@ seconds per mile"},
    {"%02d:%02d /nm", "%@ minutes %@ seconds per nautical mile"},
    {"%02d:%02d:%02d /km", "%@ hours %@ minutes %@ seconds per kilometre"},
    {"%02d:%02d:%02d /mi", "%@ hours %@ minutes %@ seconds per mile"},
    {"%02d:%02d:%02d /nm", "%@ hours %@ minutes %@ seconds per nautical mile"}};

constexpr Reading kWaits[] = {{"%d m", "%@ minutes"}, {"%d hr %d m", "%@ hours %@ minutes"}};

constexpr Reading kTimes[] = {{"%02d:%02d", "%@ minutes %@ seconds"},
                              {"%d:%02d:%02d", "%@ hours %@ minutes %@ seconds"}};

// Seconds first: what they print could be taken for minutes and a long letter.
constexpr Reading kAngles[] = {{"%0.0f° %0.0f' %0.2f'' %@", "%@ degrees %@ minutes %@ seconds %@"},
                               {"%0.0f° %0.4f' %@", "%@ degrees %@ minutes %@"},
                               {"%0.5f°%@", "%@ degrees %@"}};

constexpr std::string_view kUtm = "%@ %@mE %@mN";
constexpr std::string_view kUtmWords = "zone %@, %@ metres east, %@ metres north";

struct Sentence {
  std::string_view outlet;
  std::string_view words;
  std::span<const Reading> readings;
};

constexpr Sentence kSentences[] = {
    {"altitudeLabel", "altitude %@", kDistances},
    {"waypointDistanceLabel", "distance to the waypoint %@", kDistances},
    {"etaLabel", "time to the waypoint %@", kWaits},
    {"timeLabel", "track time %@", kTimes},
    {"miniTimeLabel", "track time %@", kTimes},
    {"distanceLabel", "track distance %@", kDistances},
    {"miniDistanceLabel", "track distance %@", kDistances},
    {"addressLabel", "address %@", {}},
    {"utmZoneLabel", "%@", {}},
};

std::string filled(std::string_view words, std::vector<std::string> values) {
  values.resize(4);
  return localizedStringWithFormat(words, values[0], values[1], values[2], values[3]);
}

// Formats with decimals that differ print what one of them can read.
std::string valueInWords(const std::string& text, std::span<const Reading> readings) {
  for (const Reading& reading : readings) {
    const auto values = readByFormat(text, localizedFormat(reading.format));
    if (values) return filled(reading.words, *values);
  }
  return text.empty() ? std::string(localized("not known yet")) : text;
}

std::string quarterInWords(const std::string& letter) {
  static constexpr std::array<std::array<std::string_view, 2>, 4> kQuarters = {
      {{"N", "north"}, {"S", "south"}, {"E", "east"}, {"W", "west"}}};
  for (const auto& [key, word] : kQuarters) {
    if (letter == localized(key)) return std::string(localized(word));
  }
  return letter;
}

std::string angleInWords(const std::string& text) {
  for (const Reading& reading : kAngles) {
    auto values = readByFormat(text, localizedFormat(reading.format));
    if (!values) continue;
    values->back() = quarterInWords(values->back());
    return filled(reading.words, *values);
  }
  return text;
}

std::string positionInWords(const std::string& text) {
  if (const auto pair = readByFormat(text, localizedFormat("%@, %@"))) {
    return localizedStringWithFormat("position latitude %@, longitude %@",
                                     angleInWords(pair->at(0)), angleInWords(pair->at(1)));
  }
  if (const auto utm = readByFormat(text, localizedFormat(kUtm))) {
    return localizedStringWithFormat("position %@", filled(kUtmWords, *utm));
  }
  return localizedStringWithFormat("position %@", valueInWords(text, {}));
}

std::string headingInWords(const WidgetInterface& interface, const std::string& text) {
  const std::string heading = valueInWords(text, kHeadings);
  if (interface.compassRotatingView().compassDisplayCourse()) {
    return localizedStringWithFormat("course %@", heading);
  }
  switch (UserDefaults::checkIntDefaults("compassHeading")) {
    case 0:
      return localizedStringWithFormat("heading %@, true", heading);
    case 1:
      return localizedStringWithFormat("heading %@, magnetic", heading);
    default:
      return localizedStringWithFormat("heading %@", heading);
  }
}

std::string compassInWords(const WidgetInterface& interface) {
  const CompassView& compass = interface.compassRotatingView();
  if (!compass.arrow() || compass.compassArrowView()->hidden()) {
    return std::string(localized("compass"));
  }
  const double turn = std::remainder(compass.arrow()->bearing - compass.arrow()->heading, 360.0);
  return localizedStringWithFormat(
      turn < 0 ? "waypoint %0.0f degrees to the left" : "waypoint %0.0f degrees to the right",
      std::abs(turn));
}

}  // namespace

std::string spokenText(const WidgetInterface& interface, std::string_view outlet) {
  if (outlet == "compassRotatingView") return compassInWords(interface);
  if (outlet == "coordinateControl") {
    const int chosen = interface.coordinateControl().selectedSegmentIndex();
    return localizedStringWithFormat("format of the position: %@", spokenFormat(chosen));
  }
  if (outlet == "openLabel" || outlet == "openMiniLabel") {
    return std::string(localized("open the app"));
  }
  if (outlet == "toggleViewButton") {
    const bool compact = interface.view("trackDataView").hidden();
    return std::string(localized(compact ? "show more" : "show less"));
  }
  for (const auto& label : interface.labels()) {
    if (label.name != outlet) continue;
    const std::string text = label.view->text().value_or("");
    if (outlet == "headingLabel") return headingInWords(interface, text);
    if (outlet == "userCoordinateLabel") return positionInWords(text);
    if (outlet == "speedLabel") {
      const bool pace = interface.label("speedNameLabel").text() == localized("Pace");
      return localizedStringWithFormat(pace ? "pace %@" : "speed %@", valueInWords(text, kSpeeds));
    }
    for (const Sentence& sentence : kSentences) {
      if (sentence.outlet == outlet) {
        return localizedStringWithFormat(sentence.words, valueInWords(text, sentence.readings));
      }
    }
  }
  return {};
}

std::string spokenFormat(int segment) {
  static constexpr std::array<std::string_view, 5> kFormats = {
      "decimal degrees", "degrees and decimal minutes", "degrees, minutes and seconds",
      "military grid reference", "UTM coordinates"};
  if (segment < 0 || segment >= std::ssize(kFormats)) return std::string(localized("none"));
  return std::string(localized(kFormats[static_cast<std::size_t>(segment)]));
}

}  // namespace wayfell
