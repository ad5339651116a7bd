// The program as its users run it. Degrees, minutes and seconds were worked out by hand, metres
// with Krüger's series (see ReferenceTextTest.cpp).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/Program.h"

namespace wayfell {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

Finished wayfell(std::vector<std::string> arguments, const std::string& input = "") {
  arguments.insert(arguments.begin(), WAYFELL_PROGRAM);
  return run(arguments, input);
}

struct Answer {
  std::vector<std::string> arguments;
  std::string output;
};

void expectAnswers(const std::string& command, const std::vector<Answer>& answers) {
  for (Answer answer : answers) {
    answer.arguments.insert(answer.arguments.begin(), command);
    const Finished finished = wayfell(answer.arguments);
    EXPECT_EQ(finished.output, answer.output);
    EXPECT_EQ(finished.errors, "");
    EXPECT_EQ(finished.status, 0);
  }
}

TEST(ConvertTest, PrintsWhatIsAskedFor) {
  const std::vector<Answer> cases = {
      {{"48.2082", "16.3738"},
       "dec   48.20820°N, 16.37380°E\n"
       "dm    48° 12.4920' N, 16° 22.4280' E\n"
       "dms   48° 12' 29.52'' N, 16° 22' 25.68'' E\n"
       "mgrs  33U XP 02065 40354\n"
       "utm   33 N 602065.2mE 5340353.7mN\n"},
      {{"--to", "MGRS", "-33.9", "18.4"}, "34H BH 59583 45888\n"},
      {{"-33.9,18.4", "--to=dec", "48° 12.4920' N, 16° 22.4280' E", "33UXP0206540354"},
       "33.90000°S, 18.40000°E\n48.20820°N, 16.37380°E\n48.20820°N, 16.37380°E\n"},
      {{"--to", "dec", "48,2082", "16,3738"}, "48.20820°N, 16.37380°E\n"},
      // On the equator a larger ellipsoid moves nothing.
      {{"--to", "dec", "--datum", "cgcs2000 china", "0", "90"}, "0.00000°S, 90.00000°E\n"},
      {{"--to", "utm", "--utm-type", "1", "0", "15"}, "33 N 500000.0mE 0.0mN\n"},
      {{"--to", "utm", "0", "15"}, "33 S 500000.0mE 0.0mN\n"},
      {{"--from", "utm", "--to", "mgrs", "33", "N", "520000.0mE", "4649776.0mN"},
       "33T WG 20000 49776\n"},
      {{"--json", "--to", "dm", "-0.5", "1"},
       "{\"latitude\":-0.5,\"longitude\":1.0,\"dm\":\"0° 30.0000' S, 1° 0.0000' E\"}\n"},
  };
  expectAnswers("convert", cases);
}

TEST(ConvertTest, ComplainsOfBadLinesAndGoesOn) {
  struct Case {
    std::string line;
    std::string complaint;  // empty: the line converts or is passed over
  };
  const Case cases[] = {
      {"\xEF\xBB\xBF# positions", ""},
      {"  1 , 2  # a comment\r", ""},
      {"", ""},
      {"95.2 0", "latitude 95.2 is beyond 90"},
      {"12", "a longitude is missing"},
      {"1 2 3", "3 numbers are no latitude and longitude"},
      {"1,5 2,5 3,5", "3 numbers are no latitude and longitude"},
      {"90 0", "90.00000000 0.00000000 has no mgrs text"},
      {"\x1b[31m", "\" [31m\" is no part of a position"},
      {"2E 1N", ""},
  };
  std::string input;
  for (const Case& c : cases) input += c.line + '\n';
  const Finished finished = wayfell({"convert", "--to", "mgrs"}, input);
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.output, "31N CB 88736 10547\n31N CB 88736 10547\n");
  std::size_t number = 0;
  std::size_t complaints = 0;
  for (const Case& c : cases) {
    ++number;
    if (c.complaint.empty()) continue;
    ++complaints;
    EXPECT_THAT(finished.errors,
                testing::ContainsRegex("wayfell: line " + std::to_string(number) + ": [^\n]*"))
        << c.line;
    EXPECT_THAT(finished.errors, HasSubstr(c.complaint));
  }
  EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), complaints);
}

