#include "hosts/replay/TimeOrder.h"

#include <algorithm>

namespace wayfell {

// Patience sorting: for each length of a sequence that is in order, the one with the earliest end.
std::vector<std::size_t> longestInOrder(const std::vector<double>& times) {
  std::vector<std::size_t> ends;                    // by length less one
  std::vector<std::size_t> previous(times.size());  // in the sequence that ends with each time
  for (std::size_t i = 0; i < times.size(); ++i) {
    const auto after =
        std::upper_bound(ends.begin(), ends.end(), times[i],
                         [&times](double time, std::size_t end) { return time < times[end]; });
    previous[i] = after == ends.begin() ? i : *(after - 1);
    if (after == ends.end()) {
      ends.push_back(i);
    } else {
      *after = i;
    }
  }
  std::vector<std::size_t> found(ends.size());
  std::size_t index = ends.empty() ? 0 : ends.back();
  for (std::size_t place = found.size(); place > 0; --place) {
    found[place - 1] = index;
    index = previous[index];
  }
  return found;
}

}  // namespace wayfell
