// settings, waypoint and track as their users run them, each on folders of its own. What they have
// saved is read by Python, which knows nothing of how they did it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Folder.h"
#include "support/Program.h"

namespace wayfell {
namespace {

using testing::HasSubstr;

constexpr const char* kSuite = "data/wayfell/group.org.wayfell.Wayfell.db";
constexpr const char* kLocal = "config/wayfell/widget.db";

class StoreCommandsTest : public testing::Test {
 protected:
  std::string path(const std::string& file) const { return folder_ / file; }

  /// The rest of the line is read by a shell, in the folder of the test.
  Finished wayfell(const std::string& arguments, const std::string& input = "") const {
    return run({"env", "-C", folder_.path(), "XDG_DATA_HOME=" + path("data"),
                "XDG_CONFIG_HOME=" + path("config"), "sh", "-c", WAYFELL_PROGRAM " " + arguments},
               input);
  }

  /// Runs what must go well without a word.
  void done(const std::string& arguments) const {
    const Finished finished = wayfell(arguments);
    EXPECT_EQ(finished.status, 0) << arguments;
    EXPECT_EQ(finished.output + finished.errors, "");
  }

  /// What the database holds, a line for each key in order.
  std::string saved(const char* file) const {
    return run({"python3", "-c",
                "import sqlite3, sys\n"
                "for row in sqlite3.connect(sys.argv[1]).execute('SELECT key, type, value FROM "
                "settings ORDER BY key'): print(*row)",
                path(file)})
        .output;
  }

 private:
  Folder folder_;
};

TEST_F(StoreCommandsTest, SavesValuesWithTheirTypes) {
  done("settings set speed SPEED");
  done("settings set units metric");
  done("settings set coordinateUnits 3");
  done("settings set compassHeading true");  // the first of its names
  done("settings set rotateMap off");
  done("settings set useMils mils");
  done("settings set viewHidden no");
  done("settings set waypointLatitude 2.5");
  done("settings set --type=text text 12");
  done("settings set --type date date -0.5");
  done("settings set time 1");
  done("settings unset time");
  EXPECT_EQ(saved(kSuite),
            "compassHeading integer 0\n"
            "coordinateUnits integer 3\n"
            "date date -0.5\n"
            "rotateMap boolean 0\n"
            "speed integer 2\n"
            "text text 12\n"
            "units integer 1\n"
            "useMils boolean 1\n"
            "viewHidden boolean 0\n"
            "waypointLatitude real 2.5\n");
}

TEST_F(StoreCommandsTest, ShowsWhatIsThere) {
  done("settings set units 1");
  done("settings set --type text note 'two words'");
  done("settings --local set --type date addressDate 2026-05-01T12:30:00.25Z");
  // In no more than 80 columns, what is set and what is not.
  const std::string list = wayfell("settings list").output;
  EXPECT_THAT(list,
              testing::StartsWith(
                  "units                integer  1          metric (default imperial)\n"
                  "coordinateUnits               (not set)  Dec (default), Dm, DMs, MGRS, UTM\n"));
  EXPECT_THAT(list,
              testing::EndsWith(
                  "widgetAddressString           (not set)  the last address found (default none)\n"
                  "note                 text     two words\n"));
  EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 15);  // 14 that the widget reads
  EXPECT_EQ(wayfell("settings list --json").output,
            "{\"key\":\"note\",\"type\":\"text\",\"value\":\"two words\"}\n"
            "{\"key\":\"units\",\"type\":\"integer\",\"value\":1}\n");
  EXPECT_EQ(wayfell("settings get note").output, "two words\n");
  EXPECT_EQ(wayfell("settings get units --json").output,
            "{\"key\":\"units\",\"type\":\"integer\",\"value\":1}\n");
  // 9251 days from 2001 to May 2026, and 12 hours and a half.
  EXPECT_THAT(wayfell("settings list --local").output,
              testing::EndsWith("addressDate      date  799331400.25  2026-05-01T12:30:00.25Z\n"));
}

TEST_F(StoreCommandsTest, ReadingMakesNoFiles) {
  for (const char* store : {"--suite --json", "--local --json", "--cloud"}) {
    done(std::string("settings list ") + store);
  }
  const Finished missing = wayfell("settings get units");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.output, "");
  EXPECT_THAT(missing.errors, HasSubstr("have no \"units\" (" + path(kSuite)));
  EXPECT_EQ(wayfell("waypoint show").status, 1);
  EXPECT_FALSE(std::filesystem::exists(path("data")));
  EXPECT_EQ(wayfell("settings unset units").status, 1);
}

