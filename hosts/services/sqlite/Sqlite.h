// SQLiteCpp, and what it lacks. One thread at a time uses a database and its statements; a database
// outlives its statements.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include <chrono>
#include <filesystem>

namespace wayfell {

enum class DatabaseAccess {
  readWrite,  ///< created if it is not there
  readOnly,
  /// Read-only, taking for granted that nobody writes: needs nothing beside the file itself, and
  /// does not see what is still in a write-ahead log.
  immutable,
};

/// The largest row, and so the largest value, that is read or written, in bytes. A setting is a few
/// of them; one of hundreds of megabytes is a mistake or meant to do harm.
inline constexpr int kLargestRow = 16 * 1024 * 1024;

/// No code in the file is run: its triggers and views count for nothing, and it cannot make
/// functions do anything but compute. A value larger than kLargestRow is SQLITE_TOOBIG when it is
/// read, a row so large when it is written, and pages are looked at before they are trusted.
///
/// Throws SQLite::Exception. That the file is no database shows at the first statement.
SQLite::Database openDatabase(const std::filesystem::path& path, DatabaseAccess access);

/// How long to wait for what another program has locked; not at all at first. Locks are asked for
/// every millisecond. SQLiteCpp's way soon asks only ten times a second, and then hardly ever finds
/// the moment between the writes of a busy program.
void waitForLocks(SQLite::Database& database, std::chrono::milliseconds longest);

/// Whether the file itself lets us write; asking to does not always make it so.
bool isWritable(const SQLite::Database& database);

/// A run of a statement. However it ends, it holds no lock then, and the statement can be run anew.
class StatementRun {
 public:
  explicit StatementRun(SQLite::Statement& statement) : statement_(statement) {}
  ~StatementRun() { statement_.tryReset(); }
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

 private:
  SQLite::Statement& statement_;
};

/// Runs a statement that gives no rows. Texts are copied.
template <class... Values>
void run(SQLite::Statement& statement, const Values&... parameters) {
  const StatementRun run(statement);
  SQLite::bind(statement, parameters...);
  statement.exec();
}

}  // namespace wayfell
