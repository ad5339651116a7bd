#include "hosts/panel/Spoken.h"

#include <array>
#include <cmath>
#include <span>

#include "hosts/panel/FormatReading.h"
#include "platform/NSBundle.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

// A format that prints a value, translated or as it is, and the words for what it has printed.
struct Reading {
  std::string_view format;
  std::string_view words;
  bool isTranslated = true;
};

constexpr Reading kHeadings[] = {{"%0.0f°", textKey("%@ degrees"), false},
                                 {"%0.0f mils", textKey("%@ mils"), false}};

constexpr Reading kDistances[] = {{"%0.0f m", textKey("%@ metres")},
                                  {"%0.0f ft", textKey("%@ feet")},
                                  {"%0.2f km", textKey("%@ kilometres")},
                                  {"%0.2f mi", textKey("%@ miles")},
                                  {"%0.2f nm", textKey("%@ nautical miles")}};

constexpr Reading kSpeeds[] = {
    {"%0.1f km/h", textKey("%@ kilometres per hour")},
    {"%0.1f mph", textKey("%@ miles per hour")},
    {"%0.1f kts", textKey("%@ knots")},
    {"%02d:%02d /km", textKey("%@ minutes %@ seconds per kilometre")},
    {"%02d:%02d /mi", textKey("%@ minutes %@ seconds per mile")},
    {"%02d:%02d /nm", textKey("%@ minutes %@ seconds per nautical mile")},
    {"%02d:%02d:%02d /km", textKey("%@ hours %@ minutes %@ seconds per kilometre")},
    {"%02d:%02d:%02d /mi", textKey("%@ hours %@ minutes %@ seconds per mile")},
    {"%02d:%02d:%02d /nm", textKey("%@ hours %@ minutes %@ seconds per nautical mile")}};

constexpr Reading kWaits[] = {{"%d m", textKey("%@ minutes")},
                              {"%d hr %d m", textKey("%@ hours %@ minutes")}};

constexpr Reading kTimes[] = {{"%02d:%02d", textKey("%@ minutes %@ seconds"), false},
                              {"%d:%02d:%02d", textKey("%@ hours %@ minutes %@ seconds"), false}};

// Seconds first: what they print could be taken for minutes and a long letter.
constexpr Reading kAngles[] = {
    {"%0.0f° %0.0f' %0.2f'' %@", textKey("%@ degrees %@ minutes %@ seconds %@")},
    {"%0.0f° %0.4f' %@", textKey("%@ degrees %@ minutes %@")}};

constexpr Reading kDecimals = {"%0.5f°%@, %0.5f°%@", textKey("%@ degrees %@")};

constexpr std::string_view kUtm = "%@ %@mE %@mN";
constexpr std::string_view kUtmWords = textKey("zone %@, %@ metres east, %@ metres north");

struct Sentence {
  std::string_view outlet;
  std::string_view words;
  std::span<const Reading> readings;
};

constexpr Sentence kSentences[] = {
    {"altitudeLabel", textKey("altitude %@"), kDistances},
    {"waypointDistanceLabel", textKey("distance to the waypoint %@"), kDistances},
    {"etaLabel", textKey("time to the waypoint %@"), kWaits},
    {"timeLabel", textKey("track time %@"), kTimes},
    {"miniTimeLabel", textKey("track time %@"), kTimes},
    {"distanceLabel", textKey("track distance %@"), kDistances},
    {"miniDistanceLabel", textKey("track distance %@"), kDistances},
    {"addressLabel", textKey("address %@"), {}},
};

std::string filled(std::string_view words, std::vector<std::string> values) {
  values.resize(4);
  return localizedStringWithFormat(words, values[0], values[1], values[2], values[3]);
}

// Formats with decimals that differ print what one of them can read.
std::string valueInWords(const std::string& text, std::span<const Reading> readings) {
  for (const Reading& reading : readings) {
    const auto values =
        readByFormat(text, reading.isTranslated ? localizedFormat(reading.format) : reading.format);
    if (values) return filled(reading.words, *values);
  }
  return text.empty() ? std::string(localized("not known yet")) : text;
}

std::string quarterInWords(const std::string& letter) {
  static constexpr std::array<std::array<std::string_view, 2>, 4> kQuarters = {
      {{"N", textKey("north")},
       {"S", textKey("south")},
       {"E", textKey("east")},
       {"W", textKey("west")}}};
  for (const auto& [key, word] : kQuarters) {
    if (letter == localized(key)) return std::string(localized(word));
  }
  return letter;
}

std::optional<std::string> angleInWords(const std::string& text) {
  for (const Reading& reading : kAngles) {
    auto values = readByFormat(text, localizedFormat(reading.format));
    if (!values) continue;
    values->back() = quarterInWords(values->back());
    return filled(reading.words, *values);
  }
  return std::nullopt;
}

std::string positionInWords(const std::string& latitude, const std::string& longitude) {
  return localizedStringWithFormat("position latitude %@, longitude %@", latitude, longitude);
}

// Decimals after the others: what those print could be taken for degrees and a long letter.
std::string positionInWords(const std::string& text) {
  if (const auto pair = readByFormat(text, localizedFormat("%@, %@"))) {
    const auto latitude = angleInWords(pair->at(0));
    const auto longitude = angleInWords(pair->at(1));
    if (latitude && longitude) return positionInWords(*latitude, *longitude);
  }
  if (const auto pair = readByFormat(text, localizedFormat(kDecimals.format))) {
    return positionInWords(filled(kDecimals.words, {pair->at(0), quarterInWords(pair->at(1))}),
                           filled(kDecimals.words, {pair->at(2), quarterInWords(pair->at(3))}));
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
  return localizedStringWithFormat(turn < 0 ? textKey("waypoint %0.0f degrees to the left")
                                            : textKey("waypoint %0.0f degrees to the right"),
                                   std::abs(turn));
}

std::string labelInWords(const WidgetInterface& interface, std::string_view outlet,
                         const std::string& text) {
  if (outlet == "headingLabel") return headingInWords(interface, text);
  if (outlet == "userCoordinateLabel") return positionInWords(text);
  if (outlet == "utmZoneLabel") return text;
  if (outlet == "speedLabel") {
    const bool pace = interface.label("speedNameLabel").text() == localized("Pace");
    return localizedStringWithFormat(pace ? textKey("pace %@") : textKey("speed %@"),
                                     valueInWords(text, kSpeeds));
  }
  for (const Sentence& sentence : kSentences) {
    if (sentence.outlet == outlet) {
      return localizedStringWithFormat(sentence.words, valueInWords(text, sentence.readings));
    }
  }
  return {};
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
    return std::string(localized(compact ? textKey("show more") : textKey("show less")));
  }
  for (const auto& label : interface.labels()) {
    if (label.name == outlet) {
      return labelInWords(interface, outlet, label.view->text().value_or(""));
    }
  }
  return {};
}

std::string spokenFormat(int segment) {
  static constexpr std::array<std::string_view, 5> kFormats = {
      textKey("decimal degrees"), textKey("degrees and decimal minutes"),
      textKey("degrees, minutes and seconds"), textKey("military grid reference"),
      textKey("UTM coordinates")};
  if (segment < 0 || segment >= std::ssize(kFormats)) return std::string(localized("none"));
  return std::string(localized(kFormats[static_cast<std::size_t>(segment)]));
}

std::string spokenCopy() { return std::string(localized("copy the position")); }

}  // namespace wayfell
