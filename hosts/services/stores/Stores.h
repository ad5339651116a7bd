// The settings stores that a host hands out, each opened when it is first asked for. They live as
// long as this.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/services/Warn.h"
#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {

class Stores {
 public:
  Stores(Turn turn, Warn warn);

  /// The widget's own settings; null, with a warning, when there is no place for them.
  SqliteStore* standardDefaults();
  /// Null, with a warning, for a name that no file can have.
  SqliteStore* sharedDefaults(std::string_view suiteName);
  /// Read-only; null while there is no file.
  SqliteStore* ubiquitousDefaults();

 private:
  SqliteStore* opened(std::string_view name, SqliteStore::Access access,
                      const std::function<std::filesystem::path()>& file);

  Turn turn_;
  Warn warn_;
  std::map<std::string, std::unique_ptr<SqliteStore>, std::less<>> stores_;
};

}  // namespace wayfell
