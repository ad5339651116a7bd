#include "platform/CLLocation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// WGS 84 (NIMA TR8350.2): semi-major axis in metres, flattening, semi-minor axis in metres.
constexpr double kMajorAxis = 6378137.0;
constexpr double kFlattening = 1 / 298.257223563;
constexpr double kMinorAxis = (1 - kFlattening) * kMajorAxis;

// Radians of longitude, a few nanometres. The iteration gains more than two digits a round
// except for nearly antipodal points, where it is given up.
constexpr double kTolerance = 1e-15;
constexpr int kMostRounds = 50;

double radians(double degrees) { return degrees * kPi / 180; }

// The inverse formulae of T. Vincenty, "Direct and inverse solutions of geodesics on the ellipsoid
// with application of nested equations", Survey Review XXIII (176), 1975, in its letters: a
// geodesic leaves the equator at the azimuth alpha, and sigma is its length on the auxiliary
// sphere.
struct Arc {
  double sigma;
  double sinSigma;
  double cosSigma;
  double cosSquaredAlpha;
  double cos2SigmaM;
};

// Metres.
double length(const Arc& arc) {
  const double uSquared =
      arc.cosSquaredAlpha * (kMajorAxis * kMajorAxis / (kMinorAxis * kMinorAxis) - 1);
  const double a =
      1 + uSquared / 16384 * (4096 + uSquared * (-768 + uSquared * (320 - 175 * uSquared)));
  const double b = uSquared / 1024 * (256 + uSquared * (-128 + uSquared * (74 - 47 * uSquared)));
  const double cosSquared2SigmaM = arc.cos2SigmaM * arc.cos2SigmaM;
  const double deltaSigma =
      b * arc.sinSigma *
      (arc.cos2SigmaM + b / 4 *
                            (arc.cosSigma * (-1 + 2 * cosSquared2SigmaM) -
                             b / 6 * arc.cos2SigmaM * (-3 + 4 * arc.sinSigma * arc.sinSigma) *
                                 (-3 + 4 * cosSquared2SigmaM)));
  return kMinorAxis * a * (arc.sigma - deltaSigma);
}

// Metres; infinite where the formulae do not converge, which is between nearly antipodal points.
double vincentyDistance(CLLocationCoordinate2D from, CLLocationCoordinate2D to) {
  const double u1 = std::atan((1 - kFlattening) * std::tan(radians(from.latitude)));
  const double u2 = std::atan((1 - kFlattening) * std::tan(radians(to.latitude)));
  const double sinU1 = std::sin(u1);
  const double cosU1 = std::cos(u1);
  const double sinU2 = std::sin(u2);
  const double cosU2 = std::cos(u2);
  // The remainder takes the short way across the antimeridian, and is exact.
  const double l = radians(std::remainder(to.longitude - from.longitude, 360));

  double lambda = l;
  for (int round = 0; round < kMostRounds && std::abs(lambda) <= kPi; ++round) {
    Arc arc{};
    arc.sinSigma =
        std::hypot(cosU2 * std::sin(lambda), cosU1 * sinU2 - sinU1 * cosU2 * std::cos(lambda));
    arc.cosSigma = sinU1 * sinU2 + cosU1 * cosU2 * std::cos(lambda);
    arc.sigma = std::atan2(arc.sinSigma, arc.cosSigma);
    if (arc.sinSigma == 0) return arc.cosSigma > 0 ? 0 : kInfinity;
    const double sinAlpha = cosU1 * cosU2 * std::sin(lambda) / arc.sinSigma;
    arc.cosSquaredAlpha = 1 - sinAlpha * sinAlpha;
    // Along the equator there is no midpoint to measure from, and its terms vanish.
    if (arc.cosSquaredAlpha > 0) {
      arc.cos2SigmaM = arc.cosSigma - 2 * sinU1 * sinU2 / arc.cosSquaredAlpha;
    }
    const double c =
        kFlattening / 16 * arc.cosSquaredAlpha * (4 + kFlattening * (4 - 3 * arc.cosSquaredAlpha));
    const double before = lambda;
    lambda =
        l + (1 - c) * kFlattening * sinAlpha *
                (arc.sigma + c * arc.sinSigma *
                                 (arc.cos2SigmaM +
                                  c * arc.cosSigma * (-1 + 2 * arc.cos2SigmaM * arc.cos2SigmaM)));
    if (std::abs(lambda - before) <= kTolerance) return length(arc);
  }
  return kInfinity;
}

// The point a quarter of the globe away, on a sphere; the azimuth is in radians.
CLLocationCoordinate2D quarterWay(CLLocationCoordinate2D from, double azimuth) {
  const double sinFrom = std::sin(radians(from.latitude));
  const double cosFrom = std::cos(radians(from.latitude));
  const double sinWay = cosFrom * std::cos(azimuth);
  const double turn = std::atan2(std::sin(azimuth) * cosFrom, -sinFrom * sinWay);
  return {std::asin(sinWay) * 180 / kPi, from.longitude + turn * 180 / kPi};
}

// Metres between nearly antipodal points. Every path from one to the other crosses the curve of
// points that are a quarter of the globe away from the first, so the shortest path is the
// shortest detour over a point of this curve. Both its halves are far from antipodal.
double antipodalDistance(CLLocationCoordinate2D from, CLLocationCoordinate2D to) {
  const auto detour = [&](double azimuth) {
    const auto way = quarterWay(from, azimuth);
    return vincentyDistance(from, way) + vincentyDistance(way, to);
  };
  constexpr std::size_t kDirections = 72;
  constexpr double kStep = 2 * kPi / kDirections;
  std::array<double, kDirections> detours{};
  for (std::size_t i = 0; i < kDirections; ++i) detours[i] = detour(static_cast<double>(i) * kStep);

  double shortest = *std::min_element(detours.begin(), detours.end());
  for (std::size_t i = 0; i < kDirections; ++i) {
    const double left = detours[(i + kDirections - 1) % kDirections];
    const double right = detours[(i + 1) % kDirections];
    if (detours[i] > left || detours[i] > right) continue;
    // Golden-section search around this dip.
    constexpr double kShrink = 1 / std::numbers::phi;
    double low = (static_cast<double>(i) - 1) * kStep;
    double high = (static_cast<double>(i) + 1) * kStep;
    while (high - low > 1e-8) {
      const double inner = high - (high - low) * kShrink;
      const double outer = low + (high - low) * kShrink;
      const double innerDetour = detour(inner);
      const double outerDetour = detour(outer);
      shortest = std::min({shortest, innerDetour, outerDetour});
      (innerDetour < outerDetour ? high : low) = innerDetour < outerDetour ? outer : inner;
    }
  }
  return shortest;
}

bool isBefore(const CLLocationCoordinate2D& one, const CLLocationCoordinate2D& other) {
  return one.latitude < other.latitude ||
         (one.latitude == other.latitude && one.longitude < other.longitude);
}

}  // namespace

double CLLocation::distanceFromLocation(const CLLocation& other) const {
  if (coordinate == other.coordinate) return 0;
  if (!std::isfinite(coordinate.latitude) || !std::isfinite(coordinate.longitude) ||
      !std::isfinite(other.coordinate.latitude) || !std::isfinite(other.coordinate.longitude)) {
    return std::nan("");
  }
  // Always from the same end: rounding must not make the way there longer than the way back, or
  // two equal distances would compare as different.
  const auto [from, to] = std::minmax(coordinate, other.coordinate, isBefore);
  const double distance = vincentyDistance(from, to);
  return distance < kInfinity ? distance : antipodalDistance(from, to);
}

}  // namespace wayfell
