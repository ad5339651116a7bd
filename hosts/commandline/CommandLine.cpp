// The only source that knows the library which reads command lines: its headers take seconds to
// compile.
#include "hosts/commandline/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <map>
#include <memory>

#include "hosts/commandline/ExitStatus.h"
#include "hosts/commandline/StandardError.h"

namespace wayfell {
namespace {

// Adds an option with whatever its target is.
struct Adding {
  CLI::App& app;
  const Option& option;

  CLI::Option* operator()(bool* flag) const {
    return app.add_flag(option.name, *flag, option.help);
  }
  CLI::Option* operator()(const std::function<void()>& said) const {
    return app.add_flag_callback(option.name, said, option.help);
  }
  CLI::Option* operator()(const std::function<void(const std::string&)>& take) const {
    return valued(app.add_option_function(option.name, take, option.help));
  }
  CLI::Option* operator()(std::vector<std::string>* list) const {
    CLI::Option* const added = valued(app.add_option(option.name, *list, option.help));
    if (option.name.front() == '-') added->allow_extra_args(false);
    return added;
  }
  template <class Value>
  CLI::Option* operator()(Value* value) const {
    return valued(app.add_option(option.name, *value, option.help));
  }

  CLI::Option* valued(CLI::Option* added) const { return added->type_name(option.value); }
};

// The list of words is not in the help, whose descriptions have them in sentences.
CLI::Validator isOneOf(const Words& words) {
  std::vector<std::string> texts;
  for (const Word& word : words) texts.push_back(word.text);
  CLI::Validator validator = CLI::IsMember(texts);
  validator.description("");
  return validator;
}

void addOption(CLI::App& app, const Option& option) {
  CLI::Option* const added = std::visit(Adding{app, option}, option.target);
  if (!option.words.empty()) added->check(isOneOf(option.words));
  if (option.check) added->check(option.check);
  added->required(option.isRequired);
  if (option.isHidden) added->group("");
}

void relateOptions(CLI::App& app, const Command& command) {
  for (const Option& option : command.options) {
    CLI::Option* const added = app.get_option(option.name);
    for (const std::string& other : option.excludes) added->excludes(app.get_option(other));
    for (const std::string& other : option.needs) added->needs(app.get_option(other));
  }
}

void describe(CLI::App& app, const Command& command) {
  const auto formatter = std::make_shared<CLI::Formatter>();
  formatter->column_width(command.optionColumns);
  app.formatter(formatter);
  app.footer(command.more);
  for (const Option& option : command.options) addOption(app, option);
  relateOptions(app, command);
  if (!command.commands.empty()) app.require_subcommand(1);
  for (const Command& each : command.commands) {
    describe(*app.add_subcommand(each.name, each.help)->fallthrough(command.sharesOptions), each);
  }
}

void checkAlternatives(const CLI::App& app, const Command& command) {
  const auto isGiven = [&app](const std::string& name) { return app.count(name) > 0; };
  if (std::count_if(command.alternatives.begin(), command.alternatives.end(), isGiven) < 2) return;
  std::string names = command.alternatives.front();
  for (std::size_t i = 1; i < command.alternatives.size(); ++i) {
    names += (i + 1 < command.alternatives.size() ? ", " : " and ") + command.alternatives[i];
  }
  throw CLI::ValidationError(command.name, "only one of " + names + " can be meant");
}

// Goes down to the command that was asked for.
const Command& chosen(const CLI::App& app, const Command& command) {
  checkAlternatives(app, command);
  if (const std::string missing = command.missing ? command.missing() : ""; !missing.empty()) {
    throw CLI::RequiredError(missing);
  }
  for (const Command& each : command.commands) {
    const CLI::App* const added = app.get_subcommand(each.name);
    if (added->parsed()) return chosen(*added, each);
  }
  return command;
}

// For a word that is none of the commands the library says only that a command is missing.
void tellWhatIsMissing(const CLI::App& app, const CLI::RequiredError& error) {
  const std::vector<std::string> unknown = app.remaining(true);
  if (unknown.empty()) {
    app.exit(error);
  } else {
    app.exit(CLI::ExtrasError(std::vector{unknown.front()}));
  }
}

}  // namespace

Check numberThat(std::function<bool(double)> fits, std::string complaint) {
  return [fits = std::move(fits), complaint = std::move(complaint)](const std::string& text) {
    double number = 0;
    return CLI::detail::lexical_cast(text, number) && fits(number) ? "" : complaint;
  };
}

int runProgram(const Command& program, const std::string& version, int argc, char** argv) {
  // A reader that goes away shows as a failed write.
  std::signal(SIGPIPE, SIG_IGN);
  CLI::App app(program.help, program.name);
  describe(app, program);
  app.set_version_flag("--version", version);
  for (CLI::App* command : app.get_subcommands(nullptr)) {
    command->set_version_flag("--version", version);
  }
  try {
    app.parse(argc, argv);
    return chosen(app, program).run();
  } catch (const CLI::RequiredError& error) {
    tellWhatIsMissing(app, error);
    return kBadUsage;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kBadUsage;
  } catch (const std::exception& error) {
    complain(error.what());
    return kBadInput;
  }
}

}  // namespace wayfell
