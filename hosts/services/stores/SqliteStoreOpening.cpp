#include <sqlite3.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "hosts/services/stores/SqliteStoreImplementation.h"
#include "platform/NSBundle.h"

namespace wayfell {

void SqliteStore::Implementation::open() {
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    if (openOnce()) return;
  }
}

// False when the file was put aside, by this process or another, and a new one is to be opened.
bool SqliteStore::Implementation::openOnce() {
  table_.reset();
  state_ = State::unreadable;
  sealed_ = false;
  isOurs_ = true;
  values_.clear();
  overlay(unsaved_, values_);
  mark_ = markOf(file_);
  if (!mark_ && isDanglingLink()) return true;
  if (!mark_ && access_ == Access::readOnly) {
    state_ = State::missing;
    opening_.over();
    return true;
  }
  try {
    if (!mark_) {
      createPrivateFile(file_);
      mark_ = markOf(file_).value_or(FileMark{});
    }
    // SQLite would wait for somebody at the other end of a pipe.
    if (!mark_->isFile) throw SQLite::Exception("it is not a file", SQLITE_CANTOPEN);
    connect();
    return true;
  } catch (const std::system_error& error) {
    tell(opening_, localizedStringWithFormat(
                       "cannot be created: %@; settings are kept only until the program ends",
                       error.code().message()));
  } catch (const SQLite::Exception& error) {
    table_.reset();
    state_ = State::unreadable;
    if (isDamage(error)) return !putAside(error);
    if (!isStillAt(file_, *mark_)) return false;
    tell(opening_,
         localizedStringWithFormat("cannot be read: %@; its settings count as missing, and "
                                   "changes last until the program ends",
                                   whyNotRead(error, file_)));
  }
  return true;
}

// What it should lead to is not made: a folder that is missing may be on a disk that is not there.
bool SqliteStore::Implementation::isDanglingLink() {
  const std::filesystem::path end = endOfDanglingLink(file_);
  if (end.empty()) return false;
  if (access_ == Access::readOnly) state_ = State::missing;
  const std::filesystem::path folder = end.parent_path();
  tell(opening_,
       std::filesystem::exists(folder)
           ? localizedStringWithFormat("is a symbolic link to %@, which is not there; its settings "
                                       "count as missing, and changes last until the program ends",
                                       end.string())
           : localizedStringWithFormat("is a symbolic link to %@, which is not there, nor is the "
                                       "folder %@; its settings count as missing, and changes last "
                                       "until the program ends",
                                       end.string(), folder.string()));
  return true;
}

void SqliteStore::Implementation::connect() {
  const FileKind found = startReading();
  switch (found.kind) {
    case FileKind::foreign:
      tell(opening_,
           localizedStringWithFormat(
               "belongs to another program (its application_id is %@); its settings count "
               "as missing, and it is not written to",
               std::to_string(found.applicationId)));
      return;
    case FileKind::newer:
      state_ = State::readable;
      isOurs_ = false;
      tell(opening_, localizedStringWithFormat(
                         "was written by a later version of this program (its user_version is %@); "
                         "it is read as far as it can be, and not written to",
                         std::to_string(found.version)));
      break;
    case FileKind::empty:
    case FileKind::settings:
      state_ = found.kind == FileKind::empty ? State::missing : State::readable;
      if (access_ == Access::readWrite) startWriting(found.kind);
  }
  if (table_) load();
  const bool isAsWanted = access_ == Access::readOnly ? isOurs_ : state_ == State::writable;
  if (isAsWanted) opening_.over();
}

// First for reading only, which leaves a file that is not ours as it is.
FileKind SqliteStore::Implementation::startReading() {
  try {
    return startReading(DatabaseAccess::readOnly);
  } catch (const SQLite::Exception& error) {
    if (!isForAnUnfinishedChange(error)) return readWithoutFilesBeside(error);
  }
  undoUnfinishedChange();
  return startReading(DatabaseAccess::readOnly);
}

