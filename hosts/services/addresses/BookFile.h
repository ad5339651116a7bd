// The file of an address book: an SQLite database, never changed once it is in its place, and
// replaced as a whole.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <stdexcept>

namespace SQLite {  // NOLINT(readability-identifier-naming): SQLiteCpp's name
class Database;
}

namespace wayfell {

/// Says what is wrong with a book, for the user: it lacks the path.
class BookError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// addresses.db in the data folder of the stores. Throws as they do.
std::filesystem::path addressBookPath();

/// Positions are whole numbers of these in the file: 1 cm, and 180 degrees fit 32 bits.
inline constexpr double kBookUnitsPerDegree = 1e7;

/// What a book holds, in degrees. Without addresses the area is nowhere.
struct BookSummary {
  std::int64_t addresses = 0;
  double south = std::numeric_limits<double>::infinity();
  double west = std::numeric_limits<double>::infinity();
  double north = -std::numeric_limits<double>::infinity();
  double east = -std::numeric_limits<double>::infinity();
};

/// Makes an empty file a book without addresses.
void createBook(SQLite::Database& database);
/// Opens a book to be read. Throws BookError for a file that is none, or is of a newer kind, and
/// for one that cannot be read.
SQLite::Database openBook(const std::filesystem::path& path);

BookSummary readSummary(SQLite::Database& book);
/// Opens the book for it. Throws as openBook does.
BookSummary readSummary(const std::filesystem::path& path);
void writeSummary(SQLite::Database& book, const BookSummary& summary);

}  // namespace wayfell
