// `wayfell settings`: reads and writes the settings on disk, as the containing app does.
#pragma once

#include <optional>
#include <string>

#include "hosts/terminal/ChosenStore.h"

namespace wayfell {

/// What the command line asks for.
struct SettingsCommand {
  enum class Action { list, get, set, unset };

  Action action = Action::list;
  StoreChoice store = StoreChoice::suite;  ///< the cloud's are only listed and got
  std::string key;                         ///< of all but list
  std::string value;                       ///< of set
  /// The value's type, as the stores name it. Unset: a JSON number, true or false keeps its type,
  /// all else is text.
  std::optional<std::string> type;
  bool json = false;  ///< of list and get
};

/// Prints on standard output, errors and notes on standard error. Returns the status to exit with
/// (see ExitStatus.h).
int runSettings(const SettingsCommand& command);

}  // namespace wayfell
