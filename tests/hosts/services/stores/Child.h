// Parts of tests in processes of their own.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "support/Program.h"

namespace wayfell {

/// Starts this program anew with the arguments, which Main.cpp understands; its standard output
/// goes to the file if there is one.
inline pid_t startWorker(std::vector<std::string> arguments, std::FILE* output = nullptr) {
  const pid_t child = fork();
  if (child != 0) return child;
  if (output != nullptr) dup2(fileno(output), STDOUT_FILENO);
  arguments.insert(arguments.begin(), "/proc/self/exe");
  become(arguments);
}

/// The exit status; -1 when a signal ended it.
inline int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What the action answers in a child process.
inline std::string inChild(const std::function<std::string()>& action) {
  const OwnFile file = temporaryFile();
  const pid_t child = fork();
  if (child == 0) {
    const std::string answer = action();
    const std::size_t written = std::fwrite(answer.data(), 1, answer.size(), file.get());
    _exit(written == answer.size() && std::fflush(file.get()) == 0 ? 0 : 1);
  }
  EXPECT_EQ(statusOf(child), 0);
  return contentsOf(file.get());
}

}  // namespace wayfell
