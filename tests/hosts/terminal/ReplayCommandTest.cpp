// Runs of the program itself: what goes to which stream, and the status it ends with.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace wayfell {
namespace {

struct Outcome {
  std::string output;
  int status;
};

// "wayfell" in the command stands for the program.
Outcome run(const std::string& command) {
  const std::string line = "wayfell() { '" WAYFELL_PROGRAM "' \"$@\"; }; " + command;
  FILE* const pipe = popen(line.c_str(), "r");
  Outcome result{};
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) {
    result.output.append(part.data(), count);
  }
  result.status = WEXITSTATUS(pclose(pipe));
  return result;
}

std::size_t linesOf(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(Command, SaysWhatIsWrongAndKeepsWhatWasWritten) {
  const std::string scenario = R"(printf '{"t":0,"show":true}\n{"t":1,"shw":1}\n')";
  const Outcome errors = run(scenario + " | wayfell replay - 2>&1 >/dev/null");
  EXPECT_EQ(errors.output, "wayfell: standard input: line 2: shw: unknown event\n");
  EXPECT_EQ(errors.status, 1);
  EXPECT_EQ(linesOf(run(scenario + " | wayfell replay - 2>/dev/null").output), 1U);
  const Outcome missing = run("wayfell replay /nowhere/at/all 2>&1");
  EXPECT_EQ(missing.output,
            "wayfell: /nowhere/at/all: cannot be opened: No such file or directory\n");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(run("wayfell replay / 2>&1").output, "wayfell: /: cannot be read: Is a directory\n");
}

TEST(Command, RefusesWhatItCannotUnderstand) {
  for (const char* arguments : {"", "fly", "replay", "replay --demo -", "replay --demo --every 0",
                                "replay --demo --every x", "replay --demo --every inf",
                                "replay --demo --suite units", "replay --demo --fast"}) {
    const Outcome refused = run("wayfell " + std::string(arguments) + " 2>&1 >/dev/null");
    EXPECT_EQ(refused.status, 2) << arguments;
    EXPECT_NE(refused.output, "") << arguments;
  }
  EXPECT_EQ(run("wayfell --version").status, 0);
  EXPECT_EQ(run("wayfell replay --help").status, 0);
}

TEST(Command, SetsValuesBeforeTheFirstEvent) {
  const Outcome set =
      run(R"(printf '{"t":0,"suite":{"a":3}}\n' | wayfell replay - )"
          R"(--suite a=1 --suite 'b=x y' --suite c=true --suite d=1.0 --local k=7)");
  EXPECT_NE(set.output.find(R"("suite":{"a":3,"b":"x y","c":true,"d":1.0})"), std::string::npos)
      << set.output;
  EXPECT_NE(set.output.find(R"("k":7)"), std::string::npos);
  EXPECT_EQ(set.status, 0);
}

TEST(Command, EndsQuietlyWhenItsReaderGoesAndNotWhenTheDiskIsFull) {
  // The status goes past the pipe, whose reader takes nothing.
  const Outcome quiet =
      run("{ { wayfell replay --demo --every 0.1 2>&3; echo $? >&3; } | true; } 3>&1");
  EXPECT_EQ(quiet.output, "0\n");
  const Outcome full = run("wayfell replay --demo 2>&1 >/dev/full");
  EXPECT_EQ(full.output, "wayfell: standard output: No space left on device\n");
  EXPECT_EQ(full.status, 1);
}

TEST(Command, ReplaysTheDemo) {
  const Outcome demo = run("wayfell replay --demo 2>&1");
  EXPECT_EQ(demo.status, 0);
  EXPECT_GT(linesOf(demo.output), 0U);
  const Outcome panels = run("wayfell replay --demo --text --every 300 2>&1");
  EXPECT_EQ(panels.status, 0);
  EXPECT_NE(panels.output.find("Wayfell"), std::string::npos);
}

}  // namespace
}  // namespace wayfell
