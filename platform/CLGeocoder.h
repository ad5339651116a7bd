// Asks the host which address a position has.
#pragma once

#include <optional>

#include "platform/CLLocation.h"
#include "platform/Host.h"

namespace wayfell {

class CLGeocoder {
 public:
  /// See ReverseGeocoder for what the completion is given and when.
  void reverseGeocodeLocationCompletionHandler(const std::optional<CLLocation>& location,
                                               ReverseGeocoder::Completion completion) {
    Host::current().reverseGeocoder().reverseGeocode(location, std::move(completion));
  }
};

}  // namespace wayfell