TEST_F(StoreCommandsTest, SavesWhatTheWidgetCannotUseAndSaysSo) {
  const std::pair<const char*, std::string> cases[] = {
      {"set units 7", "units: set, but the widget knows only 0 imperial, 1 metric"},
      {"set --type text speed fast", "reads this text as 0"},
      {"set waypointLatitude 90.5", "knows only -90 to 90"},
      {"set --type real waypointLongitude nan", "knows only -180 to 180"},
      {"set time -1", "knows only 0 and more"},
      {"set utmType 1", "reads it from the widget's own settings"},
      {"--local set distance 5", "reads it from the shared settings"},
      {"--local set units 1", "until a panel that appears copies"},
      {"--local set selectedDatum Adindan", "lists no such name"},
      {"--local set --type integer addressDate 5", "reads this integer as none"},
      {"set units 2", ""},
      {"set waypointLatitude -90", ""},
      {"set --type integer keyOfTheApp 7", ""},
      {"--local set selectedDatum Adindan---Sudan", ""},
  };
  for (const auto& [arguments, note] : cases) {
    const Finished finished = wayfell(std::string("settings ") + arguments);
    EXPECT_EQ(finished.status, 0) << finished.errors;
    EXPECT_THAT(finished.errors, HasSubstr(note));
    EXPECT_EQ(finished.errors.empty(), note.empty()) << finished.errors;
  }
  EXPECT_THAT(saved(kSuite), HasSubstr("speed text fast\n"));
  EXPECT_THAT(saved(kLocal), HasSubstr("units integer 1\n"));
}

TEST_F(StoreCommandsTest, RefusesAndChangesNothing) {
  done("settings set units 1");
  done("track publish 10m 20");
  const std::string before = saved(kSuite);
  struct Case {
    const char* arguments;
    int status;
    const char* complaint;
  };
  const Case cases[] = {
      {"settings set --type integer units 1.5", 1, "units: "},
      {"settings set units one", 1,
       "units: the widget reads this text as 0; it knows imperial, metric, nautical"},
      {"settings set coordinateUnits mrgs", 1, "did you mean MGRS?"},
      {"settings set unit 1", 1, "\"unit\" is no setting of the widget; did you mean units?"},
      {"settings set keyOfTheApp 7", 1, "--type integer would save it"},
      {"settings get unit", 1, "; did you mean units?"},
      {"settings set units 1.5", 1, "--type real would save it"},
      {"settings set units ''", 1, "nothing is saved"},
      {"settings set --type colour units 1", 2, "colour"},
      {"settings set '' 1", 1, "empty"},
      {"settings set --type text bytes '\xff'", 1, "not UTF-8"},
      {"settings --cloud set units 1", 2, "only read"},
      {"settings", 2, "a command is missing"},
      {"waypoint set 90.1 0", 1, "latitude 90.1 is beyond 90"},
      {"waypoint set 1 2 3", 1, "3 numbers are no latitude and longitude"},
      {"waypoint set '1 2' '3 4'", 1, "these are 2 positions"},
      {"waypoint set", 2, "missing"},
      {"waypoint set --gpx a.gpx 1 2", 2, "excludes"},
      {"waypoint set --gpx none.gpx", 1, "none.gpx: cannot be opened"},
      {"track publish -1m 20", 1, "\"-1m\" is not a length"},
      {"track publish 1.2 20", 1, "\"1.2\" has no unit, which may be m, km, mi, nm or ft"},
      {"track publish '5 furlongs' 20", 1, "\"5 furlongs\" has an unknown unit"},
      {"track publish 11m 1:60", 1, "\"1:60\" is not a time"},
  };
  for (const Case& c : cases) {
    const Finished finished = wayfell(c.arguments);
    EXPECT_EQ(finished.status, c.status) << c.complaint;
    EXPECT_EQ(finished.output, "");
    EXPECT_THAT(finished.errors, HasSubstr(c.complaint));
  }
  EXPECT_EQ(saved(kSuite), before);
}

