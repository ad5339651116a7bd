#include "hosts/text/EditDistance.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace wayfell {

std::size_t editDistance(std::string_view one, std::string_view other) {
  using Row = std::vector<std::size_t>;  // distances to the beginnings of the other word
  Row beforeLast(other.size() + 1);
  Row last(other.size() + 1);
  Row row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::swap(beforeLast, last);
    std::swap(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t changed = last[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
      row[j] = std::min({row[j - 1] + 1, last[j] + 1, changed});
      const bool areSwapped =
          i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
      if (areSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row.back();
}

std::size_t greatestSlip(std::size_t letters) { return std::max<std::size_t>(1, letters / 3); }

}  // namespace wayfell
