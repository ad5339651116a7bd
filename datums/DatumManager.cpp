#include "datums/DatumManager.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

#include "datums/Catalogue.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/UnitFactors.h"
#include "settings/UserDefaults.h"

namespace wayfell {
namespace {

constexpr std::string_view kSelectedDatumKey = "selectedDatum";
constexpr std::string_view kDefault = "default";
constexpr std::string_view kSelected = "selected";

std::string_view defaultDatumName() { return localized(kDatums.front().name); }

// The names below are good until the next call on the settings.

const PropertyValue* storedDatum() {
  const auto defaults = NSUserDefaults::standardUserDefaults();
  return defaults ? defaults->find(kSelectedDatumKey) : nullptr;
}

// A stored value that is not a text names nothing.
std::string_view nameIn(const PropertyValue* setting) {
  const auto* text = setting ? std::get_if<std::string>(&setting->storage()) : nullptr;
  return text ? std::string_view(*text) : std::string_view();
}

std::string_view storeDefaultDatum() {
  UserDefaults::setObjectForKey(PropertyValue(defaultDatumName()), kSelectedDatumKey);
  return defaultDatumName();
}

// The stored "selectedDatum", which becomes the default datum where there is none.
std::string_view selectedDatumOrDefault() {
  const PropertyValue* setting = storedDatum();
  return setting ? nameIn(setting) : storeDefaultDatum();
}

std::string_view resolved(std::optional<std::string_view> datum, std::string_view selectedDatum) {
  if (datum == kSelected) datum = selectedDatum;
  if (!datum || datum == kDefault) return defaultDatumName();
  return *datum;
}

struct Shift {
  double x;  // metres, as the others
  double y;
  double z;
};

// The standard, not the abridged, Molodensky formulas. Without guards: at a pole the longitude
// divides by a cosine of about 6e-17.
CLLocationCoordinate2D molodensky(double latitude, double longitude, double height,
                                  const EllipsoidShape& from, const EllipsoidShape& to,
                                  const Shift& shift) {
  const double a = from.axis;
  const double f = from.flattening;
  const double phi = latitude * kPi / 180;
  const double lambda = longitude * kPi / 180;
  const double sinPhi = std::sin(phi);
  const double cosPhi = std::cos(phi);
  const double sinLambda = std::sin(lambda);
  const double cosLambda = std::cos(lambda);

  const double e2 = std::fma(f, 2.0, -(f * f));
  const double w2 = 1 - e2 * (sinPhi * sinPhi);
  const double n = a / std::sqrt(w2);                 // prime vertical radius
  const double m = a * (1 - e2) / std::pow(w2, 1.5);  // meridian radius
  const double deltaA = to.axis - a;
  const double deltaF = to.flattening - f;

  const double northward = -shift.x * sinPhi * cosLambda - shift.y * sinPhi * sinLambda +
                           shift.z * cosPhi + deltaA * (n * e2 * sinPhi * cosPhi) / a +
                           deltaF * (m / (1 - f) + n * (1 - f)) * sinPhi * cosPhi;
  const double deltaPhi = northward / (m + height);
  const double deltaLambda = (-shift.x * sinLambda + shift.y * cosLambda) / (cosPhi * (n + height));
  return {(phi + deltaPhi) * 180 / kPi, (lambda + deltaLambda) * 180 / kPi};
}

double numberFor(std::string_view key, const DatumManager::NumberDictionary& numbers) {
  const auto found = numbers.find(key);
  return found == numbers.end() ? 0.0 : found->second;
}

// The member, built when it is absent.
template <class Member, class Build>
const Member& lazily(std::optional<Member>& member, Build build) {
  if (!member) member = build();
  return *member;
}

// Pairs each datum name with a column of the catalogue, by position.
template <class Value, class Column>
DatumManager::Dictionary<Value> byDatum(const std::vector<std::string>& names, Column column) {
  DatumManager::Dictionary<Value> dictionary;
  const std::size_t count = std::min(names.size(), kDatums.size());
  dictionary.reserve(count);
  for (std::size_t i = 0; i < count; ++i) dictionary.emplace(names[i], kDatums[i].*column);
  return dictionary;
}

DatumManager::NumberDictionary byEllipsoid(double CatalogueEllipsoid::*column) {
  DatumManager::NumberDictionary dictionary;
  dictionary.reserve(kEllipsoids.size());
  for (const CatalogueEllipsoid& row : kEllipsoids) dictionary.emplace(row.name, row.*column);
  return dictionary;
}

}  // namespace

DatumManager& DatumManager::sharedInstance() {
  static DatumManager& instance = *new DatumManager;
  return instance;
}

// --- Positions -----------------------------------------------------------------------------

CLLocationCoordinate2D DatumManager::converted(double latitude, double longitude, double height,
                                               std::optional<std::string_view> fromDatum,
                                               std::optional<std::string_view> toDatum) const {
  std::string_view selected = nameIn(storedDatum());
  if (!datums().contains(selected)) selected = storeDefaultDatum();
  const std::string_view from = resolved(fromDatum, selected);
  const std::string_view to = resolved(toDatum, selected);

  // The catalogue's shifts lead to WGS 84.
  const double sign = from == defaultDatumName() ? -1 : 1;
  const Shift shift = {sign * getDxFromDatum(selected), sign * getDyFromDatum(selected),
                       sign * getDzFromDatum(selected)};
  return molodensky(latitude, longitude, height, ellipsoidOf(from), ellipsoidOf(to), shift);
}

double DatumManager::datumLatitudeConvertLatAndLongHeightFromDatumToDatum(
    double latitude, double longitude, double height, std::optional<std::string_view> fromDatum,
    std::optional<std::string_view> toDatum) const {
  return converted(latitude, longitude, height, fromDatum, toDatum).latitude;
}

double DatumManager::datumLongitudeConvertLatAndLongHeightFromDatumToDatum(
    double latitude, double longitude, double height, std::optional<std::string_view> fromDatum,
    std::optional<std::string_view> toDatum) const {
  return converted(latitude, longitude, height, fromDatum, toDatum).longitude;
}

CLLocationCoordinate2D DatumManager::selectedFromDefault(double latitude, double longitude) const {
  return converted(latitude, longitude, 0, kDefault, kSelected);
}

CLLocationCoordinate2D DatumManager::defaultFromSelected(double latitude, double longitude) const {
  return converted(latitude, longitude, 0, kSelected, kDefault);
}

double DatumManager::selectedLatitudeFromDefaultLatAndLong(double latitude,
                                                           double longitude) const {
  return selectedFromDefault(latitude, longitude).latitude;
}

double DatumManager::selectedLongitudeFromDefaultLatAndLong(double latitude,
                                                            double longitude) const {
  return selectedFromDefault(latitude, longitude).longitude;
}

double DatumManager::defaultLatitudeFromSelectedLatAndLong(double latitude,
                                                           double longitude) const {
  return defaultFromSelected(latitude, longitude).latitude;
}

double DatumManager::defaultLongitudeFromSelectedLatAndLong(double latitude,
                                                            double longitude) const {
  return defaultFromSelected(latitude, longitude).longitude;
}

// --- Ellipsoids ----------------------------------------------------------------------------

double DatumManager::getDefaultAxis() {
  if (!valuesUpdated_) defaultAxis_ = getAxisFromDatum(defaultDatumName());
  return defaultAxis_;
}

double DatumManager::getDefaultFlattening() {
  if (!valuesUpdated_) defaultFlattening_ = getFlatteningFromDatum(defaultDatumName());
  return defaultFlattening_;
}

double DatumManager::getSelectedAxis() {
  if (!valuesUpdated_) selectedAxis_ = getAxisFromDatum(selectedDatumOrDefault());
  return selectedAxis_;
}

double DatumManager::getSelectedFlattening() {
  if (!valuesUpdated_) {
    selectedFlattening_ = getFlatteningFromDatum(selectedDatumOrDefault());
  }
  return selectedFlattening_;
}

EllipsoidShape DatumManager::selectedEllipsoid() {
  if (!valuesUpdated_) {
    const EllipsoidShape shape = ellipsoidOf(selectedDatumOrDefault());
    selectedAxis_ = shape.axis;
    selectedFlattening_ = shape.flattening;
  }
  return {selectedAxis_, selectedFlattening_};
}

// --- Entries -------------------------------------------------------------------------------

std::string_view DatumManager::ellipsoidName(std::string_view datum) const {
  const auto found = ellipsoidsDictionary().find(datum);
  return found == ellipsoidsDictionary().end() ? std::string_view() : found->second;
}

EllipsoidShape DatumManager::ellipsoidOf(std::string_view datum) const {
  const std::string_view ellipsoid = ellipsoidName(datum);
  return {getAxisFromEllipsoid(ellipsoid), getFlatteningFromEllipsoid(ellipsoid)};
}

std::optional<std::string> DatumManager::getEllipsoidFromDatum(std::string_view datum) const {
  const auto found = ellipsoidsDictionary().find(datum);
  if (found == ellipsoidsDictionary().end()) return std::nullopt;
  return found->second;
}

double DatumManager::getAxisFromDatum(std::string_view datum) const {
  return getAxisFromEllipsoid(ellipsoidName(datum));
}

double DatumManager::getFlatteningFromDatum(std::string_view datum) const {
  return getFlatteningFromEllipsoid(ellipsoidName(datum));
}

double DatumManager::getAxisFromEllipsoid(std::string_view ellipsoid) const {
  return numberFor(ellipsoid, axisDictionary());
}

double DatumManager::getFlatteningFromEllipsoid(std::string_view ellipsoid) const {
  return 1 / numberFor(ellipsoid, flatteningDictionary());
}

double DatumManager::getDxFromDatum(std::string_view datum) const {
  return numberFor(datum, dxDictionary());
}

double DatumManager::getDyFromDatum(std::string_view datum) const {
  return numberFor(datum, dyDictionary());
}

double DatumManager::getDzFromDatum(std::string_view datum) const {
  return dzDictionary_ ? numberFor(datum, *dzDictionary_) : 0.0;
}

// --- Tables --------------------------------------------------------------------------------

const std::vector<std::string>& DatumManager::datumAndRegions() const {
  return lazily(datumAndRegions_, [] {
    std::vector<std::string> names;
    names.reserve(kDatums.size());
    for (const CatalogueDatum& row : kDatums) names.emplace_back(localized(row.name));
    return names;
  });
}

const DatumManager::TextDictionary& DatumManager::datums() const {
  return lazily(datums_, [this] {
    TextDictionary names;
    names.reserve(datumAndRegions().size());
    for (const std::string& name : datumAndRegions()) names.emplace(name, name);
    return names;
  });
}

const DatumManager::TextDictionary& DatumManager::ellipsoidsDictionary() const {
  return lazily(ellipsoidsDictionary_, [this] {
    return byDatum<std::string>(datumAndRegions(), &CatalogueDatum::ellipsoid);
  });
}

const DatumManager::NumberDictionary& DatumManager::dxDictionary() const {
  return lazily(dxDictionary_,
                [this] { return byDatum<double>(datumAndRegions(), &CatalogueDatum::dx); });
}

const DatumManager::NumberDictionary& DatumManager::dyDictionary() const {
  return lazily(dyDictionary_,
                [this] { return byDatum<double>(datumAndRegions(), &CatalogueDatum::dy); });
}

const DatumManager::NumberDictionary& DatumManager::dzDicionary() {
  return lazily(dzDictionary_,
                [this] { return byDatum<double>(datumAndRegions(), &CatalogueDatum::dz); });
}

const DatumManager::NumberDictionary& DatumManager::axisDictionary() const {
  return lazily(axisDictionary_, [] { return byEllipsoid(&CatalogueEllipsoid::axis); });
}

const DatumManager::NumberDictionary& DatumManager::flatteningDictionary() const {
  return lazily(flatteningDictionary_,
                [] { return byEllipsoid(&CatalogueEllipsoid::inverseFlattening); });
}

void DatumManager::setDatumAndRegions(std::optional<std::vector<std::string>> names) {
  datumAndRegions_ = std::move(names);
}

void DatumManager::setDatums(std::optional<TextDictionary> names) { datums_ = std::move(names); }

void DatumManager::setEllipsoidsDictionary(std::optional<TextDictionary> ellipsoids) {
  ellipsoidsDictionary_ = std::move(ellipsoids);
}

void DatumManager::setDxDictionary(std::optional<NumberDictionary> metres) {
  dxDictionary_ = std::move(metres);
}

void DatumManager::setDyDictionary(std::optional<NumberDictionary> metres) {
  dyDictionary_ = std::move(metres);
}

void DatumManager::setDzDictionary(std::optional<NumberDictionary> metres) {
  dzDictionary_ = std::move(metres);
}

void DatumManager::setAxisDictionary(std::optional<NumberDictionary> metres) {
  axisDictionary_ = std::move(metres);
}

void DatumManager::setFlatteningDictionary(std::optional<NumberDictionary> inverseFlattenings) {
  flatteningDictionary_ = std::move(inverseFlattenings);
}

}  // namespace wayfell
