// Completion scripts and manual page: they run, and they know every option that the program has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "Program.h"

namespace wayfell {
namespace {

using testing::HasSubstr;

const std::string kCompletions = WAYFELL_SOURCES "/completions/";
const std::string kManual = WAYFELL_SOURCES "/man/wayfell.1";

bool isInstalled(const std::string& shell) { return run({shell, "--version"}).status != 127; }

std::string manual() {
  return std::regex_replace(readFile(kManual), std::regex(R"(\\-)"), "-");
}

TEST(CompletionTest, EveryOptionIsInTheScriptsAndTheManual) {
  const std::string manual = wayfell::manual();
  const std::string bash = readFile(kCompletions + "wayfell.bash");
  const std::string zsh = readFile(kCompletions + "_wayfell");
  const std::string fish = readFile(kCompletions + "wayfell.fish");
  const std::regex optionOf("\n  (?:-h,)?--([a-z-]+)");
  const auto check = [&](const std::vector<std::string>& command, std::size_t fewest) {
    EXPECT_THAT(manual, HasSubstr((command.size() == 1 ? ".SS " : "B") + command.back()));
    std::vector<std::string> asked = {WAYFELL_PROGRAM};
    asked.insert(asked.end(), command.begin(), command.end());
    asked.emplace_back("--help");
    const std::string help = run(asked).output;
    std::size_t options = 0;
    for (std::sregex_iterator it(help.begin(), help.end(), optionOf), end; it != end; ++it) {
      ++options;
      const std::string name = (*it)[1];
      SCOPED_TRACE(command.back() + " --" + name);
      EXPECT_THAT(manual, HasSubstr("--" + name));
      EXPECT_THAT(bash, HasSubstr("--" + name));
      EXPECT_THAT(zsh, HasSubstr("--" + name));
      EXPECT_THAT(fish, HasSubstr("-l " + name + ' '));
    }
    EXPECT_GE(options, fewest) << help;
  };
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
