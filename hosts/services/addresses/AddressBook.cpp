#include "hosts/services/addresses/AddressBook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "hosts/places/PositionText.h"
#include "hosts/services/addresses/BookFile.h"
#include "hosts/services/addresses/StreetText.h"
#include "hosts/services/sqlite/Sqlite.h"
#include "platform/NSBundle.h"
#include "platform/UnitFactors.h"

namespace wayfell {
namespace {

constexpr double kEarthRadius = 6371008.8;  // metres; the mean of WGS 84's
constexpr double kHalfTurn = kGreatestLongitude * kBookUnitsPerDegree;

double radians(double degrees) { return degrees * kPi / 180; }
double degrees(double radians) { return radians * 180 / kPi; }

// The haversine formula, which keeps its digits at small distances.
double greatCircle(const CLLocationCoordinate2D& a, const CLLocationCoordinate2D& b) {
  const double north = std::sin(radians(b.latitude - a.latitude) / 2);
  const double east = std::sin(radians(b.longitude - a.longitude) / 2);
  const double h =
      north * north + std::cos(radians(a.latitude)) * std::cos(radians(b.latitude)) * east * east;
  return 2 * kEarthRadius * std::asin(std::min(1.0, std::sqrt(h)));
}

// In units of the book.
struct Box {
  double west;
  double east;
  double south;
  double north;
};

// Boxes that hold all that is within a distance of a position, and hardly more: one, or two where
// the antimeridian lies between, or one all around near a pole.
std::vector<Box> boxesAround(const CLLocationCoordinate2D& position, double distance) {
  // A whole number of units more on each side: positions in the book are rounded.
  constexpr double kMargin = 2;
  const double angle = distance / kEarthRadius;
  const double up = degrees(angle);
  const double south = std::floor((position.latitude - up) * kBookUnitsPerDegree) - kMargin;
  const double north = std::ceil((position.latitude + up) * kBookUnitsPerDegree) + kMargin;
  if (std::abs(position.latitude) + up >= kGreatestLatitude)
    return {{-kHalfTurn, kHalfTurn, south, north}};
  // Where the circle's easternmost point is, which lies a little poleward of its centre.
  const double aside = degrees(std::asin(std::sin(angle) / std::cos(radians(position.latitude))));
  const double west = std::floor((position.longitude - aside) * kBookUnitsPerDegree) - kMargin;
  const double east = std::ceil((position.longitude + aside) * kBookUnitsPerDegree) + kMargin;
  if (west <= -kHalfTurn) {
    return {{-kHalfTurn, east, south, north}, {west + 2 * kHalfTurn, kHalfTurn, south, north}};
  }
  if (east >= kHalfTurn) {
    return {{west, kHalfTurn, south, north}, {-kHalfTurn, east - 2 * kHalfTurn, south, north}};
  }
  return {{west, east, south, north}};
}

}  // namespace

// An open book.
class AddressBook::Pages {
 public:
  explicit Pages(const std::filesystem::path& file)
      : book_(openBook(file)),
        within_(book_,
                "SELECT id, west, south FROM address "
                "WHERE west >= ?1 AND east <= ?2 AND south >= ?3 AND north <= ?4"),
        read_(book_,
              "SELECT number, name, city, region, country FROM address "
              "JOIN street ON street.id = address.street JOIN town ON town.id = street.town "
              "WHERE address.id = ?1") {}

  // A town has hundreds of addresses within the radius, and the nearest is mostly a few metres off:
  // the circle grows until it holds one.
  std::optional<Found> nearest(const CLLocationCoordinate2D& position) {
    for (const double distance : {kRadius / 9, kRadius / 3, kRadius}) {
      if (const auto candidate = nearestWithin(position, distance)) return read(*candidate);
    }
    return std::nullopt;
  }

 private:
  struct Candidate {
    double distance;
    std::int64_t id;  // of two at one distance the first is taken
    CLLocationCoordinate2D position;

    bool operator<(const Candidate& other) const {
      return std::pair(distance, id) < std::pair(other.distance, other.id);
    }
  };

  std::optional<Candidate> nearestWithin(const CLLocationCoordinate2D& position, double distance) {
    std::optional<Candidate> best;
    for (const Box& box : boxesAround(position, distance)) {
      const StatementRun run(within_);
      SQLite::bind(within_, box.west, box.east, box.south, box.north);
      while (within_.executeStep()) {
        const CLLocationCoordinate2D there = {
            within_.getColumn(2).getDouble() / kBookUnitsPerDegree,
            within_.getColumn(1).getDouble() / kBookUnitsPerDegree};
        const Candidate next{greatCircle(position, there), within_.getColumn(0).getInt64(), there};
        if (next.distance <= distance && (!best || next < *best)) best = next;
      }
    }
    return best;
  }

  Found read(const Candidate& candidate) {
    Found found{{}, candidate.position, candidate.distance};
    const StatementRun run(read_);
    read_.bind(1, candidate.id);
    if (read_.executeStep()) {
      const auto text = [this](int column) { return read_.getColumn(column).getString(); };
      found.placemark.postalAddress = CNPostalAddress{streetText(text(0), text(1), text(4)),
                                                      textOrNone(text(2)), textOrNone(text(3))};
    }
    return found;
  }

  SQLite::Database book_;
  SQLite::Statement within_;
  SQLite::Statement read_;
};

AddressBook::AddressBook(std::filesystem::path file, Missing missing, Warn warn)
    : file_(std::move(file)), missing_(missing), warn_(std::move(warn)) {}

AddressBook::~AddressBook() = default;

std::optional<AddressBook::Found> AddressBook::nearest(const CLLocationCoordinate2D& position) {
  takeUpFile();
  if (pages_ == nullptr || !isPosition(position)) return std::nullopt;
  try {
    return pages_->nearest(position);
  } catch (const SQLite::Exception& error) {
    putAside(error.what());
    return std::nullopt;
  }
}

void AddressBook::reverseGeocode(const std::optional<CLLocation>& location, Completion completion) {
  std::optional<std::vector<CLPlacemark>> places;
  if (location) {
    if (auto found = nearest(location->coordinate)) places = {std::move(found->placemark)};
  }
  completion(places);
}

std::string AddressBook::attribution() const {
  return std::string(pages_ ? localized("Addresses: OpenAddresses and its sources") : "");
}

void AddressBook::takeUpFile() {
  const auto now = markOf(file_);
  if (looked_ && now == seen_) return;
  looked_ = true;
  seen_ = now;
  pages_.reset();
  if (!now) {
    if (missing_ == Missing::isWarnedAbout) {
      putAside(std::string(localized("there is no address book")));
    }
    return;
  }
  try {
    pages_ = std::make_unique<Pages>(file_);
  } catch (const std::runtime_error& error) {
    putAside(error.what());
  }
}

void AddressBook::putAside(const std::string& why) {
  pages_.reset();
  warn_(localizedStringWithFormat(
      "%@: %@; there are no addresses until \"wayfell addresses import\" makes a new one",
      file_.string(), why));
}

}  // namespace wayfell
