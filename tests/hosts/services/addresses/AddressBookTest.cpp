// The book on disk. Distances are worked out here on a sphere of 6371008.8 m with the law of
// cosines in long double, not with the formula of the book.
#include "hosts/services/addresses/AddressBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>

#include "Book.h"
#include "support/Folder.h"
#include "support/Sql.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// One metre north or south, in degrees.
constexpr double kMetre = 360 / (2 * 3.14159265358979 * 6371008.8);

long double distance(const CLLocationCoordinate2D& a, const CLLocationCoordinate2D& b) {
  const long double degree = std::acos(-1.0L) / 180;
  const auto vector = [degree](const CLLocationCoordinate2D& p) {
    const long double lat = p.latitude * degree;
    const long double lon = p.longitude * degree;
    return std::array{std::cos(lat) * std::cos(lon), std::cos(lat) * std::sin(lon), std::sin(lat)};
  };
  const auto u = vector(a);
  const auto v = vector(b);
  long double square = 0;
  for (std::size_t i = 0; i < 3; ++i) square += (u[i] - v[i]) * (u[i] - v[i]);
  return 2 * 6371008.8L * std::asin(std::sqrt(square) / 2);
}

TEST(AddressBookTest, FindsTheNearestAtTheEdgesOfWhatItSearches) {
  struct Case {
    const char* what;
    CLLocationCoordinate2D at;
    std::vector<CLLocationCoordinate2D> houses;  // numbered from 1
    std::string street;
  };
  const Case cases[] = {
      {"just within", {48, 16}, {{48 + 99.9 * kMetre, 16}}, "1 Main Street"},
      {"just beyond", {48, 16}, {{48 + 100.1 * kMetre, 16}}, ""},
      {"a corner of the box, beyond", {0, 0}, {{80 * kMetre, 80 * kMetre}}, ""},
      {"the first of two as near", {0, 0}, {{20 * kMetre, 0}, {-20 * kMetre, 0}}, "1 Main Street"},
      {"180 and -180 are one", {10, 180}, {{10, -180}}, "1 Main Street"},
      {"-180 and 180 are one", {10, -180}, {{10, 180}}, "1 Main Street"},
      {"over the north pole", {90 - 30 * kMetre, 0}, {{90 - 30 * kMetre, 180}}, "1 Main Street"},
      {"at the south pole", {-90, 0}, {{-90 + 60 * kMetre, 77}}, "1 Main Street"},
      {"no latitude", {90.1, 0}, {{90, 0}}, ""},
      {"not a number", {std::nan(""), 0}, {{0, 0}}, ""},
  };
  for (const Case& c : cases) {
    const Folder folder;
    std::vector<AddressRow> rows;
    for (const auto& position : c.houses) {
      rows.push_back(house(position.latitude, position.longitude, std::to_string(rows.size() + 1)));
    }
    makeBook(folder / "book", rows);
    WatchedBook watched(folder / "book");
    EXPECT_EQ(watched.streetAt(c.at.latitude, c.at.longitude), c.street) << c.what;
    EXPECT_THAT(watched.warnings, IsEmpty()) << c.what;
  }
}

