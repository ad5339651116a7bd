// The rows of a settings file: all of them read at one instant, changes written together.
// Everything throws SQLite::Exception.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hosts/services/sqlite/Sqlite.h"
#include "platform/PropertyValue.h"

namespace wayfell {

class SettingsTable {
 public:
  /// The database must hold the table.
  explicit SettingsTable(SQLite::Database database);

  /// Another number than before when others have written in between.
  std::int64_t dataVersion();

  struct Contents {
    PropertyValue::Dictionary values;
    /// What is wrong with rows that hold no value, a sentence each without a full stop.
    std::vector<std::string> faults;
  };
  Contents read();
  /// Throws BadValue for what cannot be kept: it nests too deep, or is too large with its key.
  static void check(const std::string& key, const PropertyValue& value);
  /// Whether the value, or none, is what the row holds just now.
  bool holds(const std::string& key, const std::optional<PropertyValue>& value);

  using Changes = std::map<std::string, std::optional<PropertyValue>, std::less<>>;
  /// All or none. Throws BadValue for what cannot be kept.
  void write(const Changes& changes);

  void waitForLocks(std::chrono::milliseconds longest) {
    wayfell::waitForLocks(database_, longest);
  }

 private:
  void readOn(Contents& contents, std::int64_t& row);
  std::string nameOfRow(std::int64_t row);
  void writeOne(const std::string& key, const std::optional<PropertyValue>& value);

  SQLite::Database database_;
  SQLite::Statement dataVersion_;
  SQLite::Statement readAll_;
  SQLite::Statement readOne_;
  std::optional<SQLite::Statement> upsert_;  // prepared when first needed, since most only read
  std::optional<SQLite::Statement> remove_;
};

}  // namespace wayfell
