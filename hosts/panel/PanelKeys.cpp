#include "hosts/panel/PanelKeys.h"

#include <algorithm>

#include "platform/NSBundle.h"

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
    {U'0',
     {pickFormat, 0},
     {textKey("0 to 4"), textKey("format of the position")},
     textKey("0-4 format")},
    {U'1', {pickFormat, 1}, {}, {}},
    {U'2', {pickFormat, 2}, {}, {}},
    {U'3', {pickFormat, 3}, {}, {}},
    {U'4', {pickFormat, 4}, {}, {}},
    {U't',
     {switchLayout},
     {textKey("t, Tab, Enter"), textKey("expanded or compact")},
     textKey("t layout")},
    {U'\t', {switchLayout}, {}, {}},
    {kEnterKey, {switchLayout}, {}, {}},
    {U'o', {openApp}, {textKey("o"), textKey("open the app")}, textKey("o open")},
    {U'\x03',
     {copyPosition},
     {textKey("Ctrl-C"), textKey("copy the position")},
     textKey("^C copy")},
    {U'h', {showOrHide}, {textKey("h"), textKey("hide or show the panel")}, textKey("h hide")},
    {U'l', {changeLook}, {textKey("l"), textKey("the next look")}, textKey("l look")},
    {U'c',
     {chooseHeading},
     {textKey("c"), textKey("heading: compass, course or as it comes")},
     textKey("c compass or course")},
    {U' ', {pause}, {textKey("space"), textKey("pause or go on")}, textKey("space pause")},
    {U'.',
     {stepOn},
     {textKey(". or right"), textKey("one second on, in a pause")},
     textKey(". one second on")},
    {kRightKey, {stepOn}, {}, {}},
    {U'+',
     {changeRate, 1},
     {textKey("+ and -"), textKey("faster and slower")},
     textKey("+ faster, - slower")},
    {U'-', {changeRate, -1}, {}, {}},
    {U'n',
     {skipGap},
     {textKey("n"), textKey("skip a gap in the recording")},
     textKey("n skip a gap")},
    {U'?', {tellKeys}, {textKey("?"), textKey("these keys; any key goes back")}, textKey("? keys")},
    {U'q', {quit}, {textKey("q"), textKey("quit")}, textKey("q quit")},
};

const Key& firstKeyOf(PanelAction action) {
  return *std::find_if(std::begin(kKeys), std::end(kKeys),
                       [action](const Key& key) { return key.request.action == action; });
}

template <class InWords>
std::string joinedHints(std::span<const PanelAction> actions, std::string_view between,
                        InWords inWords) {
  std::string hints;
  for (const PanelAction action : actions) {
    if (!hints.empty()) hints += between;
    hints += inWords(firstKeyOf(action).hint);
  }
  return hints;
}

}  // namespace

std::optional<PanelRequest> requestOf(char32_t key) {
  for (const Key& known : kKeys) {
    if (known.key == key) return known.request;
  }
  return std::nullopt;
}

std::optional<PanelRequest> requestOf(PanelAction action) {
  switch (action) {
    case pickFormat:
    case changeRate:
    case tellKeys:
      return std::nullopt;
    default:
      return PanelRequest{action};
  }
}

ActionHelp helpOf(PanelAction action) {
  const ActionHelp& help = firstKeyOf(action).help;
  return {localized(help.keys), localized(help.does)};
}

std::string keyHints(std::span<const PanelAction> actions, std::string_view between) {
  return joinedHints(actions, between, localized);
}

std::string keysHelp(std::span<const PanelAction> ofHost) {
  const auto hints = [](std::span<const PanelAction> actions) {
    return joinedHints(actions, ", ", [](std::string_view english) { return english; });
  };
  return "Keys: " + hints(kPanelActions) + ", " + hints(ofHost) +
         "\n  live: " + hints(kLiveActions) + "\n  on a recording: " + hints(kRecordingActions) +
         "\n";
}

}  // namespace wayfell
