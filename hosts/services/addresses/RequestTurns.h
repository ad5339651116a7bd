// When a server may be asked next. Programs of one user share that in a file, so that one run after
// another keeps to what a single one promises.
#pragma once

#include <filesystem>
#include <optional>

namespace wayfell {

class RequestTurns {
 public:
  /// Without a file that can be written, this program's own requests are kept apart.
  explicit RequestTurns(std::filesystem::path file) : file_(std::move(file)) {}

  /// Takes the next turn; the one after it is `apart` seconds later at the earliest. Returns how
  /// many seconds away it is; none, and no turn is taken, where that is more than `most`.
  std::optional<double> take(double apart, double most);
  /// No turn comes within so many seconds.
  void putOff(double seconds);

 private:
  std::filesystem::path file_;
  double next_ = 0;  // Unix seconds, at the earliest
};

}  // namespace wayfell
