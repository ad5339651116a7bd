#include "hosts/commandline/Completion.h"

#include <algorithm>

namespace wayfell {
namespace {

bool isArgument(const Option& option) { return option.name.front() != '-'; }

bool isFlag(const Option& option) {
  return std::holds_alternative<bool*>(option.target) ||
         std::holds_alternative<std::function<void()>>(option.target);
}

bool isList(const Option& option) {
  return std::holds_alternative<std::vector<std::string>*>(option.target);
}

// Goes through the words of a command line that stand before the one being typed.
class Reading {
 public:
  Reading(const Command& program, const std::vector<std::string>& words)
      : path_{&program}, words_(words) {
    for (const std::string& word : words) take(word);
  }

  Completions at(const std::string& typed) const {
    if (awaited_) return valuesOf(*awaited_, "", typed);
    const auto equals = typed.find('=');
    if (typed.substr(0, 1) == "-" && equals != std::string::npos) {
      const Option* const option = optionCalled(typed.substr(0, equals));
      return option ? valuesOf(*option, typed.substr(0, equals + 1), typed) : Completions();
    }
    if (typed.substr(0, 1) == "-") return {options(), Listed::nothing, ""};
    if (!command().commands.empty()) return {commands(), Listed::nothing, ""};
    const Option* const argument = nextArgument();
    return argument ? valuesOf(*argument, "", typed) : Completions();
  }

 private:
  const Command& command() const { return *path_.back(); }

  void take(const std::string& word) {
    if (awaited_) {
      awaited_ = nullptr;
    } else if (word.substr(0, 1) == "-") {
      const std::string name = word.substr(0, word.find('='));
      const Option* const option = optionCalled(name);
      if (option && !isFlag(*option) && name == word) awaited_ = option;
      given_.push_back(name);
    } else if (const Command* const next = commandCalled(word)) {
      path_.push_back(next);
    } else {
      ++arguments_;
    }
  }

  const Command* commandCalled(const std::string& name) const {
    for (const Command& each : command().commands) {
      if (each.name == name) return &each;
    }
    return nullptr;
  }

  // Those that may stand here: the command's own, and those that the ones above share.
  std::vector<const Option*> optionsHere() const {
    std::vector<const Option*> here;
    for (auto each = path_.rbegin(); each != path_.rend(); ++each) {
      if (each != path_.rbegin() && !(*each)->sharesOptions) break;
      for (const Option& option : (*each)->options) {
        if (!isArgument(option) && !option.isHidden) here.push_back(&option);
      }
    }
    return here;
  }
  const Option* optionCalled(const std::string& name) const {
    for (const Option* option : optionsHere()) {
      if (option->name == name) return option;
    }
    return nullptr;
  }
  const Option* nextArgument() const {
    std::size_t place = 0;
    for (const Option& option : command().options) {
      if (isArgument(option) && (isList(option) || place++ == arguments_)) return &option;
    }
    return nullptr;
  }

  Words options() const {
    Words words;
    for (const Option* option : optionsHere()) {
      const bool isGiven = std::count(given_.begin(), given_.end(), option->name) > 0;
      if (!isGiven || isList(*option)) words.push_back({option->name, option->help});
    }
    words.push_back({"--help", "Print the help"});
    if (path_.size() <= 2) words.push_back({"--version", "Print the version"});
    return words;
  }
  Words commands() const {
    Words words;
    for (const Command& each : command().commands) {
      words.push_back({each.name, summaryOf(each.help)});
    }
    return words;
  }
  // The prefix is what the word being typed has before the value.
  Completions valuesOf(const Option& option, const std::string& prefix,
                       const std::string& typed) const {
    Completions values{option.offered ? option.offered(words_) : option.words, option.listed,
                       prefix};
    for (Word& word : values.words) {
      word.text = prefix + word.text;
      const bool goesOn = word.text.back() == '=' && typed.substr(0, word.text.size()) == word.text;
      if (goesOn) return {{}, word.rest, word.text};
    }
    return values;
  }

  std::vector<const Command*> path_;  // from the program to the command that was reached
  const std::vector<std::string>& words_;
  const Option* awaited_ = nullptr;  // whose value is to come
  std::size_t arguments_ = 0;
  std::vector<std::string> given_;  // names of options
};

}  // namespace

Completions completionsAt(const Command& program, const std::vector<std::string>& before,
                          const std::string& typed) {
  return Reading(program, before).at(typed);
}

}  // namespace wayfell
