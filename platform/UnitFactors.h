// Figures that turn metres, metres per second and degrees into the units that people read, and pi.
//
// Texts are exact to the last digit, so a formula keeps its figures and their order: a value times
// kRadiansPerDegree and one times kPi, divided by 180, may differ in the last bit, as may one in
// feet by way of miles and one by kFeetPerMetre.
#pragma once

namespace wayfell {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kRadiansPerDegree = 0.017453292519943295;
inline constexpr double kDegreesPerRadian = 57.29577951308232;

inline constexpr double kMilesPerKilometre = 0.621371192;
inline constexpr double kFeetPerMile = 5280;
inline constexpr double kFeetPerMetre = 3.2808399;
inline constexpr double kYardsPerMetre = 1.09361;
inline constexpr double kNauticalMilesPerMetre = 0.000539956803;

inline constexpr double kMetresPerFoot = 0.3048;
inline constexpr double kMetresPerMile = 1609.344;
inline constexpr double kMetresPerNauticalMile = 1852;

// How many of each unit make a metre per second.
inline constexpr double kMilesPerHour = 2.2369363;
inline constexpr double kKilometresPerHour = 3.6;
inline constexpr double kKnots = 1.94384449;

/// Metres per second, exactly.
inline constexpr double kTenMilesPerHour = 4.4704;

constexpr double kilometres(double metres) { return metres / 1000; }
constexpr double miles(double metres) { return kilometres(metres) * kMilesPerKilometre; }
/// Feet of a distance. Altitudes have kFeetPerMetre.
constexpr double feet(double metres) { return miles(metres) * kFeetPerMile; }
constexpr double nauticalMiles(double metres) { return metres * kNauticalMilesPerMetre; }
/// 6400 to the circle.
constexpr double mils(double degrees) { return degrees * 6400 / 360; }

}  // namespace wayfell
