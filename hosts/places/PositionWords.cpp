#include "hosts/places/PositionWords.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <stdexcept>

#include "hosts/places/PositionText.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

using Position = CLLocationCoordinate2D;
using Words = std::span<const std::string>;

[[noreturn]] void refuse(const std::string& why) { throw std::invalid_argument(why); }

Position joined(Words words, const PositionNotation& notation) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += ' ';
    text += word;
  }
  return readPosition(text, notation);
}

// One of several words as a position.
std::optional<Position> alone(const std::string& word, const PositionNotation& notation) {
  try {
    return readPosition(word, notation);
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

// Some of several words as a position.
std::optional<Position> group(Words words, const PositionNotation& notation) {
  if (words.size() == 1) return alone(words.front(), notation);
  for (const std::string& word : words) {
    if (alone(word, notation)) return std::nullopt;
  }
  try {
    return joined(words, notation);
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

std::vector<Position> groupsOf(std::size_t size, Words words, const PositionNotation& notation) {
  std::vector<Position> positions;
  if (words.size() % size != 0) return positions;
  for (; !words.empty(); words = words.subspan(size)) {
    const auto position = group(words.first(size), notation);
    if (!position) return {};
    positions.push_back(*position);
  }
  return positions;
}

// Where some words are positions by themselves, the first of the others is wrong.
void checkOthers(Words words, const PositionNotation& notation) {
  const auto isAlone = [&](const std::string& word) { return alone(word, notation).has_value(); };
  if (std::none_of(words.begin(), words.end(), isAlone)) return;
  const auto wrong = std::find_if_not(words.begin(), words.end(), isAlone);
  if (wrong == words.end()) return;
  try {
    readPosition(*wrong, notation);
  } catch (const std::invalid_argument& error) {
    refuse(inQuotes(*wrong) + ": " + error.what());
  }
}

// For words that are to be fewer positions than words.
void checkNoneAlone(Words words, const PositionNotation& notation) {
  checkOthers(words, notation);
  if (words.size() > 1 && alone(words.front(), notation)) {
    refuse("these are " + std::to_string(words.size()) + " positions, which is too many");
  }
}

// Says why words are not two positions.
[[noreturn]] void refuseAsTwo(Words words, const PositionNotation& notation) {
  checkNoneAlone(words, notation);
  std::optional<Position> one;
  try {
    one = joined(words, notation);
  } catch (const std::invalid_argument&) {
    const std::size_t half = words.size() / 2;
    if (words.size() % 2 != 0) throw;
    joined(words.first(half), notation);
    joined(words.subspan(half), notation);
  }
  if (one) refuse("this is one position, " + plainPosition(*one) + ", and two are needed");
  refuse("it is not clear where the second position begins; put each in quotes");
}

}  // namespace

Position onePosition(const std::vector<std::string>& words, const PositionNotation& notation) {
  if (words.size() > 1) checkNoneAlone(words, notation);
  return joined(words, notation);
}

std::pair<Position, Position> twoPositions(const std::vector<std::string>& words,
                                           const PositionNotation& notation) {
  const Words all = words;
  std::optional<std::pair<Position, Position>> found;
  for (std::size_t count = 1; count < all.size(); ++count) {
    const auto first = group(all.first(count), notation);
    const auto second = first ? group(all.subspan(count), notation) : std::nullopt;
    if (!second) continue;
    if (found) refuse("these may be two positions in several ways; put each in quotes");
    found = {*first, *second};
  }
  if (!found) refuseAsTwo(all, notation);
  return *found;
}

std::vector<Position> allPositions(const std::vector<std::string>& words,
                                   const PositionNotation& notation) {
  if (words.size() == 1) return {joined(words, notation)};
  auto each = groupsOf(1, words, notation);
  if (!each.empty()) return each;
  checkOthers(words, notation);
  auto pairs = groupsOf(2, words, notation);
  if (words.size() == 2 && !pairs.empty()) return pairs;
  const auto together = group(words, notation);
  if (!pairs.empty() && together) {
    refuse("these may be one position or " + std::to_string(pairs.size()) +
           "; put each position in quotes");
  }
  if (!pairs.empty()) return pairs;
  return {joined(words, notation)};
}

}  // namespace wayfell
