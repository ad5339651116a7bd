#include "hosts/services/sqlite/Sqlite.h"

#include <sqlite3.h>

#include <bit>
#include <cstdint>
#include <string>
#include <thread>

namespace wayfell {
namespace {

constexpr std::chrono::milliseconds kPause(1);

// What SQLite hands to it is no pointer but how often to ask.
int waitForLock(void* most, int earlierCalls) {
  if (earlierCalls >= std::bit_cast<std::intptr_t>(most)) return 0;
  std::this_thread::sleep_for(kPause);
  return 1;
}

// A path as a URI, in which "?", "#" and "%" have meanings.
std::string uriOf(const std::filesystem::path& path) {
  std::string uri = "file:";
  for (const char c : std::filesystem::absolute(path).string()) {
    if (c == '%') {
      uri += "%25";
    } else if (c == '?') {
      uri += "%3f";
    } else {
      uri += c == '#' ? "%23" : std::string(1, c);
    }
  }
  return uri;
}

void trustNothingIn(SQLite::Database& database) {
  sqlite3* const handle = database.getHandle();
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLargestRow);
  // A LIKE in a constraint could take for ever; no statement of ours has one.
  sqlite3_limit(handle, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 0);
  database.exec("PRAGMA cell_size_check = 1");
}

}  // namespace

SQLite::Database openDatabase(const std::filesystem::path& path, DatabaseAccess access) {
  const int rights = access == DatabaseAccess::readWrite
                         ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                         : SQLITE_OPEN_READONLY;
  SQLite::Database database(
      uriOf(path) + (access == DatabaseAccess::immutable ? "?immutable=1" : ""),
      rights | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX);
  trustNothingIn(database);
  return database;
}

void waitForLocks(SQLite::Database& database, std::chrono::milliseconds longest) {
  const std::intptr_t most = longest / kPause;
  sqlite3_busy_handler(database.getHandle(), waitForLock, std::bit_cast<void*>(most));
}

bool isWritable(const SQLite::Database& database) {
  return sqlite3_db_readonly(database.getHandle(), "main") == 0;
}

}  // namespace wayfell
