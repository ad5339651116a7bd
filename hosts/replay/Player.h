// Plays a recording to the widget piece by piece, for someone who looks on and may step in. Timers
// that are due at or before an event fire before it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "hosts/replay/Recording.h"
#include "hosts/replay/ReplayedWidget.h"
#include "hosts/replay/Stillness.h"

namespace wayfell {

class Player {
 public:
  /// Starts the clock at the first event and lets happen what happens at that instant. Throws
  /// InputError when not even the first event can be read.
  Player(Recording& recording, ReplayedWidget& widget, std::function<void()> show = {});

  /// Goes on to an instant, in seconds since the reference date, but not past the last event. Time
  /// never goes back.
  void advanceTo(double t);
  /// Goes on until the widget has accepted a fix, and through all that happens at that instant.
  void advanceToFirstFix();
  /// Lets the user do something now.
  void act(const Action& action);

  /// Where the playing is, in seconds since the reference date.
  double now() const;
  /// Seconds since the first event.
  double elapsed() const { return now() - start_; }
  /// The next event, if the playing has not ended.
  const Event& next() const { return *next_; }
  /// When something happens next; none after the last event, when time stands still.
  std::optional<double> nextDue() const;
  bool ended() const { return !next_; }
  /// Seconds from the last event to the next, if the playing has not ended.
  double gap() const { return gap_; }
  /// Whether nothing changes before the next event.
  bool still() const { return stillness_.reached(); }
  /// What kept the recording from being read to its end.
  const std::optional<std::string>& fault() const { return fault_; }
  /// Whether the panel has appeared and not disappeared since.
  bool onScreen() const { return onScreen_; }

  ReplayedWidget& widget() const { return widget_; }

  /// Called where the recording asks for a snapshot.
  std::function<void()> onShow;

 private:
  void readNext();
  void playNext();
  /// To an instant that is not after the next event.
  void passTo(double t);

  Recording& recording_;
  ReplayedWidget& widget_;
  Stillness stillness_{widget_};
  std::optional<Event> next_;
  std::optional<std::string> fault_;
  double start_ = 0;
  bool onScreen_ = false;
  double gap_ = 0;
};

}  // namespace wayfell
