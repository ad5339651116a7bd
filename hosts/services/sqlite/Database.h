// SQLite with its handles owned and its errors thrown. One thread at a time uses a database and
// its statements.
//
//   Database database(path, Database::Open::readWrite);
//   Statement insert(database, "INSERT INTO settings VALUES (?1, ?2)");
//   insert.bind(1, "units").bind(2, std::int64_t{1}).run();
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace wayfell {

class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(int code, const std::string& what) : std::runtime_error(what), code_(code) {}
  /// SQLite's extended result code; its low byte is the primary one.
  int code() const { return code_; }
  int primaryCode() const { return code_ & 0xff; }

 private:
  int code_;
};

class Database {
 public:
  enum class Open {
    readWrite,  ///< created if it is not there
    readOnly,
    /// Read-only, taking for granted that nobody writes: needs nothing beside the file itself, and
    /// does not see what is still in a write-ahead log.
    immutable,
  };

  /// Throws DatabaseError. That the file is no database shows at the first statement.
  Database(const std::filesystem::path& path, Open how);

  /// Runs statements that give no rows. Throws DatabaseError.
  void execute(const char* sql);
  /// The one integer that a query gives.
  std::int64_t integer(const char* sql);
  /// How long to wait for what another program has locked; ten seconds at first.
  void waitForLocks(std::chrono::milliseconds longest);
  /// Whether the file itself lets us write; asking to does not always make it so.
  bool writable() const;
  /// Of the last statement.
  int changes() const;
  sqlite3* handle() const { return handle_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };
  // How often to ask for a lock, where the handle finds it although the database may be moved.
  std::unique_ptr<int> patience_ = std::make_unique<int>();
  std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement, to be run again and again. The database must outlive it.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);

  /// Parameters count from 1 and keep their values until bound again. Texts and bytes are copied.
  Statement& bind(int parameter, std::int64_t value);
  Statement& bind(int parameter, double value);
  Statement& bind(int parameter, std::string_view value);
  Statement& bindBytes(int parameter, std::string_view value);
  Statement& bindNull(int parameter);
  Statement& bind(int parameter, const char* value) {
    return bind(parameter, std::string_view(value));
  }
  /// Other types would be converted to who knows which of these.
  template <class Other>
  Statement& bind(int parameter, Other value) = delete;

  /// Goes to the next row; false after the last, and the statement can be run anew. Throws
  /// DatabaseError, after which it can be run anew too.
  bool step();
  /// To the end.
  void run();
  /// Ends a run before its last row.
  void reset();

  // Of the current row, counted from 0. Texts and bytes are valid until the next step.
  enum class Type { null, integer, real, text, bytes };
  Type type(int column) const;
  std::int64_t integer(int column) const;
  double real(int column) const;
  std::string_view text(int column) const;
  std::string_view bytes(int column) const;

 private:
  void check(int result) const;

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// Several changes that happen together or not at all.
class Transaction {
 public:
  /// Takes the right to write at once, so that it cannot fail half-way for want of it.
  explicit Transaction(Database& database);
  /// Rolls back what was not committed.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace wayfell
