#include "hosts/services/location/FixEpochs.h"

#include <utility>

namespace wayfell {
namespace {

GpsdFix everything() {
  GpsdFix fix;
  fix.threeDimensional = true;
  fix.altitude = fix.horizontalError = fix.verticalError = fix.speed = 0;
  return fix;
}

}  // namespace

std::vector<CLLocation> FixEpochs::add(const GpsdFix& part) {
  if (part.time && part.time == given_) {
    if (pending_ && !pending_->time) pending_.reset();  // it was of the same fix
    expected_->add(part);
    return {};
  }
  std::vector<CLLocation> done;
  if (pending_ && pending_->time && part.time && pending_->time != part.time) {
    done.push_back(give(*pending_->time));
  }
  if (pending_) {
    pending_->add(part);
  } else {
    pending_ = part;
  }
  if (pending_->time && pending_->hasAllOf(expected_ ? *expected_ : everything())) {
    done.push_back(give(*pending_->time));
  }
  return done;
}

std::vector<CLLocation> FixEpochs::finish(NSDate now) {
  std::vector<CLLocation> done;
  if (pending_ && (pending_->time || !given_)) done.push_back(give(pending_->time.value_or(now)));
  pending_.reset();
  return done;
}

CLLocation FixEpochs::give(NSDate instant) {
  if (pending_->time) given_ = pending_->time;
  expected_ = std::exchange(pending_, std::nullopt);
  return expected_->location(instant);
}

}  // namespace wayfell
