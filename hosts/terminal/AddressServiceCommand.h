// `wayfell addresses info` and `wayfell addresses use`: where addresses come from.
#pragma once

#include <optional>
#include <string>

namespace wayfell {

/// What the command line asks for.
struct AddressUseCommand {
  std::string service;  ///< "book", "nominatim" or "none"
  std::optional<std::string> url;
  bool agreed = false;  ///< to the position being sent
};

/// Stores the choice in the widget's own settings. Asks for consent on the terminal where the
/// position is to be sent to somebody. Returns the status to exit with (see ExitStatus.h):
/// kBadInput when the user does not agree, kBadUsage when nobody can be asked.
int runAddressUse(const AddressUseCommand& command);

/// Prints what there is, which may be nothing.
int runAddressInfo();

}  // namespace wayfell