TEST_F(StoreCommandsTest, SaysWhichFileCannotBeUsed) {
  std::filesystem::create_directories(path(kSuite));  // a folder where the file should be
  for (const char* command : {"settings set units 1", "settings unset units", "settings list",
                              "settings get units", "waypoint show", "track clear"}) {
    const Finished finished = wayfell(command);
    EXPECT_EQ(finished.status, 1) << command;
    EXPECT_THAT(finished.errors, HasSubstr(path(kSuite)));
    EXPECT_EQ(finished.output, "");
  }
}

TEST_F(StoreCommandsTest, SetsShowsAndClearsTheWaypoint) {
  done("waypoint set 48.2082N, 16.3738E");
  EXPECT_EQ(saved(kSuite),
            "hasWaypoint boolean 1\n"
            "waypointLatitude real 48.2082\n"
            "waypointLongitude real 16.3738\n");
  EXPECT_EQ(wayfell("waypoint show").output, "48.20820°N, 16.37380°E\n");
  EXPECT_EQ(wayfell("waypoint show --json").output,
            "{\"latitude\":48.2082,\"longitude\":16.3738}\n");
  // Krüger's series gives 602065.2 and 5340353.7 m in zone 33 (see ReferenceTextTest.cpp).
  done("settings set coordinateUnits 4");
  EXPECT_EQ(wayfell("waypoint show").output, "33 N 602065.2mE 5340353.7mN\n");
  done("settings --local set utmType 1");
  EXPECT_EQ(wayfell("waypoint show").output, "33 U 602065.2mE 5340353.7mN\n");
  // As a band, S is north of the equator.
  done("waypoint set 33 S 500000.0mE 4000000.0mN");
  EXPECT_THAT(wayfell("waypoint show").output, HasSubstr("33 S 500000.0mE 4000000."));
  // A reference is of the datum that it is shown on.
  done("settings --local set selectedDatum 'Tokyo---Japan'");
  EXPECT_EQ(wayfell("waypoint set 54S UE 88000 49000").errors,
            "wayfell: Tokyo---Japan: shifted without dz, up to 685 m off\n");
  done("settings set coordinateUnits 3");
  EXPECT_EQ(wayfell("waypoint show").output, "54S UE 88000 49000\n");

  done("waypoint clear");
  EXPECT_EQ(saved(kSuite), "coordinateUnits integer 3\nhasWaypoint boolean 0\n");
  const Finished none = wayfell("waypoint show");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.errors, "wayfell: no waypoint is set\n");
}

