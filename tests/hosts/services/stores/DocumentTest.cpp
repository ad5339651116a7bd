// docs/shared-suite.md is the contract with other programs: what it shows is run as it stands.
#include <gtest/gtest.h>

#include "Child.h"
#include "WatchedStore.h"
#include "support/Folder.h"

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
  ~Document() override { unsetenv("XDG_DATA_HOME"); }

  // The program's exit status, fed with the text.
  int runWith(const std::vector<std::string>& command, const std::string& input) {
    putBytes(folder_ / "input", input);
    std::string line = "exec";
    for (const std::string& word : command) line += " '" + word + "'";
    line += " < '" + (folder_ / "input").string() + "' > '" + (folder_ / "output").string() + "'";
    return std::system(line.c_str());
  }
  std::string output() const { return bytesOf(folder_ / "output"); }

  Folder folder_;
  std::filesystem::path file_ = folder_ / "wayfell/group.org.wayfell.Wayfell.db";
};

TEST_F(Document, ShowsTheSchemaThatTheStoreMakes) {
  const auto sql = boxes("sql");
  ASSERT_EQ(sql.size(), 2U);
  const std::string shown = folder_ / "shown.db";
  const char* const dump =
      "PRAGMA application_id; PRAGMA user_version; PRAGMA journal_mode;\n.schema";
  ASSERT_EQ(runWith({"sqlite3", "-bail", shown}, sql[0]), 0);
  ASSERT_EQ(runWith({"sqlite3", shown}, dump), 0);
  const std::string expected = output();
  WatchedStore made(file_);
  ASSERT_EQ(runWith({"sqlite3", file_}, dump), 0);
  EXPECT_EQ(output(), expected);

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

  ASSERT_EQ(runWith({"sh", "-eu"}, shell[0]), 0);
  EXPECT_EQ(output(), "12 Main St\n");
  ASSERT_EQ(runWith({"sqlite3", "-bail", file_}, sql[1]), 0);
  ASSERT_EQ(runWith({"python3", "-"}, python[0]), 0);
  EXPECT_NE(output().find("distance real 1609.344\n"), std::string::npos) << output();

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
