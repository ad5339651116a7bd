#include "hosts/replay/Replay.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "hosts/replay/Player.h"
#include "hosts/text/ElapsedText.h"
#include "hosts/text/InputError.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();
// Seconds without an event, after which those who wait hear.
constexpr double kStretch = 600;

// When the widget is to be shown: every so many seconds, counted from the start, so that no
// rounding adds up.
class Spans {
 public:
  Spans(double start, std::optional<double> every) : start_(start), every_(every) {}

  double start() const { return start_; }
  double due() const { return at(next_); }
  void pass() { ++next_; }
  /// Passes all before t but the last one, if they are more than kMostAlike. Returns how many.
  double passAlike(double t) {
    if (due() >= t) return 0;
    double last = std::ceil((t - start_) / *every_);
    while (at(last) >= t) --last;
    const double count = last - next_;
    if (count < kMostAlike) return 0;
    next_ = last;
    return count;
  }

 private:
  double at(double number) const { return every_ ? start_ + number * *every_ : kNever; }

  double start_;
  std::optional<double> every_;
  double next_ = 1;
};

}  // namespace

void replay(Recording& recording, ReplayedWidget& widget, std::optional<double> every,
            const ReplayOutput& output) {
  bool goesOn = true;
  const auto show = [&] { goesOn = goesOn && output.show(widget); };
  Player player(recording, widget, show);
  Spans spans(player.now(), every);
  while (goesOn && !player.ended()) {
    output.progress(player.now());
    const double event = player.next().t;
    player.advanceTo(
        std::min({event, spans.due(), player.still() ? kNever : player.now() + kStretch}));
    // What happens at an instant is over once a later event comes next.
    if (spans.due() < event && player.now() == spans.due()) {
      show();
      spans.pass();
      const double alike = player.still() ? spans.passAlike(event) : 0;
      if (alike > 0) {
        output.note("nothing changes from " + elapsedText(player.elapsed()) + " to " +
                    elapsedText(event - spans.start()) + ": " + shortestText(alike) +
                    " equal snapshots are left out");
      }
    }
  }
  for (; goesOn && spans.due() <= player.now(); spans.pass()) show();
  if (goesOn) show();
  if (goesOn && player.fault()) throw InputError(*player.fault());
}

}  // namespace wayfell
