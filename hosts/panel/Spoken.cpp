#include "hosts/panel/Spoken.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "platform/NSBundle.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

using Piece = FormattedText::Piece;

// What a key has printed, in words that take the same arguments.
struct Reading {
  std::string_view key;
  std::string_view words;
};

constexpr Reading kReadings[] = {
    {"%0.0f°", textKey("%@ degrees")},
    {"%0.0f mils", textKey("%@ mils")},
    {"%0.0f m", textKey("%@ metres")},
    {"%0.1f m", textKey("%@ metres")},
    {"%0.0f ft", textKey("%@ feet")},
    {"%0.1f ft", textKey("%@ feet")},
    {"%0.2f km", textKey("%@ kilometres")},
    {"%0.2f mi", textKey("%@ miles")},
    {"%0.2f nm", textKey("%@ nautical miles")},
    {"%0.1f km/h", textKey("%@ kilometres per hour")},
    {"%0.1f mph", textKey("%@ miles per hour")},
    {"%0.1f kts", textKey("%@ knots")},
    {"%02d:%02d /km", textKey("%@ minutes %@ seconds per kilometre")},
    {"%02d:%02d /mi", textKey("%@ minutes %@ seconds per mile")},
    {"%02d:%02d /nm", textKey("%@ minutes %@ seconds per nautical mile")},
    {"%02d:%02d:%02d /km", textKey("%@ hours %@ minutes %@ seconds per kilometre")},
    {"%02d:%02d:%02d /mi", textKey("%@ hours %@ minutes %@ seconds per mile")},
    {"%02d:%02d:%02d /nm", textKey("%@ hours %@ minutes %@ seconds per nautical mile")},
    {"%d m", textKey("%@ minutes")},
    {"%d hr %d m", textKey("%@ hours %@ minutes")},
    {"%02d:%02d", textKey("%@ minutes %@ seconds")},
    {"%d:%02d:%02d", textKey("%@ hours %@ minutes %@ seconds")},
    {"%0.0f° %0.4f' %@", textKey("%@ degrees %@ minutes %@")},
    {"%0.0f° %0.0f' %0.2f'' %@", textKey("%@ degrees %@ minutes %@ seconds %@")},
    {"%@ %@mE %@mN", textKey("zone %@, %@ metres east, %@ metres north")},
    {"N", textKey("north")},
    {"S", textKey("south")},
    {"E", textKey("east")},
    {"W", textKey("west")}};

struct Sentence {
  PanelRow row;
  std::string_view words;
};

constexpr Sentence kSentences[] = {
    {PanelRow::altitude, textKey("altitude %@")},
    {PanelRow::waypointDistance, textKey("distance to the waypoint %@")},
    {PanelRow::eta, textKey("time to the waypoint %@")},
    {PanelRow::trackTime, textKey("track time %@")},
    {PanelRow::trackDistance, textKey("track distance %@")},
    {PanelRow::address, textKey("address %@")},
};

std::string withoutLeadingZeros(std::string_view number) {
  while (number.size() > 1 && number[0] == '0' && number[1] != '.') number.remove_prefix(1);
  return std::string(number);
}

// A piece that no reading knows is said as it stands; among the arguments of one "05" is "5".
std::string inWords(const Piece& piece) {
  const auto* const reading =
      std::find_if(std::begin(kReadings), std::end(kReadings),
                   [&](const Reading& each) { return each.key == piece.key(); });
  if (reading == std::end(kReadings)) return std::string(piece.text());
  const auto argument = [&](std::size_t position) {
    const Piece part = piece.argument(position);
    return part.key().empty() ? withoutLeadingZeros(part.text()) : inWords(part);
  };
  return localizedStringWithFormat(reading->words, argument(0), argument(1), argument(2),
                                   argument(3));
}

std::string valueInWords(const Piece& value) {
  return value.text().empty() ? std::string(localized("not known yet")) : inWords(value);
}

std::string positionInWords(const Piece& position) {
  const auto inQuarters = [](const std::string& latitude, const std::string& longitude) {
    return localizedStringWithFormat("position latitude %@, longitude %@", latitude, longitude);
  };
  const auto argument = [&](std::size_t index) { return inWords(position.argument(index)); };
  const std::size_t ofLatitude = latitudeArguments(position.key());
  if (ofLatitude == 1) return inQuarters(argument(0), argument(1));
  if (ofLatitude == 2) {
    const auto angle = [](const std::string& degrees, const std::string& quarter) {
      return localizedStringWithFormat("%@ degrees %@", degrees, quarter);
    };
    return inQuarters(angle(argument(0), argument(1)), angle(argument(2), argument(3)));
  }
  return localizedStringWithFormat("position %@", valueInWords(position));
}

std::string headingInWords(const WidgetInterface& interface, const Piece& value) {
  const std::string heading = valueInWords(value);
  if (interface.views().compassRotatingView.compassDisplayCourse()) {
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
  const auto direction = waypointDirection(interface);
  if (!direction) return std::string(localized("compass"));
  const double turn = std::remainder(*direction, 360.0);
  return localizedStringWithFormat(turn < 0 ? textKey("waypoint %0.0f degrees to the left")
                                            : textKey("waypoint %0.0f degrees to the right"),
                                   std::abs(turn));
}

std::string labelInWords(const WidgetInterface& interface, PanelRow row, const Piece& value) {
  if (row == PanelRow::heading) return headingInWords(interface, value);
  if (row == PanelRow::position) return positionInWords(value);
  if (row == PanelRow::zone) return std::string(value.text());
  if (row == PanelRow::speed) {
    const FormattedText name = interface.views().speedNameLabel.text().value_or("");
    return localizedStringWithFormat(
        name.whole().key() == "Pace" ? textKey("pace %@") : textKey("speed %@"),
        valueInWords(value));
  }
  for (const Sentence& sentence : kSentences) {
    if (sentence.row == row) {
      return localizedStringWithFormat(sentence.words, valueInWords(value));
    }
  }
  return {};
}

}  // namespace

std::string spokenText(const WidgetInterface& interface, PanelRow row) {
  if (row == PanelRow::compass) return compassInWords(interface);
  if (row == PanelRow::formats) {
    const int chosen = interface.views().coordinateControl.selectedSegmentIndex();
    return localizedStringWithFormat("format of the position: %@", spokenFormat(chosen));
  }
  if (row == PanelRow::open) return std::string(localized("open the app"));
  if (row == PanelRow::layout) {
    return std::string(
        localized(isCompact(interface) ? textKey("show more") : textKey("show less")));
  }
  const FormattedText text = valueLabel(interface, row)->text().value_or("");
  return labelInWords(interface, row, text.whole());
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
