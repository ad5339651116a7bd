#include "hosts/panel/PanelKeys.h"

#include <algorithm>

namespace wayfell {
namespace {

struct Key {
  char32_t key;
  PanelRequest request;
  // With the first key of each action.
  ActionHelp help;
  std::string_view hint;
};

using enum PanelAction;

constexpr Key kKeys[] = {
    {U'0', {pickFormat, 0}, {"0 to 4", "format of the position"}, "0-4 format"},
    {U'1', {pickFormat, 1}, {}, {}},
    {U'2', {pickFormat, 2}, {}, {}},
    {U'3', {pickFormat, 3}, {}, {}},
    {U'4', {pickFormat, 4}, {}, {}},
    {U't', {switchLayout}, {"t, Tab, Enter", "expanded or compact"}, "t layout"},
    {U'\t', {switchLayout}, {}, {}},
    {kEnterKey, {switchLayout}, {}, {}},
    {U'o', {openApp}, {"o", "open the app"}, "o open"},
    {U'\x03', {copyPosition}, {"Ctrl-C", "copy the position"}, "^C copy"},
    {U'h', {showOrHide}, {"h", "hide or show the panel"}, "h hide"},
    {U'l', {changeLook}, {"l", "the next look"}, "l look"},
    {U'c',
     {chooseHeading},
     {"c", "heading: compass, course or as it comes"},
     "c compass or course"},
    {U' ', {pause}, {"space", "pause or go on"}, "space pause"},
    {U'.', {stepOn}, {". or right", "one second on, in a pause"}, ". one second on"},
    {kRightKey, {stepOn}, {}, {}},
    {U'+', {changeRate, 1}, {"+ and -", "faster and slower"}, "+ faster, - slower"},
    {U'-', {changeRate, -1}, {}, {}},
    {U'?', {tellKeys}, {"?", "these keys; any key goes back"}, "? keys"},
    {U'q', {quit}, {"q", "quit"}, "q quit"},
};

const Key& firstKeyOf(PanelAction action) {
  return *std::find_if(std::begin(kKeys), std::end(kKeys),
                       [action](const Key& key) { return key.request.action == action; });
}

}  // namespace

std::optional<PanelRequest> requestOf(char32_t key) {
  for (const Key& known : kKeys) {
    if (known.key == key) return known.request;
  }
  return std::nullopt;
}

ActionHelp helpOf(PanelAction action) { return firstKeyOf(action).help; }

std::string keyHints(std::span<const PanelAction> actions, std::string_view between) {
  std::string hints;
  for (const PanelAction action : actions) {
    if (!hints.empty()) hints += between;
    hints += firstKeyOf(action).hint;
  }
  return hints;
}

std::string keysHelp(std::span<const PanelAction> ofHost) {
  constexpr std::string_view kComma = ", ";
  return "Keys: " + keyHints(kPanelActions, kComma).append(kComma) + keyHints(ofHost, kComma) +
         "\n  live: " + keyHints(kLiveActions, kComma) +
         "\n  on a recording: " + keyHints(kRecordingActions, kComma) + "\n";
}

}  // namespace wayfell
