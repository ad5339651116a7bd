#include "hosts/services/addresses/BookFile.h"

#include <string>

#include "hosts/services/sqlite/Sqlite.h"
#include "hosts/services/stores/StorePaths.h"

namespace wayfell {
namespace {

constexpr std::int64_t kApplication = 0x57664164;  // "WfAd"
constexpr std::int64_t kVersion = 1;

// Towns and streets are written once, however many addresses are in them; what is not known of
// them is an empty text. An R*Tree of whole numbers keeps the positions as they are.
constexpr const char* kSchema = R"(
  CREATE TABLE summary (addresses INTEGER, south REAL, west REAL, north REAL, east REAL);
  CREATE TABLE town (id INTEGER PRIMARY KEY, city TEXT NOT NULL, region TEXT NOT NULL,
                     country TEXT NOT NULL, UNIQUE (city, region, country));
  CREATE TABLE street (id INTEGER PRIMARY KEY, name TEXT NOT NULL, town INTEGER NOT NULL,
                       UNIQUE (name, town));
  CREATE VIRTUAL TABLE address USING rtree_i32(id, west, east, south, north,
                                               +number TEXT, +street INTEGER);
)";

void checkKind(SQLite::Database& database) {
  if (database.execAndGet("PRAGMA application_id").getInt64() != kApplication) {
    throw BookError("not an address book");
  }
  if (database.execAndGet("PRAGMA user_version").getInt64() > kVersion) {
    throw BookError("written by a newer wayfell");
  }
}

}  // namespace

std::filesystem::path addressBookPath() { return dataFolder() / "addresses.db"; }

void createBook(SQLite::Database& database) {
  database.exec("PRAGMA application_id = " + std::to_string(kApplication) +
                "; PRAGMA user_version = " + std::to_string(kVersion));
  database.exec(kSchema);
}

SQLite::Database openBook(const std::filesystem::path& path) {
  try {
    SQLite::Database database = openDatabase(path, DatabaseAccess::immutable);
    checkKind(database);
    return database;
  } catch (const SQLite::Exception& error) {
    throw BookError(error.what());
  }
}

BookSummary readSummary(SQLite::Database& book) {
  SQLite::Statement select(book, "SELECT addresses, south, west, north, east FROM summary");
  if (!select.executeStep()) return {};
  const auto degrees = [&select](int column) { return select.getColumn(column).getDouble(); };
  return {select.getColumn(0).getInt64(), degrees(1), degrees(2), degrees(3), degrees(4)};
}

BookSummary readSummary(const std::filesystem::path& path) {
  SQLite::Database book = openBook(path);
  return readSummary(book);
}

void writeSummary(SQLite::Database& book, const BookSummary& summary) {
  book.exec("DELETE FROM summary");
  SQLite::Statement insert(book, "INSERT INTO summary VALUES (?1, ?2, ?3, ?4, ?5)");
  run(insert, summary.addresses, summary.south, summary.west, summary.north, summary.east);
}

}  // namespace wayfell
