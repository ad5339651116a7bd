// Lookups in a book of a million made-up addresses, made anew for each run (about ten seconds).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/BookImport.h"

namespace wayfell {
namespace {

constexpr double kMetre = 9e-6;  // degrees of latitude, roughly
constexpr CLLocationCoordinate2D kTowns = {40, -100};
constexpr CLLocationCoordinate2D kTower = {20, 20};

// A folder with the book in it, deleted in the end.
class Book {
 public:
  Book() {
    std::string name = (std::filesystem::temp_directory_path() / "wayfell-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    folder_ = name;
    BookImport import(path(), BookImport::Start::empty);
    import.setCountry("US");
    AddressRow row;
    row.city = "Town";
    // A thousand streets of houses 10 m apart, 10 m from one another.
    for (int i = 0; i < 990000; ++i) {
      row.latitude = kTowns.latitude + i / 990 * 10 * kMetre;
      row.longitude = kTowns.longitude + i % 990 * 10 * kMetre;
      row.number = std::to_string(i % 990);
      row.street = "Street " + std::to_string(i / 990);
      import.add(row);
    }
    // Flats at one place.
    row.latitude = kTower.latitude;
    row.longitude = kTower.longitude;
    for (int i = 0; i < 10000; ++i) import.add(row);
    import.commit();
  }
  ~Book() { std::filesystem::remove_all(folder_); }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  std::filesystem::path path() const { return folder_ / "addresses.db"; }

 private:
  std::filesystem::path folder_;
};

void lookUp(benchmark::State& state, CLLocationCoordinate2D position) {
  static const Book kBook;
  AddressBook book(kBook.path(), AddressBook::Missing::isWarnedAbout, [](const std::string&) {});
  bool found = false;
  for (auto _ : state) {
    found = book.nearest(position).has_value();
    position.longitude += 1e-7;  // not the same place each time
  }
  state.SetLabel(found ? "found" : "nothing found");
}

BENCHMARK_CAPTURE(lookUp, town,
                  CLLocationCoordinate2D{kTowns.latitude + 0.04, kTowns.longitude + 0.02});
BENCHMARK_CAPTURE(lookUp, emptyOcean, CLLocationCoordinate2D{-40, -150});
BENCHMARK_CAPTURE(lookUp, justWithin,
                  CLLocationCoordinate2D{kTowns.latitude - 99 * kMetre, kTowns.longitude + 0.02});
BENCHMARK_CAPTURE(lookUp, justBeyond,
                  CLLocationCoordinate2D{kTowns.latitude - 101 * kMetre, kTowns.longitude + 0.02});
BENCHMARK_CAPTURE(lookUp, tenThousandFlats, kTower);
BENCHMARK_CAPTURE(lookUp, pole, CLLocationCoordinate2D{90, 0});

}  // namespace
}  // namespace wayfell
