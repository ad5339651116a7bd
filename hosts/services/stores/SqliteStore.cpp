#include "hosts/services/stores/SqliteStore.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include "hosts/services/stores/PrivateFile.h"
#include "hosts/services/stores/StoreSchema.h"
#include "hosts/services/stores/StoredValue.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

// Once a lock has been held for so long that a change was put off, the next changes hardly wait, so
// that a stuck program does not hold up this one.
constexpr auto kImpatience = 50ms;

constexpr int kOpenAttempts = 3;  // each after another process has put the file aside

bool isDamage(const SQLite::Exception& error) {
  return error.getErrorCode() == SQLITE_CORRUPT || error.getErrorCode() == SQLITE_NOTADB;
}

bool isForWantOfAccess(const SQLite::Exception& error) {
  return error.getErrorCode() == SQLITE_CANTOPEN || error.getErrorCode() == SQLITE_READONLY;
}

// For the -shm file, which whoever comes first makes and gives its size.
bool isForWantOfSpace(const SQLite::Exception& error) {
  return error.getExtendedErrorCode() == SQLITE_IOERR_SHMSIZE;
}

bool isDenied(const std::filesystem::path& path, int access) {
  return ::access(path.c_str(), access) != 0;
}

// Where access is wanting, all that SQLite says is that it could not open a file.
std::string whyNotRead(const SQLite::Exception& error, const std::filesystem::path& file) {
  if (isForWantOfAccess(error) && isDenied(file, R_OK)) {
    return std::generic_category().message(errno);
  }
  return error.what();
}

std::string whyNotWritten(const SQLite::Exception& error, const std::filesystem::path& file) {
  if (isForWantOfAccess(error)) {
    if (isDenied(file, W_OK)) return "it is read-only";
    if (isDenied(file.parent_path(), W_OK)) return "its folder is read-only";
  }
  if (isForWantOfSpace(error)) return "the disk is full";
  return error.what();
}

// Says a sentence once, until it is over or another takes its place.
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

void overlay(const SqliteStore::Changes& changes, PropertyValue::Dictionary& values) {
  for (const auto& [key, value] : changes) {
    if (value) {
      values.insert_or_assign(key, *value);
    } else {
      values.erase(key);
    }
  }
}

}  // namespace

Turn turnOfEachRead() {
  return [turn = std::uint64_t{0}]() mutable { return ++turn; };
}

class SqliteStore::Implementation {
 public:
  Implementation(std::filesystem::path file, Access access, Turn turn, Warn warn,
                 std::chrono::milliseconds patience)
      : file_(std::move(file)),
        access_(access),
        turn_(std::move(turn)),
        warn_(std::move(warn)),
        patience_(patience) {
    open();
  }

  const PropertyValue::Dictionary& values() {
    refresh();
    return values_;
  }
  State state() {
    refresh();
    return state_;
  }
  bool setAll(const Changes& changes);
  const std::filesystem::path& file() const { return file_; }

 private:
  void refresh();
  bool isReplaced() const;
  void load();

  void open();
  bool openOnce();
  void connect();
  FileKind startReading();
  FileKind startReading(DatabaseAccess access);
  void startWriting(FileKind::Kind kind);

  bool putAside(const SQLite::Exception& damage);

  bool isThere(const Changes& changes);
  bool save();
  enum class Outcome { written, putAside, failed };
  Outcome write();

  void tell(Complaint& complaint, const std::string& what) {
    complaint.tell(warn_, file_.string() + ": " + what);
  }

  const std::filesystem::path file_;
  const Access access_;
  const Turn turn_;
  const Warn warn_;
  const std::chrono::milliseconds patience_;

  std::optional<SettingsTable> table_;
  State state_ = State::unreadable;
  std::optional<FileMark> mark_;  // of the file when it was opened
  bool sealed_ = false;           // opened so that others' changes show in nothing but the mark
  bool isOurs_ = true;            // and not a later version's

  std::optional<std::uint64_t> lastTurn_;
  std::int64_t dataVersion_ = 0;
  PropertyValue::Dictionary values_;  // with the unsaved ones
  Changes unsaved_;

  Complaint opening_;
  Complaint reading_;
  Complaint saving_;
  Complaint rows_;
};

