// Which of many times stand in order.
#pragma once

#include <cstddef>
#include <vector>

namespace wayfell {

/// The indices of as many times as can stand one after another with none before the one before: a
/// single wrong one is left out, be it too early or far ahead.
std::vector<std::size_t> longestInOrder(const std::vector<double>& times);

}  // namespace wayfell
