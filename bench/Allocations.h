// How many times the program has asked for memory.
#pragma once

#include <cstddef>

namespace wayfell {

std::size_t allocationsSoFar();

}  // namespace wayfell
