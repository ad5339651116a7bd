// The only source that knows the library which reads command lines: its headers take seconds to
// compile.
#include "hosts/commandline/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <memory>
#include <sstream>

#include "hosts/commandline/Completion.h"
#include "hosts/commandline/DidYouMean.h"
#include "hosts/commandline/ExitStatus.h"
#include "hosts/commandline/FilledText.h"
#include "hosts/commandline/StandardError.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

constexpr std::size_t kHelpColumns = 80;

// Adds an option with whatever its target is.
struct Adding {
  CLI::App& app;
  const Option& option;
  std::string help;

  CLI::Option* operator()(bool* flag) const { return app.add_flag(option.name, *flag, help); }
  CLI::Option* operator()(const std::function<void()>& said) const {
    return app.add_flag_callback(option.name, said, help);
  }
  CLI::Option* operator()(const std::function<void(const std::string&)>& take) const {
    return valued(app.add_option_function(option.name, take, help));
  }
  CLI::Option* operator()(std::vector<std::string>* list) const {
    CLI::Option* const added = valued(app.add_option(option.name, *list, help));
    if (option.name.front() == '-') added->allow_extra_args(false);
    return added;
  }
  template <class Value>
  CLI::Option* operator()(Value* value) const {
    return valued(app.add_option(option.name, *value, help));
  }

  CLI::Option* valued(CLI::Option* added) const { return added->type_name(option.value); }
};

// "mgrs, utm or all"
std::string listOf(const std::vector<std::string>& words, const char* beforeLast = " or ") {
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i) {
    list += (i == 0 ? "" : i + 1 < words.size() ? ", " : beforeLast) + words[i];
  }
  return list;
}

// In either case; the target gets the word as it is listed. The list is not in the help, whose
// descriptions have the words in sentences.
CLI::Validator isOneOf(const Words& words) {
  const auto takeListed = [words](std::string& value) {
    std::vector<std::string> texts;
    for (const Word& word : words) texts.push_back(word.text);
    for (const std::string& text : texts) {
      if (upperCased(text) != upperCased(value)) continue;
      value = text;
      return std::string();
    }
    return inQuotes(value) + " is not " + listOf(texts) + didYouMean(value, words);
  };
  return {takeListed, ""};
}

void addOption(CLI::App& app, const Command& command, const Option& option) {
  const auto columns = static_cast<int>(kHelpColumns - command.optionColumns);
  CLI::Option* const added =
      std::visit(Adding{app, option, filled(option.help, columns)}, option.target);
  if (!option.words.empty()) added->transform(isOneOf(option.words));
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

class HelpFormatter : public CLI::Formatter {
 public:
  explicit HelpFormatter(std::size_t optionColumns) { column_width(optionColumns); }

  std::string make_description(const CLI::App* app) const override {
    return filledHelp(app->get_description(), kHelpColumns) + "\n\n";
  }
  std::string make_subcommand(const CLI::App* command) const override {
    const auto columns = static_cast<int>(kHelpColumns - get_column_width());
    std::ostringstream row;
    CLI::detail::format_help(row, command->get_name(),
                             filled(summaryOf(command->get_description()), columns),
                             get_column_width());
    return row.str();
  }
};

void describe(CLI::App& app, const Command& command) {
  app.formatter(std::make_shared<HelpFormatter>(command.optionColumns));
  app.footer(filledHelp(command.more, kHelpColumns));
  for (const Option& option : command.options) addOption(app, command, option);
  relateOptions(app, command);
  if (!command.commands.empty()) app.require_subcommand(1);
  for (const Command& each : command.commands) {
    describe(*app.add_subcommand(each.name, each.help)->fallthrough(command.sharesOptions), each);
  }
}

void checkAlternatives(const CLI::App& app, const Command& command) {
  const auto isGiven = [&app](const std::string& name) { return app.count(name) > 0; };
  if (std::count_if(command.alternatives.begin(), command.alternatives.end(), isGiven) < 2) return;
  throw CLI::ValidationError(
      command.name, "only one of " + listOf(command.alternatives, " and ") + " can be meant");
}

// A command that the command line names.
struct Named {
  const CLI::App& app;
  const Command& command;
};

// From the program down to the command that was asked for.
std::vector<Named> pathTo(const CLI::App& app, const Command& command) {
  std::vector<Named> path = {{app, command}};
  for (const Command& each : command.commands) {
    const CLI::App* const added = app.get_subcommand(each.name);
    if (!added->parsed()) continue;
    for (const Named& further : pathTo(*added, each)) path.push_back(further);
  }
  return path;
}

void checkCommand(const Named& named) {
  checkAlternatives(named.app, named.command);
  const std::string missing = named.command.missing ? named.command.missing() : "";
  if (!missing.empty()) throw CLI::RequiredError(missing);
}

using Arguments = std::vector<std::string>;

// A word that may not stand where it does, and what may.
std::string whatIsUnexpected(const Command& program, const Arguments& arguments,
                             const std::string& unexpected) {
  const Arguments before(arguments.begin(),
                         std::find(arguments.begin(), arguments.end(), unexpected));
  const std::string name = unexpected.substr(0, unexpected.find('='));
  return inQuotes(unexpected) + " is not expected" +
         didYouMean(name, completionsAt(program, before, name).words);
}

// The library tells of what is missing before it tells of words that may not stand where they do.
std::string whatIsWrong(const std::vector<Named>& path, const Arguments& arguments,
                        const CLI::ParseError& error) {
  const Command& program = path.front().command;
  const std::vector<std::string> unexpected = path.front().app.remaining(true);
  const bool isMissing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
  const bool isUnexpected = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  if ((isMissing || isUnexpected) && !unexpected.empty()) {
    return whatIsUnexpected(program, arguments, unexpected.front());
  }
  const Command& last = path.back().command;
  if (!isMissing || last.commands.empty()) return error.what();
  std::vector<std::string> commands;
  for (const Command& each : last.commands) commands.push_back(each.name);
  return "a command is missing: " + listOf(commands);
}

int refuse(const std::vector<Named>& path, const std::string& what) {
  std::string name;
  for (const Named& named : path) name += named.command.name + ' ';
  complain(what);
  complainMore('"' + name + "--help\" tells more");
  return kBadUsage;
}

}  // namespace

std::string summaryOf(std::string_view help) {
  return std::string(help.substr(0, help.find_first_of(":.\n")));
}

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
    const std::vector<Named> path = pathTo(app, program);
    for (const Named& named : path) checkCommand(named);
    return path.back().command.run();
  } catch (const CLI::Success& asked) {
    return app.exit(asked);  // the help or the version
  } catch (const CLI::ParseError& error) {
    const std::vector<Named> path = pathTo(app, program);
    return refuse(path, whatIsWrong(path, {argv + 1, argv + argc}, error));
  } catch (const std::exception& error) {
    complain(error.what());
    return kBadInput;
  }
}

}  // namespace wayfell
