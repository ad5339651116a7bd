// Lines on a terminal that those which come next replace.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "hosts/terminal/Output.h"

namespace wayfell {

class PassingLines {
 public:
  explicit PassingLines(Output& output) : output_(output) {}

  /// In place of those before. Nothing where the output is no terminal.
  void show(const std::vector<std::string>& lines);
  /// Takes them away, before something is written that stays.
  void clear();

 private:
  Output& output_;
  std::size_t shown_ = 0;
};

}  // namespace wayfell
