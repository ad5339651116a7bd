// Runs programs as a shell would.
#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace wayfell {

struct Finished {
  int status = -1;
  std::string output;
  std::string errors;
};

/// Replaces the calling process, which is a child; 127 when there is no such program.
[[noreturn]] inline void become(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments.front(), arguments.data());
  _exit(127);
}

/// Gone with its owner.
using OwnFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
inline OwnFile temporaryFile() { return {std::tmpfile(), std::fclose}; }

inline std::string contentsOf(std::FILE* file) {
  std::rewind(file);
  std::string contents;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file)) {
    contents.append(buffer.data(), count);
  }
  return contents;
}

/// The program's answer to the input; its files are deleted with it.
inline Finished run(const std::vector<std::string>& command, const std::string& input = "") {
  const std::array<OwnFile, 3> files = {temporaryFile(), temporaryFile(), temporaryFile()};
  std::fwrite(input.data(), 1, input.size(), files[0].get());
  std::rewind(files[0].get());
  const pid_t child = fork();
  if (child == 0) {
    for (int i = 0; i < 3; ++i) dup2(fileno(files[static_cast<std::size_t>(i)].get()), i);
    become(command);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentsOf(files[1].get()),
          contentsOf(files[2].get())};
}

}  // namespace wayfell
