// How long to wait before something that has failed is tried again: twice as long each time, until
// it has succeeded.
#pragma once

#include <algorithm>
#include <utility>

namespace wayfell {

/// Seconds.
struct RetryDelays {
  double first = 1;
  double longest = 30;
};

class RetryDelay {
 public:
  explicit RetryDelay(const RetryDelays& delays) : delays_(delays), next_(delays.first) {}

  /// The delay after this failure, in seconds.
  double afterFailure() { return std::exchange(next_, std::min(2 * next_, delays_.longest)); }
  void succeeded() { next_ = delays_.first; }

 private:
  RetryDelays delays_;
  double next_;
};

}  // namespace wayfell
