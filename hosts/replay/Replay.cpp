#include "hosts/replay/Replay.h"

#include <algorithm>
#include <limits>

#include "hosts/replay/Player.h"
#include "hosts/text/InputError.h"

namespace wayfell {

void replay(Recording& recording, ReplayedWidget& widget, std::optional<double> every,
            const std::function<bool(ReplayedWidget& widget)>& show,
            const std::function<void(double t)>& progress) {
  constexpr double kStretch = 600;  // seconds without an event, after which those who wait hear
  bool goesOn = true;
  const auto showNow = [&] { goesOn = goesOn && show(widget); };
  Player player(recording, widget, showNow);
  const double start = player.now();
  double spans = 1;
  // Counted from the start, so that no rounding adds up.
  const auto due = [&] {
    return every ? start + spans * *every : std::numeric_limits<double>::infinity();
  };
  while (goesOn && !player.ended()) {
    progress(player.now());
    const double event = player.next().t;
    player.advanceTo(std::min({event, due(), player.now() + kStretch}));
    // What happens at an instant is over once a later event comes next.
    if (due() < event && player.now() == due()) {
      showNow();
      ++spans;
    }
  }
  if (goesOn && player.fault()) throw InputError(*player.fault());
  for (; goesOn && due() <= player.now(); ++spans) showNow();
  showNow();
}

}  // namespace wayfell
