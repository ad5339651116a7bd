// How all commands are declared to the library that reads the command line, so that their help
// looks alike. Only for sources that know it (see main.cpp).
#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <memory>
#include <vector>

namespace wayfell {

inline CLI::App* addCommand(CLI::App& parent, const char* name, const char* help,
                            const char* more = "") {
  constexpr std::size_t kOptionColumns = 21;
  CLI::App* const command = parent.add_subcommand(name, help);
  const auto formatter = std::make_shared<CLI::Formatter>();
  formatter->column_width(kOptionColumns);
  command->formatter(formatter);
  command->footer(more);
  return command;
}

/// Without the list of values in the help, where the description has them in words.
template <class Value>
CLI::Validator oneOf(const std::vector<Value>& values) {
  CLI::Validator validator = CLI::IsMember(values);
  validator.description("");
  return validator;
}

inline void addJson(CLI::App& command, bool& json) {
  command.add_flag("--json", json, "Print one JSON object a line");
}

}  // namespace wayfell
