#include "hosts/services/stores/StoreSchema.h"

#include <sqlite3.h>

#include <string>
#include <thread>

namespace wayfell {
namespace {

// "WFST" in ASCII.
constexpr std::int64_t kApplicationId = 0x57465354;
constexpr std::int64_t kVersion = 1;

// docs/shared-suite.md shows it too.
constexpr const char* kSchema = R"sql(
CREATE TABLE settings (
  key TEXT PRIMARY KEY NOT NULL,
  type TEXT NOT NULL,
  value,
  CHECK (CASE type
    WHEN 'integer' THEN typeof(value) = 'integer'
    WHEN 'boolean' THEN typeof(value) = 'integer' AND value IN (0, 1)
    WHEN 'real' THEN typeof(value) IN ('real', 'integer', 'null')
    WHEN 'text' THEN typeof(value) IN ('text', 'blob')
    WHEN 'date' THEN typeof(value) IN ('real', 'integer', 'null')
    WHEN 'data' THEN typeof(value) = 'blob'
    WHEN 'list' THEN typeof(value) = 'text'
    WHEN 'dictionary' THEN typeof(value) = 'text'
    ELSE 0 END)
) WITHOUT ROWID;
PRAGMA application_id = 1464226644;
PRAGMA user_version = 1;
)sql";

std::int64_t integerOf(SQLite::Database& database, const char* query) {
  return database.execAndGet(query).getInt64();
}

// The answers belong together, so they are read in one transaction.
FileKind readKind(SQLite::Database& database) {
  FileKind found;
  found.applicationId = integerOf(database, "PRAGMA application_id");
  found.version = integerOf(database, "PRAGMA user_version");
  const std::int64_t tables = integerOf(database, "SELECT count(*) FROM sqlite_master");
  const bool hasSettings = database.tableExists("settings");
  if (found.applicationId == 0 && found.version == 0 && tables == 0) {
    found.kind = FileKind::empty;
  } else if (found.applicationId != kApplicationId || !hasSettings || found.version < kVersion) {
    found.kind = FileKind::foreign;
  } else {
    found.kind = found.version > kVersion ? FileKind::newer : FileKind::settings;
  }
  return found;
}

std::string journalModeAfter(SQLite::Database& database, const char* pragma) {
  return database.execAndGet(pragma).getString();
}

constexpr std::chrono::milliseconds kModePause(2);

}  // namespace

FileKind kindOf(SQLite::Database& database) {
  const SQLite::Transaction atOneInstant(database);
  return readKind(database);
}

void makeSettings(SQLite::Database& database) {
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  if (readKind(database).kind == FileKind::empty) database.exec(kSchema);
  transaction.commit();
}

void writeAhead(SQLite::Database& database, std::chrono::milliseconds longest) {
  // With FULL, a commit is on the disk when it returns; with NORMAL, a loss of power would take the
  // last ones. Settings change a few times a minute, so that it costs nothing that anyone notices.
  database.exec("PRAGMA synchronous = FULL");
  if (journalModeAfter(database, "PRAGMA journal_mode") == "wal") return;
  // The change of mode needs the file alone, for which SQLite waits in some cases and not in
  // others.
  using std::chrono::steady_clock;
  waitForLocks(database, kModePause);
  for (const auto end = steady_clock::now() + longest; steady_clock::now() < end;) {
    try {
      journalModeAfter(database, "PRAGMA journal_mode = WAL");
      break;
    } catch (const SQLite::Exception& error) {
      if (error.getErrorCode() != SQLITE_BUSY) throw;
    }
    std::this_thread::sleep_for(kModePause);
  }
  waitForLocks(database, longest);
}

}  // namespace wayfell
