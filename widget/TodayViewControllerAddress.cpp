// The street address: when it is looked up, and how it is shown.

#include "platform/CLGeocoder.h"
#include "platform/NSString.h"
#include "settings/UserDefaults.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

constexpr std::string_view kMissingPart = "–";

}  // namespace

// The date is written before the lookup, so that a failing one is not repeated at every fix either.
// It lies in the local store and outlives the process.
void TodayViewController::refreshAddressIfDue() {
  const auto stored = UserDefaults::checkObjectDefaults("addressDate");
  const auto lastLookup = stored ? stored->dateValue() : std::nullopt;
  if (lastLookup && !(lastLookup->timeIntervalSinceNow() < -kAddressSeconds)) return;
  UserDefaults::setObjectForKey(PropertyValue(NSDate::date()), "addressDate");
  updateAddress();
}

void TodayViewController::updateAddress() {
  CLGeocoder geocoder;
  geocoder.reverseGeocodeLocationCompletionHandler(currentLocation, [self = shared_from_this()](
                                                                        const auto& placemarks) {
    // A failed lookup has no list. An empty one would throw: geocoders never hand one out.
    self->geocoderDidFindPlacemark(placemarks ? std::optional(placemarks->at(0)) : std::nullopt);
  });
}

void TodayViewController::geocoderDidFindPlacemark(const std::optional<CLPlacemark>& placemark) {
  const CNPostalAddress address =
      placemark ? placemark->postalAddress.value_or(CNPostalAddress{}) : CNPostalAddress{};
  const auto part = [](const std::optional<std::string>& text) {
    return text ? std::string_view(*text) : kMissingPart;
  };
  // A failed lookup is shown too, as three missing parts.
  const std::string text =
      stringWithFormat("%@, %@, %@", part(address.street), part(address.city), part(address.state));
  addressLabel.send(&UILabel::setText, text);
  defaults().setObjectForKey(PropertyValue(text), "widgetAddressString");
}

}  // namespace wayfell
