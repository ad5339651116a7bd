#include "hosts/terminal/PassingLines.h"

#include <utility>

namespace wayfell {

void PassingLines::show(const std::vector<std::string>& lines) {
  if (!outputIsTerminal()) return;
  clear();
  for (const std::string& line : lines) output_.line(line);
  shown_ = lines.size();
}

void PassingLines::clear() {
  if (shown_ == 0) return;
  output_.text("\r\033[" + std::to_string(std::exchange(shown_, 0)) + "A\033[J");
}

}  // namespace wayfell
