// Addresses near a position, out of a file on this computer.
//
// The file may be replaced while this is in use: the next lookup takes up the new one. A file that
// is missing (unless that is fine) or cannot be used is warned about once, and lookups fail until
// it can be used.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "hosts/services/Warn.h"
#include "hosts/services/addresses/AttributedGeocoder.h"
#include "hosts/services/stores/StoreFile.h"

namespace wayfell {

class AddressBook : public AttributedGeocoder {
 public:
  /// Metres. The next house is nearer in towns and villages; what is farther away is another place.
  static constexpr double kRadius = 100;

  struct Found {
    CLPlacemark placemark;
    CLLocationCoordinate2D position;
    double distance = 0;  ///< metres along a great circle, at most kRadius
  };

  enum class Missing { isWarnedAbout, isFine };

  AddressBook(std::filesystem::path file, Missing missing, Warn warn);
  ~AddressBook() override;

  /// The nearest address; of several at one distance that which was imported first. None when none
  /// is within kRadius, the position is none, or the book cannot be read.
  std::optional<Found> nearest(const CLLocationCoordinate2D& position);

  /// Answers before it returns.
  void reverseGeocode(const std::optional<CLLocation>& location, Completion completion) override;
  /// Empty until a lookup has opened the book.
  std::string attribution() const override;

 private:
  class Pages;

  void takeUpFile();
  void putAside(const std::string& why);

  std::filesystem::path file_;
  Missing missing_;
  Warn warn_;
  bool looked_ = false;
  std::optional<FileMark> seen_;  // of the file as last looked at; none when it was missing
  std::unique_ptr<Pages> pages_;  // null while there is no usable file
};

}  // namespace wayfell
