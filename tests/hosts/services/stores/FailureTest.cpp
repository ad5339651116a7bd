// What becomes of files that are not as they should be, and of changes that cannot be saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>

#include "Child.h"
#include "WatchedStore.h"
#include "support/Folder.h"
#include "support/Sql.h"

namespace wayfell {
namespace {

using Access = SqliteStore::Access;
using State = SqliteStore::State;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// A file with "units" 1, and nothing of it in a log.
void makeSettings(const std::filesystem::path& file) { WatchedStore(file).store.set("units", 1); }

std::int64_t unitsIn(const SqliteStore& store) {
  const PropertyValue* const units = store.find("units");
  return units != nullptr ? units->integerValue() : 0;
}

// Another program's and later files are read, if at all, and stay as they are to the last byte.
TEST(Failure, LeavesFilesThatAreNotOursAlone) {
  struct Case {
    std::string sql;
    State state;
    std::int64_t units;
    const char* warning;
  };
  const std::string ours = "PRAGMA application_id = 1464226644; PRAGMA user_version = ";
  const Case cases[] = {
      {"CREATE TABLE settings (key, type, value); INSERT INTO settings VALUES "
       "('units', 'integer', 1)",
       State::unreadable, 0, "application_id is 0"},
      {"PRAGMA application_id = 77; PRAGMA journal_mode = WAL", State::unreadable, 0,
       "application_id is 77"},
      {ours + "1; CREATE TABLE other (a)", State::unreadable, 0, "another program"},
      {ours + "2; CREATE TABLE settings (key, type, value, more); INSERT INTO settings VALUES "
              "('units', 'integer', 1, 0)",
       State::readable, 1, "user_version is 2"},
      {ours + "2; CREATE TABLE settings (name, value)", State::unreadable, 0,
       "no such column: key"},
  };
  for (const Case& c : cases) {
    const Folder folder;
    const auto file = folder / "suite.db";
    execute(file, c.sql.c_str());
    const std::string before = bytesOf(file);
    {
      WatchedStore opened(file);
      EXPECT_EQ(opened.store.state(), c.state) << c.sql;
      EXPECT_EQ(unitsIn(opened.store), c.units);
      EXPECT_FALSE(opened.store.setAll({{"units", 5}}));
      EXPECT_FALSE(opened.store.setAll({{"speed", 2}}));
      EXPECT_EQ(unitsIn(opened.store), 5);  // for the time being
      EXPECT_THAT(opened.warnings,
                  Contains(AllOf(StartsWith(file.string() + ": "), HasSubstr(c.warning))));
      EXPECT_LE(opened.warnings.size(), 2U);
    }
    EXPECT_TRUE(bytesOf(file) == before) << c.sql;
  }
}

// Each is kept under a new name with its bytes, and a new file begun.
TEST(Failure, PutsDamagedFilesAside) {
  struct Case {
    const char* name;
    std::string (*damage)(std::string file);
  };
  const Case cases[] = {
      {"no database at all", [](std::string) { return std::string("units = 1\n"); }},
      {"cut short", [](std::string file) { return file.substr(0, 5000); }},
      {"a page overwritten", [](std::string file) { return file.replace(4096, 4096, 4096, 'x'); }},
  };
  for (const Case& c : cases) {
    const Folder folder;
    const auto file = folder / "suite.db";
    makeSettings(file);
    const std::string damaged = c.damage(bytesOf(file));
    putBytes(file, damaged);
    const std::string journal(512, '\0');  // as one is left that is done with
    putBytes(folder / "suite.db-journal", journal);
    WatchedStore opened(file);
    EXPECT_EQ(opened.store.state(), State::writable) << c.name;
    EXPECT_EQ(unitsIn(opened.store), 0);
    ASSERT_THAT(opened.warnings, ElementsAre(HasSubstr("is damaged"))) << c.name;
    EXPECT_TRUE(opened.store.setAll({{"units", 2}}));

    ASSERT_EQ(putAsideIn(folder.path()).size(), 1U) << c.name;
    const std::filesystem::path aside = putAsideIn(folder.path()).front();
    EXPECT_THAT(aside.string(), testing::ContainsRegex("suite.db.corrupt-[0-9]+T[0-9]+Z"));
    EXPECT_THAT(opened.warnings[0], HasSubstr(aside.filename().string()));
    EXPECT_TRUE(bytesOf(aside) == damaged) << c.name;
    EXPECT_EQ(bytesOf(aside.string() + "-journal"), journal);
    EXPECT_FALSE(exists(folder / "suite.db-journal"));
    EXPECT_EQ(unitsIn(WatchedStore(file).store), 2);

    // What is only to be read is not renamed.
    putBytes(folder / "cloud.db", damaged);
    WatchedStore read(folder / "cloud.db", Access::readOnly);
    EXPECT_EQ(read.store.state(), State::unreadable);
    EXPECT_THAT(read.warnings, ElementsAre(HasSubstr("is damaged")));
    EXPECT_TRUE(bytesOf(folder / "cloud.db") == damaged);
  }
}

// Pages go bad under a program that has long been reading.
TEST(Failure, FindsDamageLater) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore opened(file);
  ASSERT_TRUE(opened.store.setAll({{"units", 1}}));
  execute(file, "PRAGMA wal_checkpoint(TRUNCATE)");
  std::fstream(file).seekp(4096) << std::string(4096, 'x');
  // Somebody's write makes it look, and then write into the new file.
  execute(file, "PRAGMA user_version = 1");
  EXPECT_EQ(unitsIn(opened.store), 0);
  EXPECT_TRUE(opened.store.setAll({{"units", 2}}));
  EXPECT_THAT(opened.warnings, ElementsAre(HasSubstr("is damaged")));
  EXPECT_EQ(unitsIn(WatchedStore(file).store), 2);
}

// Two damaged files within a second do not overwrite each other.
TEST(Failure, KeepsEachDamagedFile) {
  const Folder folder;
  const auto file = folder / "suite.db";
  for (const char* bytes : {"first", "second", "third"}) {
    putBytes(file, bytes);
    WatchedStore{file};
    std::filesystem::remove(file);
  }
  EXPECT_EQ(putAsideIn(folder.path()).size(), 3U);
}

TEST(Failure, PassesOverBadRows) {
  const Folder folder;
  const auto file = folder / "suite.db";
  makeSettings(file);
  execute(file,
          "PRAGMA ignore_check_constraints = 1; INSERT INTO settings VALUES "
          "('a', 'url', 'x'), ('b', 'integer', 'x'), ('c', 'list', '[1'), (x'64', 'integer', 1)");
  WatchedStore opened(file);
  EXPECT_EQ(opened.store.values(), (PropertyValue::Dictionary{{"units", 1}}));
  EXPECT_THAT(opened.warnings,
              ElementsAre(file.string() +
                          ": the row of \"a\" holds no value: \"url\" is no type (and 3 more like "
                          "it); it is left there and counts as missing"));
  // They stay, but for those that are written or removed.
  EXPECT_TRUE(opened.store.setAll({{"a", 1}, {"b", std::nullopt}, {"e", 1}}));
  SQLite::Database rows = otherProgram(file);
  EXPECT_EQ(integerOf(rows, "SELECT count(*) FROM settings"), 5);
  EXPECT_EQ(integerOf(rows, "SELECT value FROM settings WHERE key = 'a'"), 1);
}

// The rest go on as a user who may not do everything.
std::string asSomebody(const std::function<std::string()>& action) {
  return inChild([&action] {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return std::string("is root");
    return action();
  });
}

// "STATE UNITS SAVED UNITS: warnings"
std::string report(const std::filesystem::path& file, Access access = Access::readWrite) {
  WatchedStore opened(file, access);
  std::string text = std::to_string(static_cast<int>(opened.store.state()));
  text += ' ' + std::to_string(unitsIn(opened.store));
  text += opened.store.setAll({{"units", 1}}) ? " there" : " not there";
  text += opened.store.setAll({{"units", 2}}) ? " saved " : " not saved ";
  text += std::to_string(unitsIn(opened.store)) + ':';
  for (const std::string& warning : opened.warnings) text += ' ' + warning;
  return text;
}

TEST(Failure, GoesOnWithWhatMayBeRead) {
  struct Case {
    const char* name;
    mode_t folder;
    mode_t file;  // 0 for none
    Access access;
    const char* start;
    const char* warning;
  };
  const Case cases[] = {
      {"read-only file", 0777, 0444, Access::readWrite, "1 1 there not saved 2:",
       "cannot be written to: it is read-only; changes last until the program ends"},
      {"read-only folder", 0555, 0666, Access::readWrite,
       "1 1 there not saved 2:", "cannot be written to: its folder is read-only"},
      {"for reading, both read-only", 0555, 0444, Access::readOnly,
       "1 1 there not saved 2:", "is open for reading only"},
      {"secret", 0777, 0200, Access::readWrite,
       "3 0 not there not saved 2:", "cannot be read: Permission denied"},
      {"no place for a new file", 0555, 0, Access::readWrite,
       "3 0 not there not saved 2:", "cannot be created: Permission denied"},
      {"for reading, missing", 0555, 0, Access::readOnly,
       "2 0 not there not saved 2:", "is open for reading only"},
  };
  for (const Case& c : cases) {
    const Folder folder;
    const auto file = folder / "suite.db";
    if (c.file != 0) {
      makeSettings(file);
      chmod(file.c_str(), c.file);
    }
    chmod(folder.path().c_str(), c.folder);
    const std::string answer = asSomebody([&] { return report(file, c.access); });
    EXPECT_THAT(answer, AllOf(StartsWith(c.start), HasSubstr(c.warning))) << c.name;
    chmod(folder.path().c_str(), 0755);
  }
}

// While somebody else keeps the log open, it can be read, or it is said why not.
TEST(Failure, DoesNotReadPastALog) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore writer(file);
  writer.store.set("units", 1);
  // A copy of the database and its log, without what is shared by those who have it open.
  const Folder copy;
  for (const char* name : {"suite.db", "suite.db-wal"}) {
    std::filesystem::copy_file(folder / name, copy / name);
    chmod((copy / name).c_str(), 0444);
  }
  chmod(copy.path().c_str(), 0555);
  EXPECT_THAT(asSomebody([&] { return report(copy / "suite.db", Access::readOnly); }),
              StartsWith("3 0 not there not saved 2: " + (copy / "suite.db").string() +
                         ": cannot be read: the latest changes are still in its -wal "
                         "file, which its folder does not let be opened"));
  chmod(copy.path().c_str(), 0755);
}

