// What a store is made of, for its own sources: SqliteStore.cpp reads and writes the table,
// SqliteStoreOpening.cpp opens the file and puts a damaged one aside.
#pragma once

#include "hosts/services/stores/SettingsTable.h"
#include "hosts/services/stores/SqliteStore.h"
#include "hosts/services/stores/StoreErrors.h"
#include "hosts/services/stores/StoreFile.h"
#include "hosts/services/stores/StoreSchema.h"

namespace wayfell {

/// How often a file is opened anew, each time after another process has put it aside.
inline constexpr int kOpenAttempts = 3;

/// Makes the changes in the values.
void overlay(const SqliteStore::Changes& changes, PropertyValue::Dictionary& values);

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
  void loadChanges();
  void load();

  void open();
  bool openOnce();
  bool isDanglingLink();
  void connect();
  FileKind startReading();
  FileKind startReading(DatabaseAccess access);
  FileKind readWithoutFilesBeside(const SQLite::Exception& why);
  void undoUnfinishedChange();
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

}  // namespace wayfell
