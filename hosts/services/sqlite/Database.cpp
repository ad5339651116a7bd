#include "hosts/services/sqlite/Database.h"

#include <sqlite3.h>

#include <thread>

namespace wayfell {
namespace {

// Writers hold the lock for milliseconds, so that whoever waits this long waits for something that
// has gone wrong.
constexpr std::chrono::milliseconds kPatience(10'000);

// How often a lock is asked for. SQLite's own handler soon asks only ten times a second, and then
// hardly ever finds the moment between the writes of a busy program.
constexpr std::chrono::milliseconds kPause(1);

int waitForLock(void* patience, int earlierCalls) {
  if (earlierCalls >= *static_cast<const int*>(patience)) return 0;
  std::this_thread::sleep_for(kPause);
  return 1;
}

[[noreturn]] void fail(sqlite3* handle, int result) {
  const int code = handle != nullptr ? sqlite3_extended_errcode(handle) : result;
  const char* const message = handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(result);
  throw DatabaseError(code != SQLITE_OK ? code : result, message);
}

// A path as a URI, in which "?", "#" and "%" have meanings.
std::string uriOf(const std::filesystem::path& path) {
  std::string uri = "file:";
  for (const char c : std::filesystem::absolute(path).string()) {
    switch (c) {
      case '%':
        uri += "%25";
        break;
      case '?':
        uri += "%3f";
        break;
      case '#':
        uri += "%23";
        break;
      default:
        uri += c;
    }
  }
  return uri;
}

}  // namespace

void Database::Close::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

Database::Database(const std::filesystem::path& path, Open how) {
  const std::string uri = uriOf(path) + (how == Open::immutable ? "?immutable=1" : "");
  const int access =
      how == Open::readWrite ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(uri.c_str(), &handle,
                                     access | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) fail(handle, result);
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_busy_handler(handle, waitForLock, patience_.get());
  waitForLocks(kPatience);
}

void Database::execute(const char* sql) {
  const int result = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) fail(handle(), result);
}

std::int64_t Database::integer(const char* sql) {
  Statement statement(*this, sql);
  return statement.step() ? statement.integer(0) : 0;
}

void Database::waitForLocks(std::chrono::milliseconds longest) {
  *patience_ = static_cast<int>(longest / kPause);
}

bool Database::writable() const { return sqlite3_db_readonly(handle(), "main") == 0; }

int Database::changes() const { return sqlite3_changes(handle()); }

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(Database& database, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v2(database.handle(), sql.data(), static_cast<int>(sql.size()),
                                        &statement, nullptr);
  statement_.reset(statement);
  if (result != SQLITE_OK) fail(database.handle(), result);
}

void Statement::check(int result) const {
  if (result != SQLITE_OK) fail(sqlite3_db_handle(statement_.get()), result);
}

Statement& Statement::bind(int parameter, std::int64_t value) {
  check(sqlite3_bind_int64(statement_.get(), parameter, value));
  return *this;
}

Statement& Statement::bind(int parameter, double value) {
  check(sqlite3_bind_double(statement_.get(), parameter, value));
  return *this;
}

Statement& Statement::bind(int parameter, std::string_view value) {
  // No data would be bound as null, which an empty text is not.
  const char* const data = value.empty() ? "" : value.data();
  check(sqlite3_bind_text64(statement_.get(), parameter, data, value.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8));
  return *this;
}

Statement& Statement::bindBytes(int parameter, std::string_view value) {
  const char* const data = value.empty() ? "" : value.data();
  check(sqlite3_bind_blob64(statement_.get(), parameter, data, value.size(), SQLITE_TRANSIENT));
  return *this;
}

Statement& Statement::bindNull(int parameter) {
  check(sqlite3_bind_null(statement_.get(), parameter));
  return *this;
}

bool Statement::step() {
  const int result = sqlite3_step(statement_.get());
  if (result == SQLITE_ROW) return true;
  // The error is told by the step; what resetting returns is the same once more.
  if (result != SQLITE_DONE) {
    sqlite3* const handle = sqlite3_db_handle(statement_.get());
    const int code = sqlite3_extended_errcode(handle);
    const std::string message = sqlite3_errmsg(handle);
    reset();
    throw DatabaseError(code, message);
  }
  reset();
  return false;
}

void Statement::run() {
  while (step()) {
  }
}

void Statement::reset() { sqlite3_reset(statement_.get()); }

Statement::Type Statement::type(int column) const {
  switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_INTEGER:
      return Type::integer;
    case SQLITE_FLOAT:
      return Type::real;
    case SQLITE_TEXT:
      return Type::text;
    case SQLITE_BLOB:
      return Type::bytes;
    default:
      return Type::null;
  }
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

double Statement::real(int column) const { return sqlite3_column_double(statement_.get(), column); }

std::string_view Statement::text(int column) const {
  // Asked for first, so that a database in UTF-16 counts its bytes in UTF-8.
  const unsigned char* const data = sqlite3_column_text(statement_.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  return {reinterpret_cast<const char*>(data), size};
}

std::string_view Statement::bytes(int column) const {
  const auto* const data = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
  return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

Transaction::Transaction(Database& database) : database_(database) {
  database_.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    database_.execute("ROLLBACK");
  } catch (const DatabaseError&) {
    // SQLite has rolled back by itself: a full disk, for one, makes it.
  }
}

void Transaction::commit() {
  database_.execute("COMMIT");
  open_ = false;
}

}  // namespace wayfell
