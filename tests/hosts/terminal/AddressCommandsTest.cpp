// `wayfell addresses` as its users run it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Folder.h"
#include "support/Program.h"

namespace wayfell {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kHeader = "LON,LAT,NUMBER,STREET,CITY,REGION\n";

class AddressesTest : public testing::Test {
 protected:
  AddressesTest() {
    write("old.csv", std::string(kHeader) + "7,0,1,Old Street,Town,X\n");
    EXPECT_EQ(wayfell({"import", "--country", "US", file("old.csv")}).status, 0);
  }

  std::string file(const std::string& name) const { return (folder / name).string(); }
  std::string book() const { return file("data/wayfell/addresses.db"); }
  void write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((folder / name).parent_path());
    putBytes(folder / name, content);
  }
  Finished wayfell(std::vector<std::string> arguments, const std::string& input = "") const {
    arguments.insert(arguments.begin(), start_.begin(), start_.end());
    return run(arguments, input);
  }
  // Runs a line of bash, in which $addresses stands for the program and $many is a file with more
  // rows of one street, from the equator to the north, than pipes and buffers hold.
  Finished shell(const std::string& line) const {
    std::string rows = kHeader;
    for (int i = 0; i < 20000; ++i) {
      rows += "7," + std::to_string(i * 1e-5) + ',' + std::to_string(i) + ",New Street,Town,X\n";
    }
    write("many.csv", rows);
    std::string start;
    for (const std::string& word : start_) start += word + ' ';
    return run({"bash", "-c", "many=" + file("many.csv") + " addresses='" + start + "'; " + line});
  }
  // Likewise while an import, $half_PID, has taken all of $many but what the pipe holds, and waits
  // for more from ${half[1]}.
  Finished duringAnImport(const std::string& line) const {
    return shell(
        "coproc half { exec $addresses import --country US - >/dev/null 2>&1; }; "
        "cat $many >&${half[1]}; " +
        line);
  }
  void expectOldBook() const {
    EXPECT_THAT(wayfell({"find", "0", "7"}).output, StartsWith("1 Old Street, Town, X\n"));
    EXPECT_EQ(std::filesystem::exists(book() + ".new"), false);
  }

  Folder folder;
  const std::vector<std::string> start_ = {"env", "XDG_DATA_HOME=" + file("data"),
                                           "XDG_CONFIG_HOME=" + file("config"), WAYFELL_PROGRAM,
                                           "addresses"};
};

TEST_F(AddressesTest, ImportsAndFinds) {
  write("us/ca/a.csv", std::string(kHeader) + "-120,40,12,Elm,Ames,CA\n");
  write("home/us/at/b.geojson",
        R"({"type":"Feature","properties":{"number":"3","street":"Graben","city":"Wien"},)"
        R"("geometry":{"type":"Point","coordinates":[16.37,48.2]}})");
  const Finished imported = wayfell({"import", file("us/ca/a.csv"), file("home/us/at/b.geojson")});
  EXPECT_EQ(imported.status, 0);
  EXPECT_THAT(imported.output, AllOf(StartsWith("2 addresses imported\n"), HasSubstr(book())));
  EXPECT_EQ(imported.errors, "");
  EXPECT_EQ(wayfell({"find", "40.0", "-120"}).output,
            "12 Elm, Ames, CA\n0.0 m away, at 40.00000000 -120.00000000\n");
  EXPECT_EQ(wayfell({"find", "--json", "48.2N", "16.37E"}).output,
            "{\"street\":\"Graben 3\",\"city\":\"Wien\",\"state\":null,\"metres\":0.0,"
            "\"latitude\":48.2,\"longitude\":16.37}\n");
  EXPECT_THAT(wayfell({"find", "0", "7"}).errors, HasSubstr("no address within 100 m"));

  const Finished added = wayfell({"import", "--add", "-"}, std::string(kHeader) + "7,0,5,X,Y,Z\n");
  EXPECT_THAT(added.output, StartsWith("1 address imported, 2 kept\n"));
  EXPECT_THAT(added.errors, HasSubstr("standard input: its country is not known"));
  EXPECT_THAT(wayfell({"find", "0", "7"}).output, StartsWith("X 5, Y, Z\n"));
  EXPECT_THAT(wayfell({"info"}).output,
              AllOf(HasSubstr("addresses  3\n"), HasSubstr("0.0000 -120.0000 to 48.2000 16.3700")));
}

TEST_F(AddressesTest, TellsOfBadRowsAndGoesOn) {
  std::string rows = std::string(kHeader) + "7,0,1,New Street,Town,X\n7,0,1,New Street,Town,X\n";
  rows += "7,0,12,,Town,X\n";
  for (int i = 0; i < 7; ++i) rows += "x,0,1,a,b,c\n";
  const Finished finished = wayfell({"import", "--country", "US", "-"}, rows);
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.output, StartsWith("1 address imported\n"));
  EXPECT_THAT(finished.errors,
              AllOf(HasSubstr("standard input:5: LON: \"x\" is no number\n"), HasSubstr(":9: "),
                    Not(HasSubstr(":10: ")), HasSubstr("7 rows in all could not be read"),
                    HasSubstr("1 row has no street: left out")));
  EXPECT_THAT(wayfell({"find", "0", "7"}).output, StartsWith("1 New Street"));
}

