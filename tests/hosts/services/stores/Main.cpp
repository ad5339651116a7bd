// The tests; or, started by one of them with a first argument of these, a writer of settings:
//   --write-pairs FILE NAME COUNT   NAME.a and NAME.b become 1 to COUNT, always together, and
//                                   NAME.0 to NAME.99 in turn. Exits with 1 when something could
//                                   not be saved, with 2 when there was a warning, else with 0
//   --count FILE                    n and n.again count on for ever, together, and each number is
//                                   printed once it is saved
//   --die-writing FILE              another program, without a write-ahead log: makes every 0 in
//   the
//                                   texts a 1, or a table if there is none, which is much more
//                                   than it may keep in memory, and is killed before it commits
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include "hosts/services/stores/SqliteStore.h"
#include "support/Sql.h"

namespace wayfell {
namespace {

int writePairs(const char* file, const std::string& name, int count) {
  bool warned = false;
  SqliteStore store(file, SqliteStore::Access::readWrite, turnOfEachRead(),
                    [&warned](const std::string& /*sentence*/) { warned = true; });
  for (int i = 1; i <= count; ++i) {
    const bool saved = store.setAll(
        {{name + ".a", i}, {name + ".b", i}, {name + "." + std::to_string(i % 100), i}});
    if (!saved) return 1;
  }
  return warned ? 2 : 0;
}

int countOn(const char* file) {
  SqliteStore store(file, SqliteStore::Access::readWrite, turnOfEachRead(),
                    [](const std::string& sentence) { std::cerr << sentence << std::endl; });
  const PropertyValue* const last = store.find("n");
  for (std::int64_t n = last != nullptr ? last->integerValue() + 1 : 1;; ++n) {
    if (!store.setAll({{"n", n}, {"n.again", n}})) return 1;
    std::cout << n << std::endl;
  }
}

int dieWriting(const char* file) {
  SQLite::Database database = otherProgram(file);
  database.exec("PRAGMA cache_size = 2; PRAGMA cache_spill = 1; BEGIN IMMEDIATE");
  if (database.tableExists("settings")) {
    database.exec("UPDATE settings SET value = replace(value, '0', '1') WHERE type = 'text'");
    return raise(SIGKILL);
  }
  database.exec(
      "CREATE TABLE settings (key TEXT PRIMARY KEY NOT NULL, type TEXT NOT NULL, value) "
      "WITHOUT ROWID;"
      "WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
      "INSERT INTO settings SELECT 'key' || i, 'text', hex(zeroblob(1000)) FROM n");
  return raise(SIGKILL);
}

}  // namespace
}  // namespace wayfell

int main(int count, char** arguments) {
  const std::string what = count > 1 ? arguments[1] : "";
  if (what == "--write-pairs" && count == 5) {
    return wayfell::writePairs(arguments[2], arguments[3], std::atoi(arguments[4]));
  }
  if (what == "--count" && count == 3) return wayfell::countOn(arguments[2]);
  if (what == "--die-writing" && count == 3) return wayfell::dieWriting(arguments[2]);
  testing::InitGoogleMock(&count, arguments);
  return RUN_ALL_TESTS();
}
