// What the shells are told: to ask the program itself at each press of Tab, by `completions next`.
// It answers in lines: a word, a tab, what the word means. A line that begins with a blank is for
// the shell to list names of files or hosts, each behind a prefix: " files --source=replay=".
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

#include "hosts/commandline/Completion.h"
#include "hosts/commandline/ExitStatus.h"

namespace wayfell {
namespace {

// Bash takes "=" and ":" for words of their own, and replaces what stands behind the last of them.
// Words with blanks, as names of datums have, are quoted when they pass for names of files.
constexpr const char* kBash = R"(# Completion of PROGRAM's command line for bash.
_PROGRAM() {
  local -a before=() listed=()
  local typed='' word kept i
  for ((i = 1; i <= COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if ((i > 1)) && [[ $word == [=:] || ${COMP_WORDS[i - 1]} == [=:] ]]; then
      typed+=$word
    else
      ((i > 1)) && before+=("$typed")
      typed=$word
    fi
  done
  typed=${typed//\\/}
  typed=${typed#[\"\']}
  kept=${typed%"${typed##*[=:]}"}
  COMPREPLY=()
  while IFS= read -r word; do
    word=${word%%$'\t'*}
    case $word in
      ' files '*)
        compopt -o filenames 2>/dev/null
        mapfile -t listed < <(compgen -f -- "${typed#"${word#' files '}"}")
        COMPREPLY+=("${listed[@]}")
        ;;
      ' hosts '*)
        mapfile -t listed < <(compgen -A hostname -- "${typed#"${word#' hosts '}"}")
        COMPREPLY+=("${listed[@]}")
        ;;
      *)
        [[ ${word,,} == "${typed,,}"* ]] || continue
        [[ $word == *= ]] && compopt -o nospace 2>/dev/null
        [[ $word == *[\ \'\(]* ]] && compopt -o filenames 2>/dev/null
        COMPREPLY+=("${word:${#kept}}")
        ;;
    esac
  done < <("${COMP_WORDS[0]}" completions next -- "${before[@]}" "$typed" 2>/dev/null)
}
complete -F _PROGRAM PROGRAM
)";

// Words are also found by a later part of them, whatever the case.
constexpr const char* kZsh = R"(#compdef PROGRAM
# Completion of PROGRAM's command line for zsh.
_PROGRAM() {
  local line word
  local -a closed open
  for line in "${(@f)$(${~words[1]} completions next -- "${(@)words[2,CURRENT-1]}" "$PREFIX" 2>/dev/null)}"; do
    word=${line%%$'\t'*}
    case $line in
      '') ;;
      ' files '*) compset -P ${(b)word#' files '}; _files; return ;;
      ' hosts '*) compset -P ${(b)word#' hosts '}; _hosts; return ;;
      *)
        line=${word//:/\\:}${${line#$word}/$'\t'/:}
        if [[ $word == *= ]]; then open+=($line); else closed+=($line); fi
        ;;
    esac
  done
  _describe word closed -M 'm:{a-zA-Z}={A-Za-z} l:|=* r:|=*' -- open -S ''
}
if [[ $funcstack[1] == _PROGRAM ]]; then _PROGRAM "$@"; else compdef _PROGRAM PROGRAM; fi
)";

constexpr const char* kFish = R"(# Completion of PROGRAM's command line for fish.
function __PROGRAM_words
    set -l before (commandline -opc)
    set -l typed (commandline -ct)
    for line in ($before[1] completions next -- $before[2..-1] "$typed" 2>/dev/null)
        switch $line
            case ' files *'
                set -l prefix (string sub -s 8 -- $line)
                string replace -r -- '^' "$prefix" (__fish_complete_path (string replace -- "$prefix" '' $typed))
            case ' hosts *'
                string replace -r -- '^' (string sub -s 8 -- $line) (__fish_print_hostnames)
            case '*'
                echo $line
        end
    end
end
complete -c PROGRAM -f -a '(__PROGRAM_words)'
)";

constexpr const char* kExamples = R"(Examples:
  source <(PROGRAM completions bash)      in ~/.bashrc
  source <(PROGRAM completions zsh)       in ~/.zshrc, after compinit
  PROGRAM completions fish | source       in ~/.config/fish/config.fish
Exit status: 0 done, 2 the command line is wrong.)";

std::string withName(std::string text, const Command& program) {
  constexpr std::string_view kPlace = "PROGRAM";
  std::size_t at = 0;
  while ((at = text.find(kPlace, at)) != std::string::npos) {
    text.replace(at, kPlace.size(), program.name);
  }
  return text;
}

Command script(const Command& program, const char* shell, const char* text) {
  return {.name = shell, .help = std::string("For ") + shell, .run = [&program, text] {
            std::fputs(withName(text, program).c_str(), stdout);
            return kDone;
          }};
}

void print(const Completions& completions) {
  for (const Word& word : completions.words) {
    std::printf("%s\t%s\n", word.text.c_str(), word.about.c_str());
  }
  if (completions.listed == Listed::files) std::printf(" files %s\n", completions.prefix.c_str());
  if (completions.listed == Listed::hosts) std::printf(" hosts %s\n", completions.prefix.c_str());
}

}  // namespace

Command completionsOptions(const Command& program) {
  const auto words = std::make_shared<std::vector<std::string>>();
  const auto printNext = [&program, words] {
    const std::string typed = words->back();
    words->pop_back();
    print(completionsAt(program, *words, typed));
    return kDone;
  };
  return {
      .name = "completions",
      .help = "Prints what makes a shell complete the command line",
      .more = withName(kExamples, program),
      .commands = {script(program, "bash", kBash),
                   script(program, "zsh", kZsh),
                   script(program, "fish", kFish),
                   {.name = "next",
                    .help = "Print how a command line may go on, as the scripts ask",
                    .options = {{.name = "WORD",
                                 .help = "What it has so far, behind --; the last is being typed",
                                 .target = words.get(),
                                 .isRequired = true}},
                    .run = printNext}}};
}

}  // namespace wayfell
