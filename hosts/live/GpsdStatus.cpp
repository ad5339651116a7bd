#include "hosts/live/GpsdStatus.h"

namespace wayfell {
namespace {

std::string troubleOf(const GpsdState& state) {
  switch (state.kind) {
    case GpsdState::Kind::connecting:
      return "connecting";
    case GpsdState::Kind::waiting:
      return "no contact: " + state.reason;
    case GpsdState::Kind::noDevice:
      return "no receiver";
    case GpsdState::Kind::silent:
      return "receiver silent";
    case GpsdState::Kind::noFix:
      return "no fix";
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