// ---- Reading ----

void SqliteStore::Implementation::refresh() {
  const std::uint64_t turn = turn_();
  if (turn == lastTurn_) return;
  lastTurn_ = turn;
  if (isReplaced()) {
    open();
    return;
  }
  if (!table_) return;
  try {
    if (table_->dataVersion() != dataVersion_) load();
    reading_.over();
  } catch (const SQLite::Exception& error) {
    if (isDamage(error) && putAside(error)) {
      open();
    } else {
      tell(reading_, std::string("cannot be read just now: ") + error.what() +
                         "; the settings stay as they were last read");
    }
  }
}

bool SqliteStore::Implementation::isReplaced() const {
  if (!table_ || sealed_) return markOf(file_) != mark_;
  return !isStillAt(file_, *mark_);
}

void SqliteStore::Implementation::load() {
  // In this order: what is written in between is then noticed by the next look.
  const std::int64_t version = table_->dataVersion();
  SettingsTable::Contents contents = table_->read();
  dataVersion_ = version;
  values_ = std::move(contents.values);
  overlay(unsaved_, values_);

  if (contents.faults.empty()) {
    rows_.over();
    return;
  }
  const std::size_t others = contents.faults.size() - 1;
  tell(rows_, contents.faults.front() +
                  (others > 0 ? " (and " + std::to_string(others) + " more like it)" : "") +
                  "; it is left there and counts as missing");
}

// ---- Opening ----

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
    tell(opening_, "cannot be created: " + error.code().message() +
                       "; settings are kept only until the program ends");
  } catch (const SQLite::Exception& error) {
    table_.reset();
    state_ = State::unreadable;
    if (isDamage(error)) return !putAside(error);
    if (!isStillAt(file_, *mark_)) return false;
    tell(opening_, "cannot be read: " + whyNotRead(error, file_) +
                       "; its settings count as missing, and changes last until the program ends");
  }
  return true;
}

void SqliteStore::Implementation::connect() {
  const FileKind found = startReading();
  switch (found.kind) {
    case FileKind::foreign:
      tell(opening_, "belongs to another program (its application_id is " +
                         std::to_string(found.applicationId) +
                         "); its settings count as missing, and it is not written to");
      return;
    case FileKind::newer:
      state_ = State::readable;
      isOurs_ = false;
      tell(opening_, "was written by a later version of this program (its user_version is " +
                         std::to_string(found.version) +
                         "); it is read as far as it can be, and not written to");
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
    // SQLite needs its files beside the database, and may not be able to make them in this folder.
    // It can do without as long as there is nothing in them that is not in the database itself.
    const bool canDoWithout = isForWantOfAccess(error) || isForWantOfSpace(error);
    if (!canDoWithout || isDenied(file_, R_OK)) throw;
    if (mark_->logSize > 0) {
      const std::string what = isForWantOfSpace(error) ? "the full disk" : "its folder";
      throw SQLite::Exception("the latest changes are still in its -wal file, which " + what +
                                  " does not let be opened",
                              error.getErrorCode());
    }
  }
  sealed_ = true;
  return startReading(DatabaseAccess::immutable);
}

FileKind SqliteStore::Implementation::startReading(DatabaseAccess access) {
  SQLite::Database database = openDatabase(file_, access);
  waitForLocks(database, kPatience);
  const FileKind found = kindOf(database);
  if (found.kind == FileKind::settings || found.kind == FileKind::newer) {
    table_.emplace(std::move(database));
  }
  return found;
}

void SqliteStore::Implementation::startWriting(FileKind::Kind kind) {
  try {
    SQLite::Database database = openDatabase(file_, DatabaseAccess::readWrite);
    waitForLocks(database, kPatience);
    if (!isWritable(database)) throw SQLite::Exception("it is read-only", SQLITE_READONLY);
    if (kind == FileKind::empty) makeSettings(database);
    writeAhead(database, kPatience);
    table_.emplace(std::move(database));
    table_->waitForLocks(patience_);
    state_ = State::writable;
    sealed_ = false;
  } catch (const SQLite::Exception& error) {
    if (isDamage(error)) throw;
    tell(opening_, "cannot be written to: " + whyNotWritten(error, file_) +
                       "; changes last until the program ends");
  }
}

