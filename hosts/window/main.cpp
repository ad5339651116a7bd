// The program wayfell-widget and its command line.
#include <algorithm>
#include <memory>
#include <string>

#include "hosts/commandline/ExitStatus.h"
#include "hosts/live/SourceOptions.h"
#include "hosts/panel/PanelKeys.h"
#include "hosts/places/PositionText.h"
#include "hosts/window/Display.h"
#include "hosts/window/WidgetCommand.h"
#include "hosts/window/WindowSources.h"

namespace wayfell {
namespace {

constexpr const char* kHelp =
    "Shows the panel in a small window: position, speed, heading, waypoint and track.";

constexpr const char* kMore =
    "Pointer: drag the window by anything but a button, or by its left or right edge to make it "
    "wider; click on the position to copy it.\n\n";

constexpr const char* kExamples =
    "\n"
    "Examples:\n"
    "  wayfell-widget\n"
    "  wayfell-widget --source demo --rate 10 --theme sunlight\n"
    "  wayfell-widget --source nmea=/dev/ttyACM0 --always-on-top --copy-format mgrs\n"
    "  wayfell-widget --source replay=hike.gpx --suite units=metric\n"
    "Exit status: 0 done, 1 the input is bad or no display answers, 2 the command line is "
    "wrong.";

constexpr PanelAction kHostActions[] = {PanelAction::copyPosition, PanelAction::changeLook,
                                        PanelAction::tellKeys, PanelAction::quit};
constexpr std::size_t kOptionColumns = 26;

bool isFontScale(double scale) { return scale >= 1 && scale <= PanelStyle::kGreatestFontScale; }

// The texts are copied as they are shown unless a format is named.
std::optional<std::size_t> copyFormatOf(const std::string& name) {
  const auto* const found = std::find(kPositionFormats.begin(), kPositionFormats.end(), name);
  if (found == kPositionFormats.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kPositionFormats.begin());
}

std::vector<Option> lookOptions(WidgetCommand& command) {
  Words formats = wordsOf(kPositionFormats);
  formats.push_back({"shown"});
  return {
      {"--always-on-top", "Keep the window above others", &command.window.alwaysOnTop},
      {"--theme",
       "Look: dark, light, sunlight (greatest contrast) or auto (as the desktop); the last "
       "one if none",
       &command.theme, "NAME", wordsOf(kThemes)},
      {"--opaque", "Let nothing shine through", &command.window.opaque},
      {.name = "--font-scale",
       .help = "Size of the texts, 1 to 2; the desktop's if none",
       .target = &command.fontScale,
       .value = "N",
       .check = numberThat(isFontScale, "expected a size from 1 to 2")},
      {"--still", "Turn the compass without moving pictures, as where the desktop asks for that",
       &command.still},
      {.name = "--copy-format",
       .help = "How the position is copied: dec, dm, dms, mgrs, utm or shown (if none)",
       .target = [&command](const std::string& name) { command.copyFormat = copyFormatOf(name); },
       .value = "FORMAT",
       .words = formats}};
}

int runWindow(int argc, char** argv) {
  const Sources sources = windowSources();
  WidgetCommand command;
  for (int i = 1; i < argc; ++i) command.words += std::string(argv[i]) + '\n';
  bool checkDisplay = false;
  Command program = {.name = "wayfell-widget",
                     .help = kHelp,
                     .more = kMore + keysHelp(kHostActions) + kExamples,
                     .run =
                         [&] {
                           if (!checkDisplay) return runWidget(sources, command);
                           return connectToDisplay() ? kDone : kBadInput;
                         },
                     .optionColumns = kOptionColumns};
  addSourceOptions(program, sources, command.source);
  program.options.push_back({.name = "--snapshots",
                             .help = "For tests: writes what the recording's snapshots show",
                             .target = &command.source.snapshots,
                             .value = "FILE",
                             .isHidden = true});
  for (const Option& option : lookOptions(command)) program.options.push_back(option);
  program.options.push_back(
      {"--check-display", "Only tell, by the exit status, if one answers", &checkDisplay});
  return runProgram(program, "wayfell-widget " WAYFELL_VERSION, argc, argv);
}

}  // namespace
}  // namespace wayfell

int main(int argc, char** argv) { return wayfell::runWindow(argc, argv); }
