// What makes a SQLite file a settings file: what kind of file it is, the table that it gets, and
// how it is written. Everything throws SQLite::Exception.
#pragma once

#include <chrono>
#include <cstdint>

#include "hosts/services/sqlite/Sqlite.h"

namespace wayfell {

/// What a file says it is.
struct FileKind {
  enum Kind {
    settings,
    empty,    ///< a database without anything in it, to be made ours
    foreign,  ///< another program's
    newer,    ///< of a later version of this program
  } kind = foreign;
  std::int64_t applicationId = 0;
  std::int64_t version = 0;
};

FileKind kindOf(SQLite::Database& database);
/// Gives an empty database the table. Any number of processes may do so at once.
void makeSettings(SQLite::Database& database);
/// Prepares a connection that writes, and waits as long for locks: commits go to a write-ahead log,
/// and to the disk. A file that others have open for so long in another mode keeps that, in which
/// readers and writers wait for each other and lose nothing.
void writeAhead(SQLite::Database& database, std::chrono::milliseconds longest);

}  // namespace wayfell
