// `wayfell addresses find`: the address of a position.
#pragma once

#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct AddressFindCommand {
  std::vector<std::string> input;  ///< a latitude and a longitude
  bool online = false;             ///< asks the server that the user has chosen, not the book
  bool json = false;
};

/// "within 100 m": how near to the position an address of the book must be.
std::string radiusText();

/// Prints on standard output, errors on standard error. Returns the status to exit with (see
/// Output.h): kBadInput when there is no address.
int runAddressFind(const AddressFindCommand& command);

}  // namespace wayfell
