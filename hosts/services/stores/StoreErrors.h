// What is wrong with the file of a store: which kind of trouble an error of SQLite's is, and how it
// is told.
#pragma once

#include <SQLiteCpp/Exception.h>

#include <filesystem>
#include <string>
#include <utility>

#include "hosts/services/Warn.h"

namespace wayfell {

/// The file is no database, or one that has been spoilt.
bool isDamage(const SQLite::Exception& error);
/// Somebody else has held a lock for longer than was waited.
bool isForWantOfALock(const SQLite::Exception& error);
/// A file, or one that SQLite has beside it, may not be opened or written to.
bool isForWantOfAccess(const SQLite::Exception& error);
/// A program was ended in the middle of a change, which has to be undone before anything is read;
/// to undo it is to write.
bool isForAnUnfinishedChange(const SQLite::Exception& error);
/// There is no room for the -shm file, which whoever comes first makes and gives its size.
bool isForWantOfSpace(const SQLite::Exception& error);

/// A row, or a value in it, is larger than kLargestRow.
bool isForSize(const SQLite::Exception& error);

/// Whether the user may not do that with the path: R_OK or W_OK. errno says why.
bool isDenied(const std::filesystem::path& path, int access);

/// Why the file cannot be read, or written to, for people.
std::string whyNotRead(const SQLite::Exception& error, const std::filesystem::path& file);
std::string whyNotWritten(const SQLite::Exception& error, const std::filesystem::path& file);

/// Says a sentence once, until it is over or another takes its place.
class Complaint {
 public:
  void tell(const Warn& warn, std::string sentence) {
    if (sentence == told_) return;
    told_ = std::move(sentence);
    warn(told_);
  }
  void over() { told_.clear(); }

 private:
  std::string told_;
};

}  // namespace wayfell
