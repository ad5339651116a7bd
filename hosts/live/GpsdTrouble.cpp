#include "hosts/live/GpsdTrouble.h"

#include <chrono>

namespace wayfell {
namespace {

// "no contact, retry in 12 s: Connection refused", where a narrow line cuts off the reason first.
std::string noContact(const GpsdState& state) {
  const auto left =
      std::chrono::ceil<std::chrono::seconds>(state.nextAttempt - std::chrono::steady_clock::now());
  const bool isTrying = left.count() <= 0;
  const std::string when = isTrying ? "" : ", retry in " + std::to_string(left.count()) + " s";
  return "no contact" + when + ": " + state.reason;
}

}  // namespace

std::string gpsdTrouble(const GpsdState& state) {
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

}  // namespace wayfell