TEST_F(AddressesTest, KeepsTheOldBookWhenAFileIsBad) {
  write("good.csv", std::string(kHeader) + "7,0,1,New Street,Town,X\n");
  struct Case {
    std::string content;
    std::string complaint;
  };
  const Case cases[] = {
      {"", "empty"},
      {kHeader, "not one address in it"},
      {"hello\n", "line 1: no column LON"},
      {std::string(kHeader) + "7,0,1,a,b,c\n7,0,1,\"a,b,c\n", "line 3: a quotation mark"},
      {std::string(kHeader) + "7,0,,,,\n", "not one address in it"},
  };
  for (const Case& c : cases) {
    write("bad.csv", c.content);
    const Finished finished = wayfell({"import", file("good.csv"), file("bad.csv")});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr(file("bad.csv") + ": " + c.complaint));
    EXPECT_THAT(finished.errors, HasSubstr("the address book is as it was"));
    expectOldBook();
  }
  EXPECT_THAT(wayfell({"import", file("nowhere.csv")}).errors, HasSubstr("No such file"));
  EXPECT_EQ(wayfell({"import", "--country", "USA", file("good.csv")}).status, 2);
  EXPECT_EQ(wayfell({"import"}).status, 2);
  expectOldBook();
}

TEST_F(AddressesTest, KeepsTheOldBookWhenTheDiskIsFull) {
  const Finished finished = shell("ulimit -f 200; trap '' XFSZ; exec $addresses import $many");
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.errors, HasSubstr("the address book is as it was"));
  expectOldBook();
}

TEST_F(AddressesTest, KeepsTheOldBookWhenKilled) {
  EXPECT_EQ(duringAnImport("kill -KILL $half_PID; wait $half_PID").status, 128 + SIGKILL);
  EXPECT_THAT(wayfell({"find", "0", "7"}).output, StartsWith("1 Old Street"));
  EXPECT_TRUE(std::filesystem::exists(book() + ".new"));
  EXPECT_EQ(duringAnImport("kill -TERM $half_PID; wait $half_PID").status, 128 + SIGTERM);
  expectOldBook();
  EXPECT_EQ(wayfell({"import", "--add", "-"}, std::string(kHeader) + "7,9,1,a,b,c\n").status, 0);
  expectOldBook();
}

TEST_F(AddressesTest, ImportsOneAtATime) {
  const Finished finished =
      duringAnImport("$addresses import $many; echo $?; eval exec ${half[1]}'>&-'; wait $half_PID");
  EXPECT_EQ(finished.output, "1\n");
  EXPECT_THAT(finished.errors, HasSubstr("another import is at work"));
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(wayfell({"find", "0", "7"}).output, StartsWith("0 New Street"));
}

TEST_F(AddressesTest, SendsNothingWithoutConsent) {
  const Finished asked = wayfell({"use", "nominatim"}, "yes\n");
  EXPECT_EQ(asked.status, 2);
  EXPECT_THAT(asked.errors,
              AllOf(HasSubstr("https://nominatim.openstreetmap.org"), HasSubstr("--yes")));
  EXPECT_THAT(wayfell({"info"}).output, HasSubstr("nothing has been chosen"));
  EXPECT_EQ(wayfell({"find", "--online", "0", "7"}).status, 2);

  const Finished agreed =
      wayfell({"use", "nominatim", "--url", "http://127.0.0.1:1/?key=k", "--yes"});
  EXPECT_EQ(agreed.status, 0);
  EXPECT_THAT(agreed.errors, AllOf(HasSubstr("position to http://127.0.0.1:1"),
                                   HasSubstr("unencrypted"), Not(HasSubstr("key=k"))));
  EXPECT_THAT(wayfell({"info"}).output, HasSubstr("nominatim, http://127.0.0.1:1\n"));
  const Finished online = wayfell({"find", "--online", "0", "7"});
  EXPECT_EQ(online.status, 1);
  EXPECT_THAT(online.errors, HasSubstr("http://127.0.0.1:1: "));

  EXPECT_EQ(wayfell({"use", "none"}).status, 0);
  EXPECT_THAT(wayfell({"info"}).output, HasSubstr("service    none\n"));
  EXPECT_EQ(wayfell({"use", "book", "--url", "http://x"}).status, 2);
  EXPECT_EQ(wayfell({"use", "nominatim", "--url", "ftp://x", "--yes"}).status, 2);
  EXPECT_EQ(wayfell({"use", "phone"}).status, 2);
}

}  // namespace
}  // namespace wayfell