// False when nothing could be done about it.
bool SqliteStore::Implementation::putAside(const SQLite::Exception& damage) {
  const std::string what = std::string("is damaged: ") + damage.what();
  if (access_ == Access::readOnly || !isOurs_) {
    tell(opening_, what + "; its settings count as missing");
    return false;
  }
  try {
    if (const auto name = setAside(file_, *mark_)) {
      tell(opening_, what + "; it is kept as " + name->filename().string() +
                         ", and a new one is begun without settings");
    }
    return true;
  } catch (const std::system_error& error) {
    tell(opening_,
         what + "; it cannot be put aside (" + error.code().message() +
             "), so its settings count as missing and changes last until the program ends");
    return false;
  }
}

// ---- Writing ----

bool SqliteStore::Implementation::setAll(const Changes& changes) {
  try {
    for (const auto& [key, value] : changes) {
      if (value) encode(*value);
    }
  } catch (const BadValue& fault) {
    tell(saving_, std::string("a value cannot be kept: ") + fault.what() + "; it is ignored");
    return false;
  }
  if (unsaved_.empty() && isThere(changes)) return true;
  for (const auto& [key, value] : changes) unsaved_.insert_or_assign(key, value);
  overlay(changes, values_);
  return save();
}

// Looks at the rows themselves, not into the memory, whose state may be a turn old.
bool SqliteStore::Implementation::isThere(const Changes& changes) {
  if (isReplaced() || !table_) return false;
  try {
    return std::all_of(changes.begin(), changes.end(), [this](const auto& change) {
      return table_->holds(change.first, change.second);
    });
  } catch (const SQLite::Exception&) {
    return false;  // what is wrong shows again when it is written
  }
}

bool SqliteStore::Implementation::save() {
  if (access_ == Access::readOnly) {
    tell(saving_, "is open for reading only; changes last until the program ends");
    return false;
  }
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    if (state_ != State::writable || isReplaced()) open();
    if (state_ != State::writable) return false;
    const Outcome outcome = write();
    if (outcome == Outcome::failed) return false;
    // What was written to a file that has been put aside meanwhile is not saved.
    if (outcome == Outcome::written && !isReplaced()) {
      unsaved_.clear();
      saving_.over();
      return true;
    }
  }
  tell(saving_,
       "changes cannot be saved: the file is being replaced again and again; they are "
       "tried again with the next change");
  return false;
}

SqliteStore::Implementation::Outcome SqliteStore::Implementation::write() {
  try {
    table_->write(unsaved_);
    table_->waitForLocks(patience_);
    return Outcome::written;
  } catch (const SQLite::Exception& error) {
    if (isDamage(error) && putAside(error)) {
      open();
      return Outcome::putAside;
    }
    if (error.getErrorCode() == SQLITE_BUSY) table_->waitForLocks(kImpatience);
    tell(saving_, std::string("changes cannot be saved: ") + error.what() +
                      "; they are tried again with the next change");
    return Outcome::failed;
  }
}

// ---- The store ----

SqliteStore::SqliteStore(std::filesystem::path file, Access access, Turn turn, Warn warn,
                         std::chrono::milliseconds patience)
    : implementation_(std::make_unique<Implementation>(std::move(file), access, std::move(turn),
                                                       std::move(warn), patience)) {}

SqliteStore::~SqliteStore() = default;

const PropertyValue* SqliteStore::find(std::string_view key) const {
  const PropertyValue::Dictionary& values = implementation_->values();
  const auto found = values.find(key);
  return found == values.end() ? nullptr : &found->second;
}

void SqliteStore::set(std::string_view key, std::optional<PropertyValue> value) {
  Changes change;
  change.emplace(key, std::move(value));
  implementation_->setAll(change);
}

bool SqliteStore::setAll(const Changes& changes) { return implementation_->setAll(changes); }

const PropertyValue::Dictionary& SqliteStore::values() const { return implementation_->values(); }

SqliteStore::State SqliteStore::state() const { return implementation_->state(); }

const std::filesystem::path& SqliteStore::file() const { return implementation_->file(); }

}  // namespace wayfell
