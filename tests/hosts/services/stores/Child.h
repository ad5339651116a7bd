// Parts of tests in processes of their own.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

namespace wayfell {

/// Starts this program anew with the arguments, which Main.cpp understands; its standard output
/// goes to the descriptor if there is one.
inline pid_t startWorker(std::vector<std::string> arguments, int output = -1) {
  const pid_t child = fork();
  if (child != 0) return child;
  if (output >= 0) dup2(output, STDOUT_FILENO);
  std::string self = "/proc/self/exe";
  std::vector<char*> words = {self.data()};
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  execv(self.c_str(), words.data());
  _exit(127);
}

/// The exit status; -1 when a signal ended it.
inline int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// All that can be read from the descriptor, which is closed then.
inline std::string restOf(int descriptor) {
  std::string rest;
  char buffer[4096];
  for (ssize_t count = 0; (count = read(descriptor, buffer, sizeof buffer)) > 0;) {
    rest.append(buffer, static_cast<std::size_t>(count));
  }
  close(descriptor);
  return rest;
}

/// What the action answers in a child process.
inline std::string inChild(const std::function<std::string()>& action) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    const std::string answer = action();
    const ssize_t written = write(ends[1], answer.data(), answer.size());
    _exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
  }
  close(ends[1]);
  const std::string answer = restOf(ends[0]);
  EXPECT_EQ(statusOf(child), 0);
  return answer;
}

}  // namespace wayfell
