#include "hosts/services/stores/StoreSchema.h"

#include <sqlite3.h>

#include <thread>
#include <utility>

#include "hosts/services/stores/StoredValue.h"
#include "hosts/text/TextScanner.h"

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

// The answers belong together, so they are read in one transaction.
FileKind readKind(Database& database) {
  FileKind found;
  found.applicationId = database.integer("PRAGMA application_id");
  found.version = database.integer("PRAGMA user_version");
  const std::int64_t tables = database.integer("SELECT count(*) FROM sqlite_master");
  const bool hasSettings =
      database.integer(
          "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'settings'") == 1;
  if (found.applicationId == 0 && found.version == 0 && tables == 0) {
    found.kind = FileKind::empty;
  } else if (found.applicationId != kApplicationId || !hasSettings || found.version < kVersion) {
    found.kind = FileKind::foreign;
  } else {
    found.kind = found.version > kVersion ? FileKind::newer : FileKind::settings;
  }
  return found;
}

std::string journalModeAfter(Database& database, const char* pragma) {
  Statement mode(database, pragma);
  return mode.step() ? std::string(mode.text(0)) : "";
}

constexpr std::chrono::milliseconds kModePause(2);

Column columnOf(const Statement& row, int column) {
  switch (row.type(column)) {
    case Statement::Type::integer:
      return row.integer(column);
    case Statement::Type::real:
      return row.real(column);
    case Statement::Type::text:
      return std::string(row.text(column));
    case Statement::Type::bytes: {
      const std::string_view bytes = row.bytes(column);
      return PropertyValue::Data(bytes.begin(), bytes.end());
    }
    case Statement::Type::null:
      break;
  }
  return nullptr;
}

void bindColumn(Statement& statement, int parameter, const Column& column) {
  struct Bind {
    Statement& statement;
    int parameter;
    void operator()(std::nullptr_t) const { statement.bindNull(parameter); }
    void operator()(std::int64_t integer) const { statement.bind(parameter, integer); }
    void operator()(double real) const { statement.bind(parameter, real); }
    void operator()(const std::string& text) const {
      statement.bind(parameter, std::string_view(text));
    }
    void operator()(const PropertyValue::Data& bytes) const {
      statement.bindBytes(parameter, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
  };
  std::visit(Bind{statement, parameter}, column);
}

// A key is kept as a text is: as bytes if it is not plain.
void bindKey(Statement& statement, const std::string& key) {
  if (isPlainText(key)) {
    statement.bind(1, std::string_view(key));
  } else {
    statement.bindBytes(1, key);
  }
}

PropertyValue valueOfRow(const Statement& row, int type, int value) {
  return decode(row.text(type), columnOf(row, value));
}

}  // namespace

FileKind kindOf(Database& database) {
  database.execute("BEGIN");
  const FileKind kind = readKind(database);
  database.execute("COMMIT");
  return kind;
}

void makeSettings(Database& database) {
  Transaction transaction(database);
  if (readKind(database).kind == FileKind::empty) database.execute(kSchema);
  transaction.commit();
}

void writeAhead(Database& database, std::chrono::milliseconds longest) {
  // With FULL, a commit is on the disk when it returns; with NORMAL, a loss of power would take the
  // last ones. Settings change a few times a minute, so that it costs nothing that anyone notices.
  database.execute("PRAGMA synchronous = FULL");
  if (journalModeAfter(database, "PRAGMA journal_mode") == "wal") return;
  // The change of mode needs the file alone, for which SQLite waits in some cases and not in
  // others.
  using std::chrono::steady_clock;
  database.waitForLocks(kModePause);
  for (const auto end = steady_clock::now() + longest; steady_clock::now() < end;) {
    try {
      journalModeAfter(database, "PRAGMA journal_mode = WAL");
      break;
    } catch (const DatabaseError& error) {
      if (error.primaryCode() != SQLITE_BUSY) throw;
    }
    std::this_thread::sleep_for(kModePause);
  }
  database.waitForLocks(longest);
}

SettingsTable::SettingsTable(Database database)
    : database_(std::move(database)),
      dataVersion_(database_, "PRAGMA data_version"),
      readAll_(database_, "SELECT key, type, value FROM settings"),
      readOne_(database_, "SELECT type, value FROM settings WHERE key = ?1") {}

std::int64_t SettingsTable::dataVersion() {
  dataVersion_.step();
  const std::int64_t version = dataVersion_.integer(0);
  dataVersion_.reset();
  return version;
}

SettingsTable::Contents SettingsTable::read() {
  Contents contents;
  while (readAll_.step()) {
    // The schema allows neither. A page that has been cut off reads as zeros, which are these.
    if (readAll_.type(0) == Statement::Type::null || readAll_.type(1) == Statement::Type::null) {
      readAll_.reset();
      throw DatabaseError(SQLITE_CORRUPT, "it has a row without a key or a type");
    }
    const bool isText = readAll_.type(0) == Statement::Type::text;
    const std::string key(isText ? readAll_.text(0) : readAll_.bytes(0));
    try {
      // Each key has one way to be kept; a row with the other one would be a second value for it.
      if (isText != isPlainText(key)) throw BadValue("its key is kept in the wrong way");
      contents.values.insert_or_assign(key, valueOfRow(readAll_, 1, 2));
    } catch (const BadValue& fault) {
      contents.faults.push_back("the row of " + inQuotes(key) + " holds no value: " + fault.what());
    }
  }
  return contents;
}

bool SettingsTable::holds(const std::string& key, const std::optional<PropertyValue>& value) {
  bindKey(readOne_, key);
  const bool isThere = readOne_.step();
  bool same = !isThere && !value;
  if (isThere && value) {
    try {
      same = encode(valueOfRow(readOne_, 0, 1)) == encode(*value);
    } catch (const BadValue&) {
      same = false;
    }
  }
  if (isThere) readOne_.reset();
  return same;
}

void SettingsTable::write(const Changes& changes) {
  Transaction transaction(database_);
  for (const auto& [key, value] : changes) writeOne(key, value);
  transaction.commit();
}

void SettingsTable::writeOne(const std::string& key, const std::optional<PropertyValue>& value) {
  if (!value) {
    if (!remove_) remove_.emplace(database_, "DELETE FROM settings WHERE key = ?1");
    bindKey(*remove_, key);
    remove_->run();
    return;
  }
  if (!upsert_) {
    upsert_.emplace(database_,
                    "INSERT INTO settings (key, type, value) VALUES (?1, ?2, ?3) "
                    "ON CONFLICT (key) DO UPDATE SET type = excluded.type, value = excluded.value");
  }
  const StoredValue stored = encode(*value);
  bindKey(*upsert_, key);
  upsert_->bind(2, stored.type);
  bindColumn(*upsert_, 3, stored.value);
  upsert_->run();
}

}  // namespace wayfell
