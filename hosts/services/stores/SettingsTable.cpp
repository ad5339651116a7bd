#include "hosts/services/stores/SettingsTable.h"

#include <sqlite3.h>

#include <utility>

#include "hosts/services/stores/StoreErrors.h"
#include "hosts/services/stores/StoredValue.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

Column valueIn(const SQLite::Column& column) {
  if (column.isInteger()) return column.getInt64();
  if (column.isFloat()) return column.getDouble();
  if (column.isText()) return column.getString();
  if (column.isNull()) return nullptr;
  const auto* const bytes = static_cast<const std::uint8_t*>(column.getBlob());
  return PropertyValue::Data(bytes, bytes + column.getBytes());
}

void bindBytes(SQLite::Statement& statement, int parameter, const void* bytes, std::size_t size) {
  // No data would be bound as null, which an empty blob is not.
  statement.bind(parameter, size > 0 ? bytes : "", static_cast<int>(size));
}

void bindColumn(SQLite::Statement& statement, int parameter, const Column& column) {
  struct Bind {
    SQLite::Statement& statement;
    int parameter;
    void operator()(std::nullptr_t) const { statement.bind(parameter); }
    void operator()(std::int64_t integer) const { statement.bind(parameter, integer); }
    void operator()(double real) const { statement.bind(parameter, real); }
    void operator()(const std::string& text) const { statement.bind(parameter, text); }
    void operator()(const PropertyValue::Data& bytes) const {
      bindBytes(statement, parameter, bytes.data(), bytes.size());
    }
  };
  std::visit(Bind{statement, parameter}, column);
}

// A key is kept as a text is: as bytes if it is not plain.
void bindKey(SQLite::Statement& statement, const std::string& key) {
  if (isPlainText(key)) {
    statement.bind(1, key);
  } else {
    bindBytes(statement, 1, key.data(), key.size());
  }
}

// Beside the key and the value a row has the type, and a few bytes that say how long each is.
constexpr std::size_t kRestOfRow = 64;
constexpr const char* kTooLarge = "it is larger than 16 MiB";

PropertyValue valueOfRow(const SQLite::Column& type, const SQLite::Column& value) {
  return decode(type.getText(), valueIn(value));
}

}  // namespace

SettingsTable::SettingsTable(SQLite::Database database)
    : database_(std::move(database)),
      dataVersion_(database_, "PRAGMA data_version"),
      readAll_(database_, "SELECT key, type, value FROM settings LIMIT -1 OFFSET ?1"),
      readOne_(database_, "SELECT type, value FROM settings WHERE key = ?1") {}

std::int64_t SettingsTable::dataVersion() {
  const StatementRun run(dataVersion_);
  dataVersion_.executeStep();
  return dataVersion_.getColumn(0).getInt64();
}

SettingsTable::Contents SettingsTable::read() {
  std::int64_t row = 0;
  try {
    Contents contents;
    readOn(contents, row);
    return contents;
  } catch (const SQLite::Exception& error) {
    if (!isForSize(error)) throw;
  }
  // A statement ends at a row that is too large, so each such row takes another one to get past it.
  const SQLite::Transaction atOneInstant(database_);
  Contents contents;
  row = 0;
  for (bool isWhole = false; !isWhole;) {
    try {
      readOn(contents, row);
      isWhole = true;
    } catch (const SQLite::Exception& error) {
      if (!isForSize(error)) throw;
      contents.faults.push_back(
          localizedStringWithFormat("the row of %@ holds no value: %@", nameOfRow(row), kTooLarge));
      ++row;
    }
  }
  return contents;
}

// The key, if that is not what is too large.
std::string SettingsTable::nameOfRow(std::int64_t row) {
  try {
    SQLite::Statement key(database_, "SELECT key FROM settings LIMIT 1 OFFSET ?1");
    key.bind(1, row);
    if (key.executeStep()) return inQuotes(key.getColumn(0).getString());
  } catch (const SQLite::Exception& error) {
    if (!isForSize(error)) throw;
  }
  return "a large key";
}

// From that row to the last; after an error it is the row that could not be read.
void SettingsTable::readOn(Contents& contents, std::int64_t& row) {
  const StatementRun run(readAll_);
  readAll_.bind(1, row);
  for (; readAll_.executeStep(); ++row) {
    const SQLite::Column keyColumn = readAll_.getColumn(0);
    const SQLite::Column type = readAll_.getColumn(1);
    // The schema allows neither. A page that has been cut off reads as zeros, which are these.
    if (keyColumn.isNull() || type.isNull()) {
      throw SQLite::Exception("it has a row without a key or a type", SQLITE_CORRUPT);
    }
    const std::string key = keyColumn.getString();
    try {
      // Each key has one way to be kept; a row with the other one would be a second value for it.
      if (keyColumn.isText() != isPlainText(key)) {
        throw BadValue("its key is kept in the wrong way");
      }
      contents.values.insert_or_assign(key, valueOfRow(type, readAll_.getColumn(2)));
    } catch (const BadValue& fault) {
      contents.faults.push_back(localizedStringWithFormat("the row of %@ holds no value: %@",
                                                          inQuotes(key), fault.what()));
    }
  }
}

void SettingsTable::check(const std::string& key, const PropertyValue& value) {
  const Column column = encode(value).value;
  std::size_t size = key.size() + kRestOfRow;
  if (const auto* text = std::get_if<std::string>(&column)) size += text->size();
  if (const auto* bytes = std::get_if<PropertyValue::Data>(&column)) size += bytes->size();
  if (size > std::size_t{kLargestRow}) throw BadValue(kTooLarge);
}

bool SettingsTable::holds(const std::string& key, const std::optional<PropertyValue>& value) {
  const StatementRun run(readOne_);
  bindKey(readOne_, key);
  const bool isThere = readOne_.executeStep();
  if (!isThere || !value) return !isThere && !value;
  try {
    return encode(valueOfRow(readOne_.getColumn(0), readOne_.getColumn(1))) == encode(*value);
  } catch (const BadValue&) {
    return false;
  }
}

void SettingsTable::write(const Changes& changes) {
  // Takes the right to write at once, so that it cannot fail half-way for want of it.
  SQLite::Transaction transaction(database_, SQLite::TransactionBehavior::IMMEDIATE);
  for (const auto& [key, value] : changes) writeOne(key, value);
  transaction.commit();
}

void SettingsTable::writeOne(const std::string& key, const std::optional<PropertyValue>& value) {
  if (!value) {
    if (!remove_) remove_.emplace(database_, "DELETE FROM settings WHERE key = ?1");
    const StatementRun run(*remove_);
    bindKey(*remove_, key);
    remove_->exec();
    return;
  }
  if (!upsert_) {
    upsert_.emplace(database_,
                    "INSERT INTO settings (key, type, value) VALUES (?1, ?2, ?3) "
                    "ON CONFLICT (key) DO UPDATE SET type = excluded.type, value = excluded.value");
  }
  const StoredValue stored = encode(*value);
  const StatementRun run(*upsert_);
  bindKey(*upsert_, key);
  upsert_->bind(2, std::string(stored.type));
  bindColumn(*upsert_, 3, stored.value);
  upsert_->exec();
}

}  // namespace wayfell
