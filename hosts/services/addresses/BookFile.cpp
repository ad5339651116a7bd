#include "hosts/services/addresses/BookFile.h"

#include <string>

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

void setPragma(Database& database, const char* name, std::int64_t value) {
  database.execute(("PRAGMA " + std::string(name) + " = " + std::to_string(value)).c_str());
}

void checkKind(Database& database) {
  if (database.integer("PRAGMA application_id") != kApplication) {
    throw BookError("not an address book");
  }
  if (database.integer("PRAGMA user_version") > kVersion) {
    throw BookError("written by a newer wayfell");
  }
}

}  // namespace

std::filesystem::path addressBookPath() { return dataFolder() / "addresses.db"; }

void createBook(Database& database) {
  setPragma(database, "application_id", kApplication);
  setPragma(database, "user_version", kVersion);
  database.execute(kSchema);
}

Database openBook(const std::filesystem::path& path) {
  try {
    Database database(path, Database::Open::immutable);
    checkKind(database);
    return database;
  } catch (const DatabaseError& error) {
    throw BookError(error.what());
  }
}

BookSummary readSummary(Database& book) {
  Statement select(book, "SELECT addresses, south, west, north, east FROM summary");
  if (!select.step()) return {};
  return {select.integer(0), select.real(1), select.real(2), select.real(3), select.real(4)};
}

void writeSummary(Database& book, const BookSummary& summary) {
  book.execute("DELETE FROM summary");
  Statement insert(book, "INSERT INTO summary VALUES (?1, ?2, ?3, ?4, ?5)");
  insert.bind(1, summary.addresses).bind(2, summary.south).bind(3, summary.west);
  insert.bind(4, summary.north).bind(5, summary.east).run();
}

}  // namespace wayfell
