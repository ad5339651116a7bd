// What the user can do, by which keys, and the words in which the hosts say so.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wayfell {

enum class PanelAction {
  pickFormat,
  switchLayout,
  openApp,
  showOrHide,
  chooseHeading,
  pause,
  stepOn,
  changeRate,
  skipGap,
  copyPosition,
  changeLook,
  tellKeys,
  quit,
};

/// What every panel can do, and what besides a live one and a recording, the most useful first. The
/// rest is done by hosts.
inline constexpr PanelAction kPanelActions[] = {PanelAction::pickFormat, PanelAction::switchLayout,
                                                PanelAction::openApp, PanelAction::showOrHide};
inline constexpr PanelAction kLiveActions[] = {PanelAction::chooseHeading};
inline constexpr PanelAction kRecordingActions[] = {PanelAction::pause, PanelAction::stepOn,
                                                    PanelAction::changeRate, PanelAction::skipGap};

/// What a key, a click or a touch asks for.
struct PanelRequest {
  PanelAction action = PanelAction::pickFormat;
  int number = 0;  ///< of pickFormat which one, of changeRate 1 for faster and -1 for slower
  friend bool operator==(const PanelRequest&, const PanelRequest&) = default;
};

/// Keys that are no characters, by the characters that stand for them here.
inline constexpr char32_t kEnterKey = U'\n';
inline constexpr char32_t kRightKey = U'→';

/// None for a key that asks for nothing.
std::optional<PanelRequest> requestOf(char32_t key);

/// What a click on the line that tells of an action asks for. None for what has a key for each of
/// several numbers, and for the telling itself.
std::optional<PanelRequest> requestOf(PanelAction action);

/// "0 to 4", "format of the position"
struct ActionHelp {
  std::string_view keys;
  std::string_view does;
};
ActionHelp helpOf(PanelAction action);

/// The shortest words, "0-4 format", "t layout", with something between them; like help, in the
/// user's language.
std::string keyHints(std::span<const PanelAction> actions, std::string_view between);

/// The same of all scenes and of the host, in three lines of a command's help, which is English.
std::string keysHelp(std::span<const PanelAction> ofHost);

}  // namespace wayfell
