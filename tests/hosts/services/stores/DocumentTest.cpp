// docs/shared-suite.md is the contract with other programs: what it shows is run as it stands.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "WatchedStore.h"
#include "support/Folder.h"
#include "support/Program.h"

namespace wayfell {
namespace {

// What stands in the document's boxes of the language, in order.
std::vector<std::string> boxes(const std::string& language) {
  const std::string document = bytesOf(WAYFELL_SOURCES "/docs/shared-suite.md");
  const std::string fence = "\n```";
  std::vector<std::string> found;
  std::size_t at = 0;
  while ((at = document.find(fence + language + '\n', at)) != std::string::npos) {
    const std::size_t begin = at + fence.size() + language.size() + 1;
    at = document.find(fence, begin - 1);
    found.push_back(document.substr(begin, at + 1 - begin));
  }
  return found;
}

class Document : public testing::Test {
 protected:
  Document() {
    setenv("XDG_DATA_HOME", folder_.path().c_str(), 1);
    std::filesystem::create_directories(file_.parent_path());
  }

  // What a command prints that must go well, fed with the text.
  static std::string outputOf(const std::vector<std::string>& command, const std::string& input) {
    const Finished finished = run(command, input);
    EXPECT_EQ(finished.status, 0) << command[0] << ": " << finished.errors;
    return finished.output;
  }

  Folder folder_;
  std::filesystem::path file_ = folder_ / "wayfell/group.org.wayfell.Wayfell.db";
};

TEST_F(Document, ShowsTheSchemaThatTheStoreMakes) {
  const auto sql = boxes("sql");
  const auto python = boxes("python");
  ASSERT_TRUE(sql.size() == 2 && python.size() == 1);
  const std::string shown = folder_ / "shown.db";
  const char* const dump =
      "PRAGMA application_id; PRAGMA user_version; PRAGMA journal_mode;\n.schema";
  outputOf({"sqlite3", "-bail", shown}, sql[0]);
  WatchedStore made(file_);
  const std::string schema = outputOf({"sqlite3", file_}, dump);
  EXPECT_EQ(schema, outputOf({"sqlite3", shown}, dump));

  // A program that writes first, where there is not even a folder.
  const std::string first = folder_ / "first";
  outputOf({"env", "XDG_DATA_HOME=" + first, "python3", "-"}, python[0]);
  const std::filesystem::path suite = first + "/wayfell/" + file_.filename().string();
  EXPECT_EQ(outputOf({"sqlite3", suite}, dump), schema);
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(suite).permissions(), perms::owner_read | perms::owner_write);
  EXPECT_EQ(std::filesystem::status(suite.parent_path()).permissions(), perms::owner_all);

  // The store takes the one that is there already for what it is.
  WatchedStore opened(shown);
  EXPECT_EQ(opened.store.state(), SqliteStore::State::writable);
  EXPECT_TRUE(opened.warnings.empty());
}

TEST_F(Document, ShowsWritersThatTheStoreUnderstands) {
  WatchedStore widget(file_);
  widget.store.set("widgetAddressString", "12 Main St");
  const auto sql = boxes("sql");
  const auto python = boxes("python");
  const auto shell = boxes("sh");
  ASSERT_TRUE(sql.size() == 2 && python.size() == 1 && shell.size() == 1);

  EXPECT_EQ(outputOf({"sh", "-eu"}, shell[0]), "12 Main St\n");
  outputOf({"sqlite3", "-bail", file_}, sql[1]);
  EXPECT_THAT(outputOf({"python3", "-"}, python[0]),
              testing::HasSubstr("distance real 1609.344\n"));

  EXPECT_EQ(widget.store.values(), (PropertyValue::Dictionary{{"hasWaypoint", true},
                                                              {"waypointLatitude", 44.9778},
                                                              {"waypointLongitude", -93.265},
                                                              {"units", 1},
                                                              {"useMils", false},
                                                              {"time", 754.0},
                                                              {"distance", 1609.344},
                                                              {"coordinateUnits", 3}}));
  EXPECT_TRUE(widget.warnings.empty());
}

}  // namespace
}  // namespace wayfell
