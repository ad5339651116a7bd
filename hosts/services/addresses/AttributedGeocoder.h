// A geocoder that can say whose data it answers with.
#pragma once

#include <string>

#include "platform/Host.h"

namespace wayfell {

class AttributedGeocoder : public ReverseGeocoder {
 public:
  /// What to show beside the addresses: one line, empty when nobody is to be named.
  virtual std::string attribution() const = 0;
};

/// For those who want no addresses.
class NoGeocoder : public AttributedGeocoder {
 public:
  void reverseGeocode(const std::optional<CLLocation>& /*location*/,
                      Completion completion) override {
    completion(std::nullopt);
  }
  std::string attribution() const override { return {}; }
};

}  // namespace wayfell
