// A program's command line, described: what it takes, what its help says, and what is run then.
// runProgram reads it, and completionsAt (Completion.h) says how it may go on.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wayfell {

/// What a shell lists by itself.
enum class Listed { nothing, files, hosts };

/// What a value may be.
struct Word {
  std::string text;        ///< "mgrs"; one that ends in "=" goes on with what `rest` says
  std::string about = {};  ///< what it means, in a few words
  Listed rest = Listed::nothing;
};
using Words = std::vector<Word>;

template <class Names>
Words wordsOf(const Names& names) {
  Words words;
  for (const auto& name : names) words.push_back({std::string(name)});
  return words;
}

/// Takes what was said. A flag's takes no value, a list's takes any number of them; an argument
/// without a value is left as it was.
using Target = std::variant<bool*, std::function<void()>, int*, std::optional<double>*,
                            std::string*, std::optional<std::string>*, std::vector<std::string>*,
                            std::function<void(const std::string&)>>;

/// What is wrong with a value, or "".
using Check = std::function<std::string(const std::string&)>;

struct Option {
  std::string name;  ///< "--every"; without dashes it is an argument: "FILE"
  std::string help;
  Target target;
  std::string value = {};  ///< what the help calls the value: "SECONDS"
  Words words = {};        ///< the value is one of these, in either case
  Listed listed = Listed::nothing;
  /// What shells offer for the value, after these words of the command line; it may be another.
  std::function<Words(const std::vector<std::string>& before)> offered = {};
  Check check = {};
  std::vector<std::string> excludes = {};  ///< names of options
  std::vector<std::string> needs = {};
  bool isRequired = false;
  bool isHidden = false;  ///< from the help
};

struct Command {
  std::string name;
  std::string help;       ///< paragraphs (see filledHelp); lists have the summary
  std::string more = {};  ///< likewise, below the options: details, examples, statuses
  std::vector<Option> options = {};
  std::vector<Command> commands = {};  ///< one of them has to follow
  /// Whether its options may also stand behind those commands.
  bool sharesOptions = false;
  std::vector<std::string> alternatives = {};  ///< options of which at most one is taken
  /// What is still missing when all has been read, in the words of the command line, or "".
  std::function<std::string()> missing = {};
  /// Returns the status to exit with (see ExitStatus.h).
  std::function<int()> run = {};
  std::size_t optionColumns = 21;  ///< width of the help's first column, which names the options
};

/// The beginning of a help, up to the first colon, full stop or end of a line.
std::string summaryOf(std::string_view help);

/// For numbers: the complaint, unless the value is one and it fits.
Check numberThat(std::function<bool(double)> fits, std::string complaint);

/// Reads the command line and runs what it asks for, or prints the help, the version ("wayfell
/// 1.0"), or what is wrong and what may have been meant. Helps are no wider than 80 columns. Tells
/// of what is thrown. Returns the status to exit with.
int runProgram(const Command& program, const std::string& version, int argc, char** argv);

}  // namespace wayfell