TEST(AddressBookTest, AgreesWithLookingAtEveryAddress) {
  const Folder folder;
  std::mt19937 chance(1);
  struct Region {
    CLLocationCoordinate2D centre;
    double degrees;  // half its height and width
  };
  const Region regions[] = {
      {{48, 16}, 0.01}, {{-33, 180}, 0.005}, {{89.997, 0}, 0.003}, {{0, 0}, 0.002}};
  const auto anywhere = [&](const Region& region) {
    std::uniform_real_distribution<double> offset(-region.degrees, region.degrees);
    CLLocationCoordinate2D position = region.centre;
    position.latitude = std::min(90.0, position.latitude + offset(chance));
    // All around the pole.
    position.longitude += region.centre.latitude > 80 ? offset(chance) * 60000 : offset(chance);
    if (position.longitude > 180) position.longitude -= 360;
    return position;
  };
  std::vector<AddressRow> rows;
  for (const Region& region : regions) {
    for (int i = 0; i < 800; ++i) {
      const CLLocationCoordinate2D position = anywhere(region);
      rows.push_back(house(position.latitude, position.longitude, std::to_string(rows.size())));
    }
  }
  makeBook(folder / "book", rows);
  WatchedBook watched(folder / "book");
  int found = 0;
  for (const Region& region : regions) {
    for (int i = 0; i < 150; ++i) {
      const CLLocationCoordinate2D at = anywhere(region);
      long double nearest = 1e9L;
      for (const AddressRow& row : rows) {
        nearest = std::min(nearest, distance(at, {row.latitude, row.longitude}));
      }
      const auto answer = watched.book.nearest(at);
      // The file keeps positions to 1e-7 degrees, about 1 cm.
      if (std::abs(nearest - AddressBook::kRadius) < 0.02L) continue;
      ASSERT_EQ(answer.has_value(), nearest < AddressBook::kRadius)
          << at.latitude << ' ' << at.longitude;
      if (!answer) continue;
      ++found;
      EXPECT_NEAR(answer->distance, static_cast<double>(nearest), 0.02);
    }
  }
  EXPECT_GT(found, 200);  // else nothing is proven
}

TEST(AddressBookTest, TakesUpANewBook) {
  const Folder folder;
  WatchedBook watched(folder / "book");
  EXPECT_EQ(watched.streetAt(1, 1), "");
  EXPECT_EQ(watched.streetAt(1, 1), "");
  EXPECT_THAT(watched.warnings, ElementsAre(HasSubstr("there is no address book")));
  makeBook(folder / "book", {house(1, 1, "1")});
  EXPECT_EQ(watched.streetAt(1, 1), "1 Main Street");
  makeBook(folder / "book", {house(1, 1, "2"), house(2, 2, "3")});
  EXPECT_EQ(watched.streetAt(1, 1), "2 Main Street");
  makeBook(folder / "book", {house(3, 3, "4")}, BookImport::Start::withOld);
  EXPECT_EQ(watched.streetAt(2, 2), "3 Main Street");
  EXPECT_EQ(watched.streetAt(3, 3), "4 Main Street");
  std::filesystem::remove(folder / "book");
  EXPECT_EQ(watched.streetAt(1, 1), "");
  EXPECT_EQ(watched.warnings.size(), 2U);

  WatchedBook silent(folder / "book", AddressBook::Missing::isFine);
  EXPECT_EQ(silent.streetAt(1, 1), "");
  EXPECT_THAT(silent.warnings, IsEmpty());
}

TEST(AddressBookTest, WarnsOnceOfABookThatCannotBeUsed) {
  struct Case {
    const char* what;
    std::function<void(const std::filesystem::path& book)> spoil;
  };
  const auto query = [](const char* sql) {
    return [sql](const std::filesystem::path& book) { execute(book, sql); };
  };
  const Case cases[] = {
      {"not a database",
       [](const auto& book) { std::ofstream(book) << "hello, addresses, hello"; }},
      {"not an address book", query("PRAGMA application_id = 1")},
      {"newer wayfell", query("PRAGMA user_version = 99")},
      {"no such table", query("DROP TABLE town")},
      {"", [](const auto& book) { std::filesystem::resize_file(book, 8192); }},
      {"RTree", query("UPDATE address_node SET data = zeroblob(10)")},
      {"not an address book", [](const auto& book) { std::filesystem::resize_file(book, 0); }},
  };
  for (const Case& c : cases) {
    const Folder folder;
    std::vector<AddressRow> rows;
    for (int i = 0; i < 1000; ++i) rows.push_back(house(i * 0.01, 1, std::to_string(i)));
    makeBook(folder / "book", rows);
    c.spoil(folder / "book");
    WatchedBook watched(folder / "book");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(watched.streetAt(1, 1), "") << c.what;
    EXPECT_THAT(watched.warnings, ElementsAre(HasSubstr(c.what))) << c.what;
    makeBook(folder / "book", rows);
    EXPECT_EQ(watched.streetAt(1, 1), "100 Main Street") << c.what;
  }
}

}  // namespace
}  // namespace wayfell
