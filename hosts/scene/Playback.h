// The pace of a playing: how recorded time follows real time, paused or at some rate.
#pragma once

#include <array>
#include <chrono>
#include <optional>

#include "hosts/replay/Player.h"

namespace wayfell {

class Playback {
 public:
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::milliseconds;

  static constexpr std::array kRates = {0.1,  0.2,  0.5,   1.0,   2.0,   5.0,   10.0,
                                        20.0, 50.0, 100.0, 200.0, 500.0, 1000.0};
  static constexpr double kStepSeconds = 1;  ///< recorded, of a step
  static constexpr double kSlowest = kRates.front();
  static constexpr double kFastest = kRates.back();

  /// Recorded seconds to a real one, from kSlowest to kFastest; 0 is a pause at rate 1.
  Playback(Player& player, double rate, Clock::time_point now);

  /// Plays what has become due. A gap of more than a second over what wait() has told is not
  /// caught up with: the program was stopped then, and so was the recording.
  void catchUp(Clock::time_point now);
  /// Lets the time until now pass without playing.
  void skipTo(Clock::time_point now) { last_ = now; }
  /// How long nothing is due after catchUp; none while nothing will ever be.
  std::optional<Milliseconds> wait();

  double rate() const { return rate_; }
  bool paused() const { return paused_; }
  void togglePause() { paused_ = !paused_; }
  /// To the next of kRates.
  void faster();
  void slower();
  /// One recorded second on.
  void step();
  /// To shortly before the next event, when nothing comes for a while.
  void skipGap();
  /// Real seconds until the next event, at the present rate; none after the last one.
  std::optional<double> untilNext() const;

 private:
  void goOn(double seconds);

  Player& player_;
  double rate_;
  bool paused_;
  double position_;  // recorded, in seconds since the reference date
  Clock::time_point last_;
  Clock::duration waited_{};
};

}  // namespace wayfell
