// The part of the command line that belongs to addresses.
#pragma once

#include <optional>

#include "hosts/terminal/AddressFindCommand.h"
#include "hosts/terminal/AddressImportCommand.h"
#include "hosts/terminal/AddressServiceCommand.h"

namespace CLI {
class App;
}

namespace wayfell {

class AddressOptions {
 public:
  /// Adds the commands to a program, which must not outlive this.
  explicit AddressOptions(CLI::App& app);
  AddressOptions(const AddressOptions&) = delete;
  AddressOptions& operator=(const AddressOptions&) = delete;

  /// Runs the command that was asked for, if it is one of these, and returns its status.
  std::optional<int> run() const;

 private:
  void addImport(CLI::App& addresses);
  void addFind(CLI::App& addresses);
  void addInfo(CLI::App& addresses);
  void addUse(CLI::App& addresses);

  AddressImportCommand import_;
  AddressFindCommand find_;
  AddressUseCommand use_;
  const CLI::App* importCommand_ = nullptr;
  const CLI::App* findCommand_ = nullptr;
  const CLI::App* infoCommand_ = nullptr;
  const CLI::App* useCommand_ = nullptr;
};

}  // namespace wayfell
