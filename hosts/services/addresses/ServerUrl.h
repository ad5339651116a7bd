// Where a Nominatim server is.
#pragma once

#include <string>

#include "platform/CLLocation.h"

namespace wayfell {

class ServerUrl {
 public:
  /// "https://host", "http://localhost:8080/nominatim" ...; a query, such as a key that the server
  /// wants, goes with every request. Throws std::invalid_argument for what is no URL of a server,
  /// or of another kind than http and https.
  explicit ServerUrl(const std::string& text);

  /// What asks for the address of a position, which is told to 5 decimals, about a metre.
  std::string requestFor(const CLLocationCoordinate2D& position) const;
  /// For people: without a name, a password and a key.
  const std::string& shown() const { return shown_; }
  /// Whether what is sent can be read on the way.
  bool isPlain() const { return plain_; }

 private:
  std::string text_;
  std::string shown_;
  bool plain_ = false;
};

}  // namespace wayfell
