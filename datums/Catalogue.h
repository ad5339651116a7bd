// The fixed data of the datum manager: reference ellipsoids and geodetic datums, in catalogue
// order. Constants of the program; nothing is built when it starts.
#pragma once

#include <array>
#include <string_view>

namespace wayfell {

struct CatalogueEllipsoid {
  std::string_view name;
  double axis;               ///< semi-major, metres
  double inverseFlattening;  ///< 1/f
};

struct CatalogueDatum {
  /// Datum and region, joined by three hyphens. The key of its translation.
  std::string_view name;
  std::string_view ellipsoid;
  /// Shift from this datum to WGS 84, metres.
  double dx;
  double dy;
  double dz;
};

extern const std::array<CatalogueEllipsoid, 23> kEllipsoids;
/// The first is the default datum.
extern const std::array<CatalogueDatum, 229> kDatums;

}  // namespace wayfell
