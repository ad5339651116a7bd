#include "hosts/commandline/DidYouMean.h"

#include "hosts/text/EditDistance.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {

std::string didYouMean(std::string_view typed, const Words& words) {
  const std::string capitals = upperCased(typed);
  std::size_t least = greatestSlip(typed.size()) + 1;
  const Word* nearest = nullptr;
  for (const Word& word : words) {
    const std::size_t distance = editDistance(capitals, upperCased(word.text));
    if (distance >= least || distance >= typed.size()) continue;
    least = distance;
    nearest = &word;
  }
  return nearest ? "; did you mean " + nearest->text + '?' : "";
}

}  // namespace wayfell
