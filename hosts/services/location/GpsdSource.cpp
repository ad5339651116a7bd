#include "hosts/services/location/GpsdSource.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace wayfell {
namespace {

constexpr std::size_t kMostDevices = 64;  // more than a gpsd has, unless it is faulty

bool isOpen(const GpsdDevice& device) { return !device.closed; }

}  // namespace

GpsdSource::GpsdSource(IoRunLoop& loop, const Clock& clock, const GpsdAddress& address,
                       const GpsdIntervals& intervals)
    : loop_(loop),
      clock_(clock),
      intervals_(intervals),
      link_(loop, address, intervals,
            {[this] { linkChanged(); }, [this](std::string_view line) { take(line); },
             [this] { tick(); }}) {}

GpsdSource::~GpsdSource() { stopWaiting(); }

void GpsdSource::startUpdatingLocation(CLLocationManager& manager) {
  locationUser_ = &manager;
  openOrClose();
}

void GpsdSource::stopUpdatingLocation(CLLocationManager& manager) {
  if (locationUser_ != &manager) return;
  locationUser_ = nullptr;
  openOrClose();
}

void GpsdSource::startUpdatingHeading(CLLocationManager& manager) {
  headingUser_ = &manager;
  openOrClose();
}

void GpsdSource::stopUpdatingHeading(CLLocationManager& manager) {
  if (headingUser_ != &manager) return;
  headingUser_ = nullptr;
  openOrClose();
}

void GpsdSource::openOrClose() {
  if (locationUser_ == nullptr && headingUser_ == nullptr) {
    link_.close();
    forgetDaemon();
  } else {
    link_.open();
  }
  update();
}

void GpsdSource::linkChanged() {
  if (link_.status() != GpsdLink::Status::open) {
    deliver(epochs_.finish(clock_.now()));  // the last word of a daemon that has gone
    forgetDaemon();
  }
  update();
}

void GpsdSource::forgetDaemon() {
  stopWaiting();
  epochs_.reset();
  receiver_.giveUp();
  compass_.giveUp();
  devices_.reset();
  ticksSinceReport_ = 0;
}

void GpsdSource::take(std::string_view line) {
  const GpsdReport report = decoder_.decode(std::string(line));
  if (report.kind == GpsdReport::Kind::other) {
    takeNotice(readNotice(line));
    return;
  }
  link_.prove();
  ticksSinceReport_ = 0;
  if (report.kind == GpsdReport::Kind::position) {
    takePosition(report);
  } else {
    takeHeading(report);
  }
}

void GpsdSource::takeNotice(const GpsdNotice& notice) {
  if (notice.devices) devices_ = *notice.devices;
  if (notice.device) {
    const GpsdDevice& changed = *notice.device;
    if (!devices_) devices_.emplace();
    const auto known =
        std::find_if(devices_->begin(), devices_->end(),
                     [&changed](const GpsdDevice& each) { return each.path == changed.path; });
    if (known != devices_->end()) {
      *known = changed;
    } else if (devices_->size() < kMostDevices) {
      devices_->push_back(changed);
    }
    if (changed.closed && receiver_.isFollowed(changed.path)) loseFix();
    if (changed.closed && compass_.isFollowed(changed.path)) compass_.giveUp();
  }
  update();
}

void GpsdSource::takePosition(const GpsdReport& report) {
  if (report.fix) {
    if (!receiver_.takes(report.device)) return;
    deliver(epochs_.add(*report.fix));
    waitForParts();
  } else if (receiver_.isFollowed(report.device)) {
    loseFix();
  }
  update();
}

void GpsdSource::takeHeading(const GpsdReport& report) {
  if (!report.heading || !compass_.takes(report.device)) return;
  if (headingUser_ != nullptr) headingUser_->deliverHeading(*report.heading);
  update();
}

void GpsdSource::waitForParts() {
  if (!epochs_.isWaiting()) {
    stopWaiting();
  } else if (partsTimer_ == 0) {
    partsTimer_ = loop_.scheduleTimer(intervals_.parts, false, [this] {
      partsTimer_ = 0;
      deliver(epochs_.finish(clock_.now()));
    });
  }
}

void GpsdSource::stopWaiting() { loop_.cancelTimer(std::exchange(partsTimer_, 0)); }

void GpsdSource::loseFix() {
  stopWaiting();
  receiver_.giveUp();
  deliver(epochs_.finish(clock_.now()));
}

void GpsdSource::tick() {
  ++ticksSinceReport_;
  receiver_.tick();
  compass_.tick();
  update();
}

void GpsdSource::deliver(std::vector<CLLocation> fixes) {
  for (CLLocation& fix : fixes) fix = altitude_.completed(fix);
  if (locationUser_ != nullptr) locationUser_->deliverLocations(fixes);
}

void GpsdSource::update() {
  GpsdState now;
  now.kind = kind();
  if (now.kind == GpsdState::Kind::waiting) {
    now.reason = link_.failure();
    now.nextAttempt = link_.nextAttempt();
  }
  now.device = shownDevice();
  now.heading = headingUser_ != nullptr && compass_.isFollowing();
  if (now == state_) return;
  state_ = std::move(now);
  if (onChange) onChange();
}

GpsdState::Kind GpsdSource::kind() const {
  using Kind = GpsdState::Kind;
  if (link_.status() == GpsdLink::Status::closed) return Kind::stopped;
  if (link_.status() != GpsdLink::Status::open) {
    return link_.failure().empty() ? Kind::connecting : Kind::waiting;
  }
  if (receiver_.isFollowing()) return Kind::fix;
  if (!devices_) return Kind::connecting;
  if (std::none_of(devices_->begin(), devices_->end(), isOpen)) return Kind::noDevice;
  return ticksSinceReport_ > kSilentTicks ? Kind::silent : Kind::noFix;
}

std::string GpsdSource::shownDevice() const {
  if (!devices_) return {};
  const auto followed =
      std::find_if(devices_->begin(), devices_->end(),
                   [this](const GpsdDevice& each) { return receiver_.isFollowed(each.path); });
  if (followed != devices_->end()) return followed->path;
  const auto first = std::find_if(devices_->begin(), devices_->end(), isOpen);
  return first == devices_->end() ? "" : first->path;
}

}  // namespace wayfell
