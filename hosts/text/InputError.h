// What is wrong with the input, for its author to read: the place in it, a colon, what is wrong
// there ("line 12: fix.latitude: expected a number").
#pragma once

#include <stdexcept>

namespace wayfell {

class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace wayfell
