// Crashes of a program in the middle of something, seen from outside.
#include "hosts/terminal/TerminalRescue.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
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

void exhaustTheStack() { exhaustStack(0); }

TEST(TerminalRescue, WritesItsTextAndTheProgramDiesAllTheSame) {
  for (void (*crash)() : {readWhatMayNotBeRead, exhaustTheStack}) {
    std::array<int, 2> pipe_ = {};
    ASSERT_EQ(pipe(pipe_.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
      close(STDERR_FILENO);  // what they say is nothing new
      const TerminalRescue rescue(pipe_[1], "as it was");
      crash();
      _exit(0);
    }
    close(pipe_[1]);
    std::string written(9, '\0');
    EXPECT_EQ(read(pipe_[0], written.data(), written.size()), 9);
    EXPECT_EQ(written, "as it was");
    close(pipe_[0]);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    // A sanitizer makes an exit with a report of some of them.
    EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGSEGV : WEXITSTATUS(status) != 0);
  }
}

}  // namespace
}  // namespace wayfell
