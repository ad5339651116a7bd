#include "hosts/live/GpsdTrouble.h"

#include <chrono>

#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// "no contact, retry in 12 s: Connection refused", where a narrow line cuts off the reason first.
std::string noContact(const GpsdState& state) {
  const auto left =
      std::chrono::ceil<std::chrono::seconds>(state.nextAttempt - std::chrono::steady_clock::now());
  const std::string_view reason = localized(state.reason);  // the system's own as they are
  if (left.count() <= 0) return localizedStringWithFormat("no contact: %@", reason);
  return localizedStringWithFormat("no contact, retry in %d s: %@", static_cast<int>(left.count()),
                                   reason);
}

}  // namespace

std::string gpsdTrouble(const GpsdState& state) {
  switch (state.kind) {
    case GpsdState::Kind::connecting:
      return std::string(localized("connecting"));
    case GpsdState::Kind::waiting:
      return noContact(state);
    case GpsdState::Kind::noDevice:
      return std::string(localized("no receiver"));
    case GpsdState::Kind::silent:
      return localizedStringWithFormat("%@ is silent", state.device);
    case GpsdState::Kind::noFix:
      return localizedStringWithFormat("no fix from %@", state.device);
    case GpsdState::Kind::stopped:
    case GpsdState::Kind::fix:
      break;
  }
  return "";
}

}  // namespace wayfell