// Reads an answer after each line, and would wait for one for ever.
TEST(ConvertTest, AnswersALineBeforeTheNextOne) {
  EXPECT_EQ(run({"bash", "-c",
                 "coproc '" WAYFELL_PROGRAM "' convert --to dec; "
                 "for line in '1 2' '3 4'; do"
                 "  echo $line >&${COPROC[1]}; read -r answer <&${COPROC[0]}; echo $answer; done"})
                .output,
            "1.00000°N, 2.00000°E\n3.00000°N, 4.00000°E\n");
}

TEST(ConvertTest, RefusesDatums) {
  const Finished unknown = wayfell({"convert", "--datum", "Tokio", "1", "2"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.errors, HasSubstr("no datum \"Tokio\""));
  EXPECT_THAT(unknown.errors, HasSubstr("\n    Tokyo---Japan\n"));
  const Finished unusable = wayfell({"convert", "--datum", "Herat North---Afghanistan", "1", "2"});
  EXPECT_EQ(unusable.status, 2);
  EXPECT_EQ(unusable.output, "");
  EXPECT_THAT(unusable.errors, HasSubstr("cannot be used"));
}

// One degree of a great circle of radius 6378137 m is 111319.49 m, 60.107 nautical miles or 69.17
// miles.
TEST(DistanceTest, MeasuresAndGoes) {
  const std::vector<Answer> cases = {
      {{"0", "0", "0", "1"}, "distance  111.32 km\nbearing   90.0°\n"},
      {{"--units", "nautical", "--mils", "0", "0", "0", "-1"},
       "distance  60.11 nm\nbearing   4800 mils\n"},
      {{"--units", "imperial", "1", "0", "0", "0"}, "distance  69.17 miles\nbearing   180.0°\n"},
      {{"1", "2", "1 0 N 2 0 E"}, "distance  0.00 km (0.00 m)\nbearing   0.0°\n"},
      {{"--bearing", "90", "--distance", "111.31949079327km", "0", "179.5"},
       "0.00000000 -179.50000000\n"},
  };
  expectAnswers("distance", cases);
  const Finished one = wayfell({"distance", "46,98", "7,94"});
  EXPECT_EQ(one.status, 1);
  EXPECT_EQ(one.output, "");
  EXPECT_THAT(one.errors, HasSubstr("this is one position, 46.98000000 7.94000000"));
}

TEST(DatumsTest, SaysWhatIsApplied) {
  EXPECT_EQ(wayfell({"datums", "adindan", "mali"}).output,
            "Adindan---Mali\n"
            "  Clarke 1880, a 6378249.145 m, 1/f 293.465\n"
            "  shift dx -123 m, dy -20 m (dz 220 m is never applied)\n");
  EXPECT_THAT(wayfell({"datums", "herat"}).output, HasSubstr("nothing converts"));
  EXPECT_EQ(wayfell({"datums", "--json", "herat"}).output,
            "{\"name\":\"Herat North---Afghanistan\",\"ellipsoid\":\"+International 1924\","
            "\"axis\":null,\"inverseFlattening\":null,"
            "\"listedShift\":{\"dx\":-333.0,\"dy\":-222.0,\"dz\":114.0},"
            "\"appliedShift\":{\"dx\":-333.0,\"dy\":-222.0,\"dz\":0.0}}\n");
  EXPECT_THAT(wayfell({"datums", "cgcs2000"}).output, HasSubstr("Krassovsky 1940"));
  const Finished none = wayfell({"datums", "tokio"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.errors, "wayfell: no datum has \"tokio\"; did you mean Tokyo?\n");
}

// Runs a line of a shell, in which "wayfell" stands for the program.
Finished shell(const std::string& line) {
  return run({"sh", "-c", "wayfell() { '" WAYFELL_PROGRAM "' \"$@\"; }; " + line});
}

std::ptrdiff_t linesOf(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

TEST(CommandLine, IsRefusedWithAReason) {
  struct Case {
    const char* arguments;
    const char* reason;
  };
  const Case cases[] = {
      {"", "a command is missing: today, replay, "},
      {"fly", "\"fly\" is not expected\n"},
      {"tday", "\"tday\" is not expected; did you mean today?\n  \"wayfell --help\""},
      {"settings lsit", "did you mean list?\n  \"wayfell settings --help\""},
      {"today --rat=3", "\"--rat=3\" is not expected; did you mean --rate?"},
      {"settings get units --locla", "did you mean --local?"},
      {"replay", "FILE or --demo is required"},
      {"replay --demo -", "FILE excludes --demo"},
      {"replay --demo --every 0", "--every: expected a number of seconds, at least 0.001"},
      {"replay --demo --every inf", "--every: expected"},
      {"replay --demo --suite units", "--suite: \"units\" is not KEY=VALUE"},
      {"today --rate 2", "--rate: --demo or --replay is required"},
      {"today --gpsd here:0", "--gpsd: expected HOST:PORT"},
      {"today --source nmea=/dev/ttyS0",
       "--source: expected auto, gpsd[=HOST:PORT], replay=FILE or demo\n"},
      {"today --source dmeo", "replay=FILE or demo; did you mean demo?"},
      {"today --demo --source gpsd",
       "today: only one of --source, --gpsd, --replay and --demo can be meant"},
      {"today --demo --rate -1", "--rate: expected a rate from 0.1 to 1000, or 0"},
      {"today --demo --rate nan", "--rate: expected"},
      {"settings --suite list --cloud", "only one of --suite, --local and --cloud can be meant"},
      {"convert --to feet 1 2", "--to: \"feet\" is not dec, dm, dms, mgrs, utm or all\n"},
      {"convert --to MRGS 1 2", "; did you mean mgrs?"},
      {"convert --utm-type 2 1 2", "--utm-type: \"2\" is not 0 or 1"},
      {"waypoint set --name x", "--name requires --gpx"},
      {"distance", "between two positions"},
      {"distance --bearing 5 1 2", "go together"},
      {"distance --bearing 5 --distance 1500 1 2", "--distance: \"1500\" has no unit"},
      {"distance --bearing east --distance 1km 1 2", "--bearing: expected degrees"},
      {"datums --names --json wgs", "only one of --names and --json"},
  };
  for (const Case& c : cases) {
    const Finished refused = shell("wayfell " + std::string(c.arguments));
    EXPECT_EQ(refused.status, 2) << c.arguments;
    EXPECT_EQ(refused.output, "");
    EXPECT_THAT(refused.errors, StartsWith("wayfell: "));
    EXPECT_THAT(refused.errors, HasSubstr(c.reason));
  }
  EXPECT_EQ(shell("wayfell settings list --version").output, shell("wayfell --version").output);
}

TEST(Replaying, SaysWhatIsWrongAndKeepsWhatWasWritten) {
  const Finished broken =
      shell(R"(printf '{"t":0,"show":true}\n{"t":1,"shw":1}\n' | wayfell replay -)");
  EXPECT_EQ(broken.errors, "wayfell: standard input: line 2: shw: unknown event\n");
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(linesOf(broken.output), 2);  // what was asked for, and the end of what could be read
  const std::string missing = "/nowhere: cannot be opened: No such file or directory\n";
  for (const char* command : {"wayfell replay ", "wayfell today --source replay="}) {
    const Finished finished = shell(command + std::string("/nowhere"));
    EXPECT_EQ(finished.errors, "wayfell: " + missing);
    EXPECT_EQ(finished.status, 1);
  }
  EXPECT_EQ(shell("wayfell replay /").errors, "wayfell: /: cannot be read: Is a directory\n");
}

TEST(Replaying, SetsValuesBeforeTheFirstEvent) {
  const Finished set = shell(
      R"(printf '{"t":0,"suite":{"a":3}}\n' | wayfell replay - )"
      R"(--suite a=1 --suite 'b=x y' --suite useMils=on --suite d=1.0 --local angleUnits=mils)");
  EXPECT_THAT(set.output, HasSubstr(R"("suite":{"a":3,"b":"x y","d":1.0,"useMils":true})"));
  EXPECT_THAT(set.output, HasSubstr(R"("local":{"angleUnits":1,)"));
  EXPECT_EQ(set.status, 0);
}

TEST(Replaying, EndsQuietlyWhenItsReaderGoesAndNotWhenTheDiskIsFull) {
  // The status goes past the pipe, whose reader takes nothing.
  const Finished quiet =
      shell("{ { wayfell replay --demo --every 0.1 2>&3; echo $? >&3; } | true; } 3>&1");
  EXPECT_EQ(quiet.output, "0\n");
  const Finished full = shell("wayfell replay --demo >/dev/full");
  EXPECT_EQ(full.errors, "wayfell: standard output: No space left on device\n");
  EXPECT_EQ(full.status, 1);
}

}  // namespace
}  // namespace wayfell
