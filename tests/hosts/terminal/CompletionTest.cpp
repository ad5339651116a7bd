// Completion scripts and manual page: they run, and they know every option that the program has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "support/Folder.h"
#include "support/Program.h"

namespace wayfell {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kCompletions = WAYFELL_SOURCES "/completions/";
const std::string kManual = WAYFELL_SOURCES "/man/wayfell.1";

bool isInstalled(const std::string& shell) { return run({shell, "--version"}).status != 127; }

std::vector<std::string> optionsOf(std::vector<std::string> command) {
  const std::regex optionOf("\n  (?:-h,)?--([a-z-]+)");
  command.insert(command.begin(), WAYFELL_PROGRAM);
  command.emplace_back("--help");
  const std::string help = run(command).output;
  std::vector<std::string> options;
  for (std::sregex_iterator it(help.begin(), help.end(), optionOf), end; it != end; ++it) {
    options.push_back((*it)[1]);
  }
  return options;
}

TEST(CompletionTest, EveryOptionIsInTheScriptsAndTheManual) {
  const std::string manual = std::regex_replace(bytesOf(kManual), std::regex(R"(\\-)"), "-");
  const std::string bash = bytesOf(kCompletions + "wayfell.bash");
  const std::string zsh = bytesOf(kCompletions + "_wayfell");
  const std::string fish = bytesOf(kCompletions + "wayfell.fish");
  struct Case {
    std::vector<std::string> command;
    std::size_t options;  // at least
  };
  const Case cases[] = {
      {{"today"}, 4},
      {{"replay"}, 4},
      {{"convert"}, 4},
      {{"distance"}, 4},
      {{"datums"}, 4},
      {{"settings"}, 5},
      {{"settings", "list"}, 2},
      {{"settings", "get"}, 2},
      {{"settings", "set"}, 2},
      {{"settings", "unset"}, 1},
      {{"waypoint"}, 2},
      {{"waypoint", "set"}, 3},
      {{"waypoint", "show"}, 2},
      {{"waypoint", "clear"}, 1},
      {{"track"}, 2},
      {{"track", "publish"}, 1},
      {{"track", "clear"}, 1},
      {{"addresses"}, 1},
      {{"addresses", "import"}, 3},
      {{"addresses", "find"}, 3},
      {{"addresses", "info"}, 1},
      {{"addresses", "use"}, 3},
  };
  for (const Case& c : cases) {
    const std::string& name = c.command.back();
    EXPECT_THAT(manual, testing::ContainsRegex("\n\\.(SS|BI?|BR) " + name));
    EXPECT_THAT(fish, HasSubstr("-a " + name + ' '));
    EXPECT_THAT(zsh, HasSubstr('\'' + name + ':'));
    const std::vector<std::string> options = optionsOf(c.command);
    EXPECT_GE(options.size(), c.options) << name;
    for (const std::string& option : options) {
      SCOPED_TRACE(name + " --" + option);
      EXPECT_THAT(manual, HasSubstr("--" + option));
      EXPECT_THAT(bash, HasSubstr("--" + option));
      EXPECT_THAT(zsh, HasSubstr("--" + option));
      EXPECT_THAT(fish, HasSubstr("-l " + option + ' '));
    }
  }
}

// What docs and the widget's sources say that it reads.
TEST(CompletionTest, KeysOfTheWidgetAreInTheScriptsAndTheManual) {
  const std::string manual = bytesOf(kManual);
  for (const std::string key :
       {"units", "coordinateUnits", "speed", "useMils", "compassHeading", "rotateMap",
        "mapCompassType", "hasWaypoint", "waypointLatitude", "waypointLongitude", "distance",
        "time", "viewHidden", "widgetAddressString", "angleUnits", "utmType", "selectedDatum",
        "addressDate"}) {
    SCOPED_TRACE(key);
    EXPECT_THAT(manual, HasSubstr(key));
    for (const char* script : {"wayfell.bash", "_wayfell", "wayfell.fish"}) {
      EXPECT_THAT(bytesOf(kCompletions + script), HasSubstr(key));
    }
  }
}

TEST(CompletionTest, Bash) {
  struct Case {
    std::string words;  // the last is being typed
    std::string completions;
  };
  const Case cases[] = {
      {"con", "convert "},
      {"convert --to m", "mgrs "},
      {"convert --to = d", "dec dm dms "},
      {"convert --from ''", "utm mgrs "},
      {"convert --utm", "--utm-type "},
      {"convert 1 2 --j", "--json "},
      {"convert --datum Adindan---Bu", "Adindan---Burkina Faso "},
      {R"(convert --datum \'M\'P)", "M'Poraloko---Gabon "},
      {"distance --units n", "nautical "},
      {"datums --n", "--names "},
      {"today --r", "--replay --rate "},
      {"replay --e", "--every "},
      {"replay data/demo.j", "data/demo.jsonl "},
      {"today --replay data/demo.j", "data/demo.jsonl "},
      {"datums tok", ""},
      {"settings ''", "list get set unset "},
      {"settings --lo", "--local "},
      {"settings get use", "useMils "},
      {"settings --local set utm", "utmType "},
      {"settings set utm", ""},
      {"settings set units ''", ""},
      {"settings set --type d", "date data dictionary "},
      {"settings --local ''", "list get set unset "},
      {"settings list --j", "--json "},
      {"waypoint s", "set show "},
      {"waypoint set --gpx data/demo.j", "data/demo.jsonl "},
      {"waypoint show --j", "--json "},
      {"track p", "publish "},
      {"addresses i", "import info "},
      {"addresses import --country US data/demo.j", "data/demo.jsonl "},
      {"addresses import --country ''", ""},
      {"addresses use n", "nominatim none "},
      {"addresses use nominatim --y", "--yes "},
  };
  for (const Case& c : cases) {
    const Finished finished =
        run({"bash", "--norc", "-c",
             "cd '" WAYFELL_SOURCES "' && source completions/wayfell.bash && "
             "COMP_WORDS=(" WAYFELL_PROGRAM " " +
                 c.words +
                 ") && COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && { _wayfell; "
                 "((${#COMPREPLY[@]})) && printf '%s ' \"${COMPREPLY[@]}\"; true; }"});
    EXPECT_EQ(finished.output, c.completions) << c.words;
    EXPECT_EQ(finished.errors, "") << c.words;
  }
}

TEST(CompletionTest, Zsh) {
  if (!isInstalled("zsh")) GTEST_SKIP() << "zsh is not installed";
  const Finished checked = run({"zsh", "-n", kCompletions + "_wayfell"});
  EXPECT_EQ(checked.status, 0) << checked.errors;
}

TEST(CompletionTest, Fish) {
  if (!isInstalled("fish")) GTEST_SKIP() << "fish is not installed";
  const auto complete = [](const std::string& line) {
    return run({"fish", "--no-config", "-c",
                "source " + kCompletions + "wayfell.fish; complete -C '" + line + "'"})
        .output;
  };
  EXPECT_THAT(complete("wayfell con"), testing::StartsWith("convert\t"));
  EXPECT_THAT(complete("wayfell convert --utm-type "), HasSubstr("latitude bands"));
  EXPECT_THAT(complete("wayfell today --ra"), testing::StartsWith("--rate"));
  EXPECT_THAT(complete("wayfell settings --local g"), testing::StartsWith("get\t"));
  EXPECT_THAT(complete("wayfell settings --local set ut"), testing::StartsWith("utmType\t"));
  EXPECT_THAT(complete("wayfell settings set ut"), Not(HasSubstr("utmType")));
  EXPECT_THAT(complete("wayfell settings get dist"), testing::StartsWith("distance\t"));
  EXPECT_EQ(complete("wayfell settings set distance 5 --mi"), "");
  EXPECT_THAT(complete("wayfell addresses use nom"), testing::StartsWith("nominatim\t"));
  EXPECT_THAT(complete("wayfell addresses import --co"), testing::StartsWith("--country"));
  EXPECT_THAT(complete("wayfell track "), HasSubstr("publish\t"));
  EXPECT_THAT(complete(WAYFELL_PROGRAM " convert --datum tokyo---j"), HasSubstr("Tokyo---Japan"));
}

TEST(ManualTest, Formats) {
  if (!isInstalled("groff")) GTEST_SKIP() << "groff is not installed";
  const Finished formatted = run({"groff", "-ww", "-man", "-Tutf8", kManual});
  EXPECT_EQ(formatted.status, 0);
  EXPECT_EQ(formatted.errors, "");
  EXPECT_THAT(formatted.output, HasSubstr("wayfell convert 48.2082 16.3738"));
}

}  // namespace
}  // namespace wayfell
