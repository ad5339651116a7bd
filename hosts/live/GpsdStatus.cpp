#include "hosts/live/GpsdStatus.h"

#include <chrono>

namespace wayfell {
namespace {

// "no contact: Connection refused, again in 12 s". While it is being tried nothing is said of when.
std::string noContact(const GpsdState& state) {
  const std::string text = "no contact: " + state.reason;
  const auto left =
      std::chrono::ceil<std::chrono::seconds>(state.nextAttempt - std::chrono::steady_clock::now());
  return left.count() > 0 ? text + ", again in " + std::to_string(left.count()) + " s" : text;
}

std::string troubleOf(const GpsdState& state) {
  switch (state.kind) {
    case GpsdState::Kind::connecting:
      return "connecting";
    case GpsdState::Kind::waiting:
      return noContact(state);
    case GpsdState::Kind::noDevice:
      return "no receiver";
    case GpsdState::Kind::silent:
      return state.device + " is silent";
    case GpsdState::Kind::noFix:
      return "no fix from " + state.device;
    case GpsdState::Kind::stopped:
    case GpsdState::Kind::fix:
      break;
  }
  return "";
}

}  // namespace

SourceStatus statusOf(const GpsdSource& source, const GpsdAddress& address) {
  return {[name = "gpsd at " + address.text()] { return name; },
          [&source] { return troubleOf(source.state()); },
          [&source] { return source.deliversHeadings(); }};
}

}  // namespace wayfell
