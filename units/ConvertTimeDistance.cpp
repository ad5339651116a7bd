#include "units/ConvertTimeDistance.h"

#include <array>
#include <cmath>
#include <cstdint>

#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "platform/NSString.h"
#include "platform/UnitFactors.h"
#include "settings/StoredInteger.h"
#include "units/HoursMinutesSeconds.h"

namespace wayfell {
namespace {

constexpr std::int64_t kImperial = 0;
constexpr std::int64_t kMetric = 1;
constexpr std::int64_t kNautical = 2;
constexpr std::int64_t kMils = 1;

// Below these, in the long unit, a distance is given in the short unit as well, or instead.
constexpr double kShortUnitAsWell = 0.25;
constexpr double kShortUnitInstead = 1.0;

std::string bareAngle(double degrees, std::int64_t angleUnits) {
  return stringWithFormat("%0.0f", angleUnits == kMils ? mils(degrees) : degrees);
}

std::string angleWord(std::int64_t angleUnits) { return angleUnits == kMils ? "mils" : "°"; }

}  // namespace

std::string ConvertTimeDistance::convertSecondsToTime(double seconds) {
  const int total = wholeSeconds(seconds);
  const auto time = hoursMinutesSeconds(total);
  if (total < 3600) return stringWithFormat("%02d:%02d", time.minutes, time.seconds);
  return stringWithFormat("%02d:%02d:%02d", time.hours, time.minutes, time.seconds);
}

// --- Distances -----------------------------------------------------------------------------

std::string ConvertTimeDistance::convertMetersToDistanceWithUnits(double metres, bool metric) {
  if (metric) {
    std::string text = localizedStringWithFormat("%0.2f km", kilometres(metres));
    if (kilometres(metres) < kShortUnitAsWell) {
      text += localizedStringWithFormat(" (%0.1f m)", metres);
    }
    return text;
  }
  std::string text = localizedStringWithFormat("%0.2f mi", miles(metres));
  if (miles(metres) < kShortUnitAsWell) {
    text += localizedStringWithFormat(" (%0.2f ft)", feet(metres));
  }
  return text;
}

std::optional<std::string> ConvertTimeDistance::convertMetersToDistanceWithUnitsBaseUnits(
    double metres, int units, bool baseUnits) {
  switch (units) {
    case kMetric:
      return stringWithFormat("%0.1f", baseUnits ? metres : kilometres(metres));
    case kImperial:
      return stringWithFormat("%0.1f", baseUnits ? feet(metres) : miles(metres));
    case kNautical:
      return stringWithFormat("%0.1f", baseUnits ? feet(metres) : nauticalMiles(metres));
    default:
      return std::nullopt;
  }
}

std::optional<std::string> ConvertTimeDistance::distanceUnitsForBaseUnits(int units,
                                                                          bool baseUnits) {
  switch (units) {
    case kMetric:
      return std::string(localized(baseUnits ? textKey("m") : textKey("km")));
    case kImperial:
      return std::string(localized(baseUnits ? textKey("ft") : textKey("mi")));
    default:
      return std::nullopt;
  }
}

std::optional<FormattedText>
ConvertTimeDistance::convertMetersToDistanceWithRoundingFactorDecimalPlace(double metres,
                                                                           double roundingFactor,
                                                                           int decimalPlace) {
  if (decimalPlace <= 0) return std::nullopt;
  const bool oneDecimal = decimalPlace == 1;
  switch (storedInteger("units")) {
    case kMetric:
      if (kilometres(metres) < roundingFactor) return localizedText("%0.0f m", metres);
      return localizedText(oneDecimal ? textKey("%0.1f km") : textKey("%0.2f km"),
                           kilometres(metres));
    case kImperial:
      if (miles(metres) < roundingFactor) return localizedText("%0.0f ft", feet(metres));
      return localizedText(oneDecimal ? textKey("%0.1f mi") : textKey("%0.2f mi"), miles(metres));
    case kNautical:
      if (nauticalMiles(metres) < roundingFactor) {
        // The one short distance that is not localised.
        if (oneDecimal) return formattedText("%0.0f ft", feet(metres));
        return localizedText("%0.0f ft", feet(metres));
      }
      return localizedText(oneDecimal ? textKey("%0.1f nm") : textKey("%0.2f nm"),
                           nauticalMiles(metres));
    default:
      return std::nullopt;
  }
}

std::optional<FormattedText> ConvertTimeDistance::convertMetersToDistance(double metres) {
  switch (storedInteger("units")) {
    case kMetric:
      if (kilometres(metres) >= kShortUnitInstead) {
        return localizedText("%0.1f km", kilometres(metres));
      }
      return localizedText("%0.0f m", kilometres(metres) * 1000);
    case kImperial:
      if (miles(metres) >= kShortUnitInstead) {
        return localizedText("%0.1f mi", miles(metres));
      }
      return localizedText("%0.0f ft", feet(metres));
    case kNautical:
      if (nauticalMiles(metres) >= kShortUnitInstead) {
        return localizedText("%0.1f nm", nauticalMiles(metres));
      }
      return localizedText("%0.0f ft", feet(metres));
    default:
      return std::nullopt;
  }
}

std::optional<std::string> ConvertTimeDistance::convertMetersToDistanceUnitsString(
    double metres, std::string_view word) {
  if (word == localized("km")) return localizedStringWithFormat("%0.2f km", kilometres(metres));
  if (word == localized("m")) return localizedStringWithFormat("%0.0f m", metres);
  if (word == localized("mi")) return localizedStringWithFormat("%0.2f mi", miles(metres));
  if (word == localized("ft")) return localizedStringWithFormat("%0.0f ft", feet(metres));
  if (word == localized("nm")) return localizedStringWithFormat("%0.2f nm", nauticalMiles(metres));
  if (word == localized("yd")) {
    return localizedStringWithFormat("%0.1f yd", metres * kYardsPerMetre);
  }
  return std::nullopt;
}

double ConvertTimeDistance::convertDistanceForUnitsBaseUnits(double distance, int units,
                                                             bool baseUnits) {
  switch (units) {
    case kMetric:
      return baseUnits ? distance : distance * 1000;
    case kImperial:
      return distance * (baseUnits ? kMetresPerFoot : kMetresPerMile);
    case kNautical:
      return distance * (baseUnits ? kMetresPerFoot : kMetresPerNauticalMile);
    default:
      return 0;
  }
}

double ConvertTimeDistance::getDistanceFromLatAndLongToOldLatAndOldLong(double latitude,
                                                                        double longitude,
                                                                        double oldLatitude,
                                                                        double oldLongitude) {
  // The arc cosine cannot tell equal positions from ones some centimetres apart.
  if (latitude == oldLatitude && longitude == oldLongitude) return 0;
  const double phi = latitude * kRadiansPerDegree;
  const double lambda = longitude * kRadiansPerDegree;
  const double oldPhi = oldLatitude * kRadiansPerDegree;
  const double oldLambda = oldLongitude * kRadiansPerDegree;
  const double axis = DatumManager::sharedInstance().getDefaultAxis();
  return axis / 1000 *
         std::acos(std::sin(phi) * std::sin(oldPhi) +
                   std::cos(phi) * std::cos(oldPhi) * std::cos(oldLambda - lambda)) *
         1000;
}

std::optional<std::string> ConvertTimeDistance::convertMetersToDistanceSquaredUnits(
    double squareMetres, std::string_view word) {
  struct AreaUnit {
    std::string_view word;
    double perSquareMetre;
    std::string_view format;
  };
  static constexpr std::array<AreaUnit, 8> kAreaUnits = {{
      {textKey("km"), 1e-6, textKey("%0.2f km")},
      {textKey("m"), 1, textKey("%0.0f m")},
      {textKey("mi"), 3.861e-7, textKey("%0.2f mi")},
      {textKey("ft"), 10.7639, textKey("%0.0f ft")},
      {textKey("nm"), 2.9155335e-8, textKey("%0.2f nm")},
      {textKey("yd"), 1.19599, textKey("%0.1f yd")},
      {textKey("acres"), 0.000247104393, textKey("%0.2f acres")},
      {textKey("acre"), 0.000247104393, textKey("%0.2f acres")},
  }};
  for (const auto& unit : kAreaUnits) {
    if (word == localized(unit.word)) {
      return localizedStringWithFormat(unit.format, squareMetres * unit.perSquareMetre);
    }
  }
  return std::nullopt;
}

// --- Speeds and altitudes ------------------------------------------------------------------

std::optional<std::string> ConvertTimeDistance::convertSpeedWithUnits(double speed, int units) {
  switch (units) {
    case kImperial:
      return stringWithFormat("%0.1f mph", speed * kMilesPerHour);
    case kMetric:
      return stringWithFormat("%0.1f km/h", speed * kKilometresPerHour);
    case kNautical:
      return stringWithFormat("%0.1f kts", speed * kKnots);
    default:
      return std::nullopt;
  }
}

std::string ConvertTimeDistance::convertAltitude(double metres) {
  if (storedInteger("units") == kMetric) return localizedStringWithFormat("%0.0f m", metres);
  return localizedStringWithFormat("%0.0f ft", metres * kFeetPerMetre);
}

std::string ConvertTimeDistance::altitudeUnits() {
  return std::string(localized(storedInteger("units") == kMetric ? textKey("m") : textKey("ft")));
}

double ConvertTimeDistance::convertMeters(double metres) {
  return storedInteger("units") == kImperial ? metres * kFeetPerMetre : metres;
}

// --- Angles --------------------------------------------------------------------------------

std::string ConvertTimeDistance::convertAngle(double degrees) {
  if (storedInteger("useMils") == kMils) return stringWithFormat("%0.0f mils", mils(degrees));
  return stringWithFormat("%0.0f°", degrees);
}

std::string ConvertTimeDistance::convertAngleWithoutUnitsOfMeasurement(double degrees) {
  return bareAngle(degrees, storedInteger("angleUnits"));
}

std::string ConvertTimeDistance::convertAngleWithoutUnitsOfMeasurementWithUnits(double degrees,
                                                                                int angleUnits) {
  return bareAngle(degrees, angleUnits);
}

std::string ConvertTimeDistance::angleUnits() { return angleWord(storedInteger("useMils")); }

std::string ConvertTimeDistance::angleUnitsForUnits(int angleUnits) {
  return angleWord(angleUnits);
}

double ConvertTimeDistance::convertAngleForAngleUnits(double angle, int angleUnits) {
  if (angleUnits == 1 && angle >= 0 && angle <= 6400) return angle / 6400 * 360;
  if (angleUnits == 0 && angle >= 0 && angle <= 360) return angle;
  return 0;
}

}  // namespace wayfell
