// `wayfell addresses import`: makes the address book out of files of addresses.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wayfell {

/// What the command line asks for.
struct AddressImportCommand {
  std::vector<std::string> files;      ///< "-" is standard input
  std::optional<std::string> country;  ///< where all files are from; unset: after the path of each
  bool add = false;                    ///< keeps what the old book holds
};

/// Prints what the book holds then on standard output, errors and notes on standard error. The old
/// book stays as it was unless the new one is complete. Returns the status to exit with (see
/// Output.h): kBadInput also when a row had to be left out.
int runAddressImport(const AddressImportCommand& command);

}  // namespace wayfell