// Somebody is killed with half of a change in the file.
void killAWriterOf(const std::filesystem::path& file) {
  EXPECT_EQ(statusOf(startWorker({"--die-writing", file})), -1);
  EXPECT_GT(std::filesystem::file_size(file), 400'000U);
  EXPECT_GT(std::filesystem::file_size(file.string() + "-journal"), 512U);
}

// A settings file in rollback mode: "units" 1, and 400 texts of zeros.
void makeRollbackSettings(const std::filesystem::path& file) {
  makeSettings(file);
  execute(file,
          "PRAGMA journal_mode = DELETE;"
          "WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
          "INSERT INTO settings SELECT 'key' || i, 'text', hex(zeroblob(1000)) FROM n");
}

std::size_t changedIn(const SqliteStore& store) {
  const auto isChanged = [](const auto& setting) {
    return setting.second == PropertyValue(std::string(2000, '1'));
  };
  return static_cast<std::size_t>(
      std::count_if(store.values().begin(), store.values().end(), isChanged));
}

TEST(Failure, ShowsNothingThatWasNotCommitted) {
  struct Case {
    const char* name;
    mode_t folder;
    mode_t file;
    Access access;
    const char* report;
  };
  const std::string cannot =
      "cannot be read: a program was ended in the middle of a change, which cannot be undone with "
      "its -journal file: ";
  const Case cases[] = {
      {"for writing", 0777, 0666, Access::readWrite, "0 1 there saved 2:"},
      {"for reading", 0777, 0666, Access::readOnly, "1 1 there not saved 2:"},
      {"read-only file", 0777, 0444, Access::readOnly, "3 0 not there not saved 2:"},
      {"read-only folder", 0555, 0666, Access::readWrite, "3 0 not there not saved 2:"},
  };
  for (const Case& c : cases) {
    const Folder folder;
    const auto file = folder / "cloud.db";
    makeRollbackSettings(file);
    killAWriterOf(file);
    EXPECT_NE(bytesOf(file).find(std::string(900, '1')), std::string::npos);
    chmod((file.string() + "-journal").c_str(), 0666);
    chmod(file.c_str(), c.file);
    chmod(folder.path().c_str(), c.folder);
    const std::string answer = asSomebody([&] { return report(file, c.access); });
    chmod(folder.path().c_str(), 0755);
    EXPECT_THAT(answer, StartsWith(c.report)) << c.name;
    const bool isRead = c.report[0] != '3';
    EXPECT_EQ(answer.find(cannot) == std::string::npos, isRead) << c.name << ": " << answer;
    // Whoever may write finds what was there before.
    WatchedStore later(file, Access::readOnly);
    EXPECT_EQ(later.store.values().size(), 401U) << c.name;
    EXPECT_EQ(changedIn(later.store), 0U) << c.name;
    EXPECT_THAT(later.warnings, IsEmpty());
  }
}

// A store that is open sees it through, and two who are killed as the file is made leave none.
TEST(Failure, UndoesWhatOthersLeaveUnfinished) {
  const Folder folder;
  const auto file = folder / "cloud.db";
  makeRollbackSettings(file);
  WatchedStore opened(file, Access::readOnly);
  EXPECT_EQ(unitsIn(opened.store), 1);
  killAWriterOf(file);
  EXPECT_EQ(opened.store.values().size(), 401U);
  EXPECT_EQ(changedIn(opened.store), 0U);
  EXPECT_THAT(opened.warnings, IsEmpty());

  const auto fresh = folder / "suite.db";
  for (int i = 0; i < 2; ++i) killAWriterOf(fresh);
  WatchedStore found(fresh);
  EXPECT_TRUE(found.store.values().empty());
  EXPECT_TRUE(found.store.setAll({{"units", 1}}));
  EXPECT_THAT(found.warnings, IsEmpty());
}

// A trigger without an end, and a row too large, which can be written over.
TEST(Failure, RunsNoCodeAndReadsNoHugeRows) {
  const Folder folder;
  const auto file = folder / "suite.db";
  makeSettings(file);
  execute(
      file,
      "UPDATE settings SET value = zeroblob(16777217), type = 'data', key = 'big';"
      "INSERT INTO settings VALUES ('units', 'integer', 1);"
      "CREATE TRIGGER hang BEFORE INSERT ON settings BEGIN SELECT count(*) FROM (WITH RECURSIVE "
      "n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n); END;");
  WatchedStore opened(file);
  EXPECT_EQ(opened.store.values(), (PropertyValue::Dictionary{{"units", 1}}));
  EXPECT_THAT(
      opened.warnings,
      ElementsAre(HasSubstr("the row of \"big\" holds no value: it is larger than 16 MiB;")));
  EXPECT_TRUE(opened.store.setAll({{"big", 1}, {"units", 3}}));
  EXPECT_EQ(opened.store.values(), (PropertyValue::Dictionary{{"big", 1}, {"units", 3}}));
  EXPECT_FALSE(opened.store.setAll({{"big", std::string(16'777'200, 'x')}}));
  EXPECT_THAT(opened.warnings.back(), HasSubstr("cannot be kept: it is larger than 16 MiB"));
  EXPECT_TRUE(opened.store.setAll({{"big", std::nullopt}}));
}

TEST(Failure, TellsOfALinkThatLeadsNowhere) {
  for (const Access access : {Access::readOnly, Access::readWrite}) {
    const Folder folder;
    const auto file = folder / "suite.db";
    std::filesystem::create_symlink("gone/away.db", file);
    WatchedStore opened(file, access);
    const std::string end = folder / "gone/away.db";
    EXPECT_THAT(opened.warnings,
                ElementsAre(StartsWith(file.string() + ": is a symbolic link to " + end +
                                       ", which is not there, nor is the folder " +
                                       (folder / "gone").string() + ";")));
    makeSettings(end);
    EXPECT_EQ(unitsIn(opened.store), 1);
  }
}

// Lets no file of this process grow further, and returns what the limit was.
rlimit limitFiles(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{bytes, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  return before;
}

// Not even for the -shm file of the first one who reads.
TEST(Failure, ReadsWhatIsOnAFullDisk) {
  const Folder folder;
  const auto file = folder / "suite.db";
  makeSettings(file);
  const std::string before = bytesOf(file);
  const std::string answer = inChild([&file] {
    limitFiles(16'384);
    return report(file) + report(file, Access::readOnly);
  });
  EXPECT_THAT(answer, StartsWith("1 1 there not saved 2: " + file.string() +
                                 ": cannot be written to: the disk is full"));
  EXPECT_THAT(answer, HasSubstr("1 1 there not saved 2: " + file.string() + ": is open for"));
  EXPECT_TRUE(bytesOf(file) == before);
}

// Nor for the other end of a pipe. A file in rollback mode cannot be changed to the log while
// somebody reads it.
TEST(Failure, DoesNotWaitForTheLogForLong) {
  const Folder folder;
  ASSERT_EQ(mkfifo((folder / "pipe.db").c_str(), 0600), 0);
  WatchedStore pipe(folder / "pipe.db");
  EXPECT_THAT(pipe.warnings, ElementsAre(HasSubstr("cannot be read: it is not a file")));
  const auto file = folder / "suite.db";
  makeSettings(file);
  SQLite::Database other = otherProgram(file);
  other.exec("PRAGMA journal_mode = DELETE; BEGIN; SELECT * FROM settings");
  WatchedStore opened(file);
  EXPECT_EQ(opened.store.state(), State::writable);
  other.exec("COMMIT");
  EXPECT_TRUE(opened.store.setAll({{"units", 2}}));
  EXPECT_EQ(integerOf(other, "SELECT value FROM settings WHERE key = 'units'"), 2);
  EXPECT_THAT(opened.warnings, IsEmpty());
}

TEST(Failure, TriesAgainWhatTheDiskHadNoRoomFor) {
  const std::string answer = inChild([]() -> std::string {
    const Folder folder;
    const auto file = folder / "suite.db";
    WatchedStore opened(file);
    opened.store.set("units", 1);
    const rlimit enough = limitFiles(65'536);
    const std::string large(100'000, 'a');
    std::string text = opened.store.setAll({{"large", large}}) ? "saved" : "full";
    text += opened.store.setAll({{"units", 2}}) ? ", saved" : ", full";
    text += opened.store.find("large") != nullptr ? ", seen" : ", lost";
    text += WatchedStore(file).store.find("large") == nullptr ? ", not there" : ", there";
    text += ", units " + std::to_string(unitsIn(WatchedStore(file).store));

    setrlimit(RLIMIT_FSIZE, &enough);
    text += opened.store.setAll({{"speed", 1}}) ? ", saved" : ", full";
    WatchedStore other(file);
    text += ", units " + std::to_string(unitsIn(other.store));
    text += *other.store.find("large") == PropertyValue(large) ? ", there" : ", lost";
    return text + ", " + std::to_string(opened.warnings.size()) + " warning";
  });
  EXPECT_EQ(answer, "full, full, seen, not there, units 1, saved, units 2, there, 1 warning");
}

TEST(Failure, PutsOffWhatIsLockedForLong) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore opened(file);
  opened.store.set("units", 1);
  {
    SQLite::Database other = otherProgram(file);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_FALSE(opened.store.setAll({{"units", 2}}));
    EXPECT_EQ(unitsIn(opened.store), 2);
    EXPECT_FALSE(opened.store.setAll({{"speed", 2}}));
    EXPECT_THAT(opened.warnings, ElementsAre(HasSubstr("database is locked")));
  }
  EXPECT_TRUE(opened.store.setAll({{"speed", 1}}));
  EXPECT_EQ(WatchedStore(file).store.values(),
            (PropertyValue::Dictionary{{"speed", 1}, {"units", 2}}));
}

TEST(Failure, FollowsAFileThatIsReplacedOrDeleted) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore opened(file);
  opened.store.set("units", 1);
  makeSettings(folder / "other.db");
  WatchedStore(folder / "other.db").store.set("units", 7);
  const auto removeFiles = [&file] {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file.string() + suffix);
  };
  removeFiles();
  std::filesystem::rename(folder / "other.db", file);
  EXPECT_EQ(unitsIn(opened.store), 7);
  removeFiles();
  EXPECT_EQ(unitsIn(opened.store), 0);
  removeFiles();
  opened.store.set("units", 8);
  EXPECT_EQ(unitsIn(WatchedStore(file).store), 8);
  EXPECT_THAT(opened.warnings, IsEmpty());
}

}  // namespace
}  // namespace wayfell
