// Crashes of a program in the middle of something, seen from outside.
#include "hosts/terminal/TerminalRescue.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

namespace wayfell {
namespace {

void readWhatMayNotBeRead() {
  const void* page = mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  static_cast<void>(*static_cast<const volatile char*>(page));
}

int exhaustStack(int depth) {
  volatile char page[4096] = {};
  if (depth < 0) return page[0];
  return exhaustStack(depth + 1) + page[4095];
}

struct Crash {
  const char* name;
  int signal;
  void (*crash)();
};

class TerminalRescued : public testing::TestWithParam<Crash> {};

TEST_P(TerminalRescued, WritesItsTextAndDiesAllTheSame) {
  std::array<int, 2> pipe_ = {};
  ASSERT_EQ(pipe(pipe_.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    close(STDERR_FILENO);  // what they say is nothing new
    const TerminalRescue rescue(pipe_[1], "as it was");
    GetParam().crash();
    _exit(0);
  }
  close(pipe_[1]);
  std::string written(64, '\0');
  written.resize(static_cast<std::size_t>(
      std::max<ssize_t>(0, read(pipe_[0], written.data(), written.size()))));
  close(pipe_[0]);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(written, "as it was");
  // A sanitizer makes an exit with a report of some of them.
  EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == GetParam().signal
                                  : WEXITSTATUS(status) != 0)
      << status;
}

INSTANTIATE_TEST_SUITE_P(Crashes, TerminalRescued,
                         testing::Values(Crash{"Memory", SIGSEGV, readWhatMayNotBeRead},
                                         Crash{"Stack", SIGSEGV, [] { exhaustStack(0); }},
                                         Crash{"Abort", SIGABRT, [] { std::abort(); }},
                                         Crash{"Exception", SIGABRT, [] { std::terminate(); }},
                                         Crash{"Raised", SIGFPE, [] { std::raise(SIGFPE); }}),
                         [](const auto& crash) { return crash.param.name; });

TEST(TerminalRescue, RefusesALongText) {
  const std::string text(TerminalRescue::kLongestText + 1, 'x');
  EXPECT_THROW(TerminalRescue(STDERR_FILENO, text), std::length_error);
}

}  // namespace
}  // namespace wayfell
