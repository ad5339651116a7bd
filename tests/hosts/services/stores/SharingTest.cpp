// When others' changes are seen, and where the files are and who may read them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>

#include "WatchedStore.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/services/stores/Stores.h"
#include "support/Folder.h"
#include "support/Sql.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Sharing, ReadsOfATurnSeeOneState) {
  const Folder folder;
  const auto file = folder / "suite.db";
  std::uint64_t turn = 1;
  WatchedStore widget(file, SqliteStore::Access::readWrite, [&turn] { return turn; });
  WatchedStore app(file);
  app.store.setAll({{"time", 1.0}, {"distance", 10.0}});
  ++turn;
  EXPECT_EQ(*widget.store.find("time"), PropertyValue(1.0));
  app.store.setAll({{"time", 2.0}, {"distance", 20.0}});
  // Its own change is seen at once, and brings nothing else with it.
  widget.store.set("viewHidden", true);
  EXPECT_EQ(*widget.store.find("viewHidden"), PropertyValue(true));
  EXPECT_EQ(*widget.store.find("distance"), PropertyValue(10.0));
  ++turn;
  EXPECT_EQ(*widget.store.find("distance"), PropertyValue(20.0));
  EXPECT_EQ(*app.store.find("viewHidden"), PropertyValue(true));
}

// What another has changed since this store looked is written over, although the value is the one
// that this store remembers.
TEST(Sharing, WritesAgainstTheFileAndNotTheMemory) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore widget(file, SqliteStore::Access::readWrite, [] { return std::uint64_t{1}; });
  WatchedStore app(file);
  widget.store.set("viewHidden", true);
  app.store.set("viewHidden", false);
  widget.store.set("viewHidden", true);
  EXPECT_EQ(*app.store.find("viewHidden"), PropertyValue(true));
}

TEST(Sharing, WritesNothingThatIsThere) {
  const Folder folder;
  const auto file = folder / "suite.db";
  WatchedStore store(file);
  const SqliteStore::Changes changes = {
      {"units", 1}, {"real", 0.0}, {"list", PropertyValue::List{1}}};
  ASSERT_TRUE(store.store.setAll(changes));
  SQLite::Database other = otherProgram(file);
  const auto version = [&other] { return integerOf(other, "PRAGMA data_version"); };
  const std::int64_t before = version();
  EXPECT_TRUE(store.store.setAll(changes));
  store.store.set("units", 1);
  store.store.set("absent", std::nullopt);
  EXPECT_EQ(version(), before);
  // The same number, and another value.
  for (const PropertyValue& value : {PropertyValue(-0.0), PropertyValue(0), PropertyValue(false)}) {
    const std::int64_t last = version();
    store.store.set("real", value);
    EXPECT_NE(version(), last);
  }
}

TEST(Files, AreTheUsersAlone) {
  using std::filesystem::perms;
  const auto modeOf = [](const std::filesystem::path& path) { return status(path).permissions(); };
  for (const mode_t mask : {mode_t{0}, mode_t{0777}}) {
    const Folder folder;
    const auto file = folder / "new/folder/suite.db";
    const mode_t before = umask(mask);
    WatchedStore opened(file);
    opened.store.set("units", 1);
    umask(before);
    EXPECT_EQ(modeOf(folder.path()), perms{0755});  // as it was
    EXPECT_EQ(modeOf(folder / "new"), perms{0700});
    EXPECT_EQ(modeOf(folder / "new/folder"), perms{0700});
    for (const char* suffix : {"", "-wal", "-shm"}) {
      EXPECT_EQ(modeOf(file.string() + suffix), perms{0600}) << suffix;
    }
  }
}

void putVariable(const char* name, const char* value) {
  if (value != nullptr) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
}

// XDG's rules for base directories.
TEST(Files, AreWhereTheUserHasThem) {
  const std::string listed = getpwuid(getuid())->pw_dir;
  struct Case {
    const char* xdg;
    const char* home;
    std::string data;
    std::string config;
  };
  const Case cases[] = {
      {"/x", "/h", "/x", "/x"},
      {nullptr, "/h", "/h/.local/share", "/h/.config"},
      {"x/y", "/h", "/h/.local/share", "/h/.config"},
      {nullptr, nullptr, listed + "/.local/share", listed + "/.config"},
      {nullptr, "", listed + "/.local/share", listed + "/.config"},
  };
  for (const Case& c : cases) {
    putVariable("XDG_DATA_HOME", c.xdg);
    putVariable("XDG_CONFIG_HOME", c.xdg);
    putVariable("HOME", c.home);
    EXPECT_EQ(sharedStoreFile("group.a"), c.data + "/wayfell/group.a.db");
    EXPECT_EQ(cloudStoreFile(), c.data + "/wayfell/cloud.db");
    EXPECT_EQ(localStoreFile(), c.config + "/wayfell/widget.db");
  }
  using namespace std::string_view_literals;
  for (const std::string_view name : {""sv, "../a"sv, "a/b"sv, "/a"sv, "a\0b"sv, "cloud"sv}) {
    EXPECT_THROW(sharedStoreFile(name), std::invalid_argument) << name;
  }
}

TEST(Files, AreOpenedWhenAskedForAndKept) {
  const Folder folder;
  putVariable("XDG_DATA_HOME", (folder / "data").c_str());
  putVariable("XDG_CONFIG_HOME", (folder / "config").c_str());
  std::vector<std::string> warnings;
  Stores stores(turnOfEachRead(),
                [&warnings](const std::string& sentence) { warnings.push_back(sentence); });
  EXPECT_EQ(stores.ubiquitousDefaults(), nullptr);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));

  stores.standardDefaults()->set("units", 1);
  stores.sharedDefaults("group.a")->set("units", 2);
  EXPECT_EQ(*stores.standardDefaults()->find("units"), PropertyValue(1));
  EXPECT_EQ(*stores.sharedDefaults("group.a")->find("units"), PropertyValue(2));
  EXPECT_EQ(stores.sharedDefaults("group.a"), stores.sharedDefaults("group.a"));
  EXPECT_TRUE(warnings.empty());

  for (int i = 0; i < 2; ++i) EXPECT_EQ(stores.sharedDefaults("../a"), nullptr);
  EXPECT_THAT(warnings, ElementsAre(HasSubstr("\"../a\" cannot be the name")));

  WatchedStore(cloudStoreFile()).store.set("units", 4);
  EXPECT_EQ(*stores.ubiquitousDefaults()->find("units"), PropertyValue(4));
}

}  // namespace
}  // namespace wayfell