// SQLite needs its files beside the database, and may not be able to make them in this folder. It
// can do without as long as there is nothing in them that is not in the database itself, or, in a
// journal, that is to be undone in it.
FileKind SqliteStore::Implementation::readWithoutFilesBeside(const SQLite::Exception& why) {
  const bool canDoWithout = isForWantOfAccess(why) || isForWantOfSpace(why);
  if (!canDoWithout || mark_->journalSize > 0 || isDenied(file_, R_OK)) throw why;
  if (mark_->logSize > 0) {
    const std::string what = isForWantOfSpace(why) ? "the full disk" : "its folder";
    throw SQLite::Exception(
        "the latest changes are still in its -wal file, which " + what + " does not let be opened",
        why.getErrorCode());
  }
  sealed_ = true;
  return startReading(DatabaseAccess::immutable);
}

// As the first one does who opens the file for writing and reads. What is undone was never part of
// the file, so this is done to a file that is not ours too: before it nobody can tell whose it is.
void SqliteStore::Implementation::undoUnfinishedChange() {
  try {
    // Without this the file would be undone, and the journal stay, again and again.
    if (isDenied(std::filesystem::canonical(file_).parent_path(), W_OK)) {
      throw SQLite::Exception("its folder is read-only", SQLITE_READONLY);
    }
    SQLite::Database database = openDatabase(file_, DatabaseAccess::readWrite);
    waitForLocks(database, patience_);
    kindOf(database);
  } catch (const SQLite::Exception& error) {
    if (isDamage(error) || isForWantOfALock(error)) throw;
    throw SQLite::Exception(
        "a program was ended in the middle of a change, which cannot be undone with its -journal "
        "file: " +
            whyNotWritten(error, file_),
        SQLITE_READONLY);
  }
}

FileKind SqliteStore::Implementation::startReading(DatabaseAccess access) {
  SQLite::Database database = openDatabase(file_, access);
  waitForLocks(database, kCommandPatience);
  const FileKind found = kindOf(database);
  if (found.kind == FileKind::settings || found.kind == FileKind::newer) {
    table_.emplace(std::move(database));
  }
  return found;
}

void SqliteStore::Implementation::startWriting(FileKind::Kind kind) {
  try {
    SQLite::Database database = openDatabase(file_, DatabaseAccess::readWrite);
    waitForLocks(database, kCommandPatience);
    if (!isWritable(database)) throw SQLite::Exception("it is read-only", SQLITE_READONLY);
    if (kind == FileKind::empty) makeSettings(database);
    writeAhead(database, kCommandPatience);
    table_.emplace(std::move(database));
    table_->waitForLocks(patience_);
    state_ = State::writable;
    sealed_ = false;
  } catch (const SQLite::Exception& error) {
    if (isDamage(error)) throw;
    tell(opening_,
         localizedStringWithFormat("cannot be written to: %@; changes last until the program ends",
                                   whyNotWritten(error, file_)));
  }
}

// False when nothing could be done about it.
bool SqliteStore::Implementation::putAside(const SQLite::Exception& damage) {
  const std::string what = damage.what();
  if (access_ == Access::readOnly || !isOurs_) {
    tell(opening_,
         localizedStringWithFormat("is damaged: %@; its settings count as missing", what));
    return false;
  }
  try {
    if (const auto name = setAside(file_, *mark_)) {
      tell(opening_,
           localizedStringWithFormat(
               "is damaged: %@; it is kept as %@, and a new one is begun without settings", what,
               name->filename().string()));
    }
    return true;
  } catch (const std::system_error& error) {
    tell(opening_,
         localizedStringWithFormat("is damaged: %@; it cannot be put aside (%@), so its settings "
                                   "count as missing and changes last until the program ends",
                                   what, error.code().message()));
    return false;
  }
}

}  // namespace wayfell
