// Moves positions between the default datum (WGS 84, in which receivers report) and the datum that
// the user selected, and knows the ellipsoid of each.
//
// Latitudes and longitudes are decimal degrees, north and east positive; heights, axes and shifts
// are metres; a flattening is f, not 1/f. A datum is named as the catalogue names it, in the
// user's language, or by a token: "default", or "selected" for the one that the setting
// "selectedDatum" names. That setting is read afresh by every operation, so that a change of it
// takes effect at once.
//
// Nothing is reported: an unknown datum has no shift and an ellipsoid of axis 0 and flattening
// +infinity, which makes positions on it not finite. A longitude may come out just beyond 180,
// and at a pole anywhere.
//
// The catalogue is built on first use, without a lock: one thread at a time.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/CLLocation.h"

namespace wayfell {

/// Size and shape of an ellipsoid of revolution.
struct EllipsoidShape {
  double axis;  ///< semi-major, metres
  double flattening;
};

class DatumManager {
 public:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  template <class Value>
  using Dictionary = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
  using TextDictionary = Dictionary<std::string>;
  using NumberDictionary = Dictionary<double>;

  DatumManager() = default;
  DatumManager(const DatumManager&) = delete;
  DatumManager& operator=(const DatumManager&) = delete;

  /// The process's one manager, made on the first call and never released.
  static DatumManager& sharedInstance();

  // Positions. The shift applied is always that of the stored "selectedDatum", whichever two
  // datums are named, and `fromDatum` alone chooses its direction. A stored name that the catalogue
  // lacks is first replaced by the default datum's, for good.

  double datumLatitudeConvertLatAndLongHeightFromDatumToDatum(
      double latitude, double longitude, double height, std::optional<std::string_view> fromDatum,
      std::optional<std::string_view> toDatum) const;
  double datumLongitudeConvertLatAndLongHeightFromDatumToDatum(
      double latitude, double longitude, double height, std::optional<std::string_view> fromDatum,
      std::optional<std::string_view> toDatum) const;
  double selectedLatitudeFromDefaultLatAndLong(double latitude, double longitude) const;
  double selectedLongitudeFromDefaultLatAndLong(double latitude, double longitude) const;
  double defaultLatitudeFromSelectedLatAndLong(double latitude, double longitude) const;
  double defaultLongitudeFromSelectedLatAndLong(double latitude, double longitude) const;

  /// Both halves of the conversions above at the price of one.
  CLLocationCoordinate2D selectedFromDefault(double latitude, double longitude) const;
  CLLocationCoordinate2D defaultFromSelected(double latitude, double longitude) const;

  // Ellipsoids. Each keeps what it computed in the property of its name. Those of the selected
  // datum store the default datum's name when none is stored, but leave an unknown name alone.

  double getDefaultAxis();
  double getDefaultFlattening();
  double getSelectedAxis();
  double getSelectedFlattening();
  /// The last two at the price of one.
  EllipsoidShape selectedEllipsoid();

  /// Whether the four values below are current. Never: they are computed by every getter anew.
  bool valuesUpdated() const { return valuesUpdated_; }
  double defaultAxis() const { return defaultAxis_; }
  double defaultFlattening() const { return defaultFlattening_; }
  double selectedAxis() const { return selectedAxis_; }
  double selectedFlattening() const { return selectedFlattening_; }

  // The catalogue, entry by entry. What it lacks reads as 0.

  std::optional<std::string> getEllipsoidFromDatum(std::string_view datum) const;
  double getAxisFromDatum(std::string_view datum) const;
  double getFlatteningFromDatum(std::string_view datum) const;
  double getAxisFromEllipsoid(std::string_view ellipsoid) const;
  /// 1 / the inverse flattening, hence +infinity for an unknown ellipsoid.
  double getFlatteningFromEllipsoid(std::string_view ellipsoid) const;
  double getDxFromDatum(std::string_view datum) const;
  double getDyFromDatum(std::string_view datum) const;
  /// Reads dzDictionary(), which nothing fills: 0 for every datum, so that no conversion shifts
  /// along z.
  double getDzFromDatum(std::string_view datum) const;

  // The catalogue, table by table. Each is built when first asked for, from names translated at
  // that moment, and stays as it is until its setter replaces it; none has it built again. A
  // reference lasts as long as the table.

  /// Names of the datums, in catalogue order.
  const std::vector<std::string>& datumAndRegions() const;
  /// Each name to itself: the test of membership.
  const TextDictionary& datums() const;
  /// Datum to ellipsoid.
  const TextDictionary& ellipsoidsDictionary() const;
  /// Datum to metres.
  const NumberDictionary& dxDictionary() const;
  const NumberDictionary& dyDictionary() const;
  /// What is stored: none, unless dzDicionary() was called or something was set.
  const std::optional<NumberDictionary>& dzDictionary() const { return dzDictionary_; }
  /// Builds and stores the z shifts, with which conversions then reckon. Nothing in the system
  /// calls it. The misspelling belongs to the name.
  const NumberDictionary& dzDicionary();
  /// Ellipsoid to metres.
  const NumberDictionary& axisDictionary() const;
  /// Ellipsoid to 1/f, whatever the name suggests.
  const NumberDictionary& flatteningDictionary() const;

  void setDatumAndRegions(std::optional<std::vector<std::string>> names);
  void setDatums(std::optional<TextDictionary> names);
  void setEllipsoidsDictionary(std::optional<TextDictionary> ellipsoids);
  void setDxDictionary(std::optional<NumberDictionary> metres);
  void setDyDictionary(std::optional<NumberDictionary> metres);
  void setDzDictionary(std::optional<NumberDictionary> metres);
  void setAxisDictionary(std::optional<NumberDictionary> metres);
  void setFlatteningDictionary(std::optional<NumberDictionary> inverseFlattenings);

 private:
  CLLocationCoordinate2D converted(double latitude, double longitude, double height,
                                   std::optional<std::string_view> fromDatum,
                                   std::optional<std::string_view> toDatum) const;
  EllipsoidShape ellipsoidOf(std::string_view datum) const;
  /// Empty for an unknown datum.
  std::string_view ellipsoidName(std::string_view datum) const;

  bool valuesUpdated_ = false;
  double defaultAxis_ = 0;
  double defaultFlattening_ = 0;
  double selectedAxis_ = 0;
  double selectedFlattening_ = 0;

  std::optional<NumberDictionary> dzDictionary_;
  // Built by the getters of their names.
  mutable std::optional<std::vector<std::string>> datumAndRegions_;
  mutable std::optional<TextDictionary> datums_;
  mutable std::optional<TextDictionary> ellipsoidsDictionary_;
  mutable std::optional<NumberDictionary> dxDictionary_;
  mutable std::optional<NumberDictionary> dyDictionary_;
  mutable std::optional<NumberDictionary> axisDictionary_;
  mutable std::optional<NumberDictionary> flatteningDictionary_;
};

}  // namespace wayfell
