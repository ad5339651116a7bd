// Address books made for tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/services/addresses/AddressBook.h"
#include "hosts/services/addresses/BookImport.h"

namespace wayfell {

inline AddressRow house(double latitude, double longitude, const std::string& number) {
  return {latitude, longitude, number, "Main Street", "Springfield", "IL"};
}

inline void makeBook(const std::filesystem::path& path, const std::vector<AddressRow>& rows,
                     BookImport::Start start = BookImport::Start::empty) {
  BookImport import(path, start);
  import.setCountry("US");
  for (const AddressRow& row : rows) import.add(row);
  import.commit();
}

/// A book that collects its warnings.
struct WatchedBook {
  explicit WatchedBook(const std::filesystem::path& path,
                       AddressBook::Missing missing = AddressBook::Missing::isWarnedAbout)
      : book(path, missing, [this](const std::string& warning) { warnings.push_back(warning); }) {}

  /// The street found there, or nothing.
  std::string streetAt(double latitude, double longitude) {
    const auto found = book.nearest({latitude, longitude});
    return found ? found->placemark.postalAddress->street.value_or("no street") : "";
  }

  std::vector<std::string> warnings;
  AddressBook book;
};

}  // namespace wayfell