TEST_F(StoreCommandsTest, TakesWaypointsOfGpxFiles) {
  putBytes(path("huts.gpx"),
           "<g:gpx xmlns:g='http://www.topografix.com/GPX/1/1'>"
           "<g:wpt lat='46.5' lon='8.25'><g:name> Upper hut </g:name></g:wpt>"
           "<g:wpt lat='46.25' lon='8.5'><g:name>Spring</g:name></g:wpt>"
           "<g:wpt lat='-1.5' lon='-2.5'><g:name>Spring</g:name></g:wpt>"
           "<g:wpt lat='3' lon='4'/><g:rte>"
           "<g:rtept lat='46.5' lon='8.25'><g:name>Upper hut</g:name></g:rtept>"
           "<g:rtept lat='5' lon='6'><g:name>Zu\u0308rich  See</g:name></g:rtept></g:rte></g:gpx>");
  const std::string one = "<gpx><rte><rtept lat='-1' lon='2'/></rte></gpx>";
  putBytes(path("one.gpx"), one);
  putBytes(path("none.gpx"), "<gpx/>");
  putBytes(path("bad.gpx"), "<gpx><wpt lat='1' lon='2'/><wpt lat='95' lon='2'/></gpx>");
  putBytes(path("open.gpx"), "<gpx>\n<wpt>");
  putBytes(path("packed.gpx"), "\x1F\x8B\x08");

  // Neither case, composition nor blanks matter.
  done("waypoint set --gpx huts.gpx --name ' ZÜRICH see'");
  EXPECT_THAT(saved(kSuite), HasSubstr("waypointLatitude real 5.0\nwaypointLongitude real 6.0\n"));
  done("waypoint set --gpx huts.gpx --name 'Upper hut'");
  EXPECT_THAT(saved(kSuite),
              HasSubstr("waypointLatitude real 46.5\nwaypointLongitude real 8.25\n"));
  done("waypoint set --gpx one.gpx");
  EXPECT_THAT(saved(kSuite), HasSubstr("waypointLatitude real -1.0\nwaypointLongitude real 2.0\n"));
  EXPECT_EQ(wayfell("waypoint set --gpx -", one).status, 0);

  const std::string before = saved(kSuite);
  const std::string springs =
      "  waypoint 2  46.25000000 8.50000000  \"Spring\"\n"
      "  waypoint 3  -1.50000000 -2.50000000  \"Spring\"\n";
  const std::pair<std::string, std::string> cases[] = {
      {"huts.gpx --name spring", "several waypoints have the name \"spring\""},
      {"huts.gpx --name spring", springs},
      {"huts.gpx --name sprin", "no waypoint has the name \"sprin\"; there are\n" + springs},
      {"huts.gpx", springs + "  waypoint 4  3.00000000 4.00000000  without a name\n"},
      {"none.gpx", "no waypoints"},
      {"bad.gpx", "line 1: the waypoint is not on Earth"},
      {"open.gpx", "line 2: not well-formed XML"},
      {"packed.gpx", "this is gzip: zcat FILE | wayfell waypoint set --gpx -"},
  };
  for (const auto& [arguments, complaint] : cases) {
    const Finished finished = wayfell("waypoint set --gpx " + arguments);
    EXPECT_EQ(finished.status, 1) << arguments;
    EXPECT_THAT(finished.errors,
                testing::StartsWith("wayfell: " + arguments.substr(0, arguments.find(' ')) + ": "));
    EXPECT_THAT(finished.errors, HasSubstr(complaint));
  }
  EXPECT_EQ(saved(kSuite), before);
}

// A mile is 1609.344 m, a nautical mile 1852 m, a foot 0.3048 m.
TEST_F(StoreCommandsTest, PublishesTheTrack) {
  struct Case {
    const char* figures;
    std::string metres;
    std::string seconds;
  };
  const Case cases[] = {
      {"1234.5M 901", "1234.5", "901.0"},
      {"1.25km 15:01", "1250.0", "901.0"},
      {"10mi 1:02:03", "16093.44", "3723.0"},
      {"'2 nm' 0", "3704.0", "0.0"},
      {"'1e3 ft' 100:00:00.5", "304.8", "360000.5"},
      {"0 59:59", "0.0", "3599.0"},
  };
  for (const Case& c : cases) {
    done(std::string("track publish ") + c.figures);
    EXPECT_EQ(saved(kSuite), "distance real " + c.metres + "\ntime real " + c.seconds + '\n');
  }
  done("track clear");
  EXPECT_EQ(saved(kSuite), "");
}

// Only on a terminal, which script(1) provides: what others than people read stays quiet.
TEST_F(StoreCommandsTest, TellsPeopleWhenAPanelShowsIt) {
  const auto onTerminal = [this](const std::string& arguments) {
    return run({"env", "XDG_DATA_HOME=" + path("data"), "XDG_CONFIG_HOME=" + path("config"),
                "script", "-qec", WAYFELL_PROGRAM " " + arguments, "/dev/null"})
        .output;
  };
  EXPECT_THAT(onTerminal("settings list"), HasSubstr("not there yet"));
  EXPECT_THAT(onTerminal("settings set units 1"), HasSubstr("when it next appears"));
  EXPECT_THAT(onTerminal("settings set time 1"), HasSubstr("within half a second"));
  EXPECT_EQ(onTerminal("settings set --type integer keyOfTheApp 1"), "");
  EXPECT_THAT(onTerminal("waypoint set 1 2"), HasSubstr("when it next appears"));
  EXPECT_THAT(onTerminal("track publish 1m 2"), HasSubstr("within half a second"));
}

}  // namespace
}  // namespace wayfell
