// Which service the user wants addresses from, and the service itself.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/Warn.h"
#include "hosts/services/addresses/AttributedGeocoder.h"

namespace wayfell {

/// As the widget's own settings have it.
struct AddressChoice {
  static constexpr const char* kServiceKey = "addressService";
  static constexpr const char* kUrlKey = "addressServiceURL";

  /// "book", "nominatim" or "none". Unset: the book, which may be missing.
  std::optional<std::string> service;
  /// The Nominatim server's URL; unset is the public one.
  std::optional<std::string> url;
};

AddressChoice readAddressChoice(const KeyValueStore& local);

/// A choice that cannot be followed is warned about, and gives no addresses.
std::unique_ptr<AttributedGeocoder> makeGeocoder(const AddressChoice& choice, IoRunLoop& loop,
                                                 const Warn& warn);

}  // namespace wayfell
