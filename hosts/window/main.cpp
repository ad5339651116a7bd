// The command line of wayfell-widget.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "hosts/places/PositionText.h"
#include "hosts/scene/Playback.h"
#include "hosts/window/Display.h"
#include "hosts/window/WidgetCommand.h"

namespace {

constexpr const char* kVersion = "wayfell-widget " WAYFELL_VERSION;

constexpr const char* kHelp =
    "Shows the panel in a small window: position, speed, heading, waypoint and track.";

constexpr const char* kMore =
    "SOURCE is where positions come from:\n"
    "  auto                 gpsd where one answers, or else GeoClue, or else the demo\n"
    "  gpsd, gpsd=HOST:PORT a gpsd, here or elsewhere; it is waited for if need be\n"
    "  geoclue              the desktop's location service\n"
    "  nmea=/dev/ttyUSB0    a receiver that speaks NMEA, at the speed the port is set to\n"
    "  nmea=HOST:PORT       likewise over TCP\n"
    "  replay=FILE          a GPX track, reports of gpsd (gpspipe -w) or a scenario\n"
    "  demo                 the recording that is built in\n"
    "\n"
    "Pointer: drag the window by anything but a button, or by its left or right edge to\n"
    "make it wider; click on the position to copy it.\n"
    "Keys: 0 to 4 choose the format of the position, t switches the layout, o opens the\n"
    "app, Ctrl+C copies the position, h hides and shows the panel, l changes the look,\n"
    "? shows the keys, q closes. Live, c changes between compass and course. Of a\n"
    "recording, space pauses, . goes one second on, + and - change the rate.\n"
    "\n"
    "Examples:\n"
    "  wayfell-widget\n"
    "  wayfell-widget --source demo --rate 10 --theme sunlight\n"
    "  wayfell-widget --source nmea=/dev/ttyACM0 --always-on-top --copy-format mgrs\n"
    "  wayfell-widget --source replay=hike.gpx --suite units=1\n"
    "Exit status: 0 done, 1 the input is bad or no display answers, 2 the command line is\n"
    "wrong.";

template <class Value>
CLI::Validator oneOf(const std::vector<Value>& values) {
  CLI::Validator validator = CLI::IsMember(values);
  validator.description("");
  return validator;
}

std::string checkSource(const std::string& text) {
  if (wayfell::sourceChoiceOf(text)) return "";
  return "expected auto, gpsd[=HOST:PORT], geoclue, nmea=DEVICE, nmea=HOST:PORT, replay=FILE or "
         "demo";
}

std::string checkRate(const std::string& text) {
  double rate = 0;
  const bool number = CLI::detail::lexical_cast(text, rate);
  using wayfell::Playback;
  if (number && (rate == 0 || (rate >= Playback::kSlowest && rate <= Playback::kFastest))) {
    return "";
  }
  return "expected a rate from 0.1 to 1000, or 0 to start in a pause";
}

void addRecording(CLI::App& app, wayfell::StageWishes& stage) {
  app.add_option("--rate", stage.rate,
                 "Recorded seconds to a real one, 0.1 to 1000; 0 starts in a pause")
      ->type_name("N")
      ->check(checkRate);
  app.add_option("--suite", stage.recording.suite,
                 "Set a value of the shared settings first, for a recording; a JSON number, true "
                 "or false keeps its type, all else is text (repeatable)")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  app.add_option("--local", stage.recording.local, "Likewise of the widget's own settings")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  // For tests: what the recording's snapshots show.
  app.add_option("--snapshots", stage.snapshots)->group("");
}

void addLook(CLI::App& app, wayfell::WidgetCommand& command) {
  app.add_flag("--always-on-top", command.window.alwaysOnTop, "Keep the window above others");
  app.add_option("--theme", command.theme,
                 "Look: dark, light, sunlight (greatest contrast) or auto (as the desktop); the "
                 "last one if none")
      ->type_name("NAME")
      ->check(oneOf(std::vector<std::string>(wayfell::kThemes.begin(), wayfell::kThemes.end())));
  app.add_flag("--opaque", command.window.opaque, "Let nothing shine through");
  app.add_option("--font-scale", command.fontScale,
                 "Size of the texts, 1 to 2; the desktop's if none")
      ->type_name("N")
      ->check(CLI::Range(1.0, wayfell::PanelStyle::kGreatestFontScale).description(""));
  app.add_flag("--still", command.still, "Turn the compass without moving pictures");
}

void addCopyFormat(CLI::App& app, wayfell::WidgetCommand& command) {
  using wayfell::kPositionFormats;
  std::vector<std::string> formats(kPositionFormats.begin(), kPositionFormats.end());
  formats.emplace_back("shown");
  app.add_option_function<std::string>(
         "--copy-format",
         [&command](const std::string& name) {
           const auto* const found =
               std::find(kPositionFormats.begin(), kPositionFormats.end(), name);
           if (found != kPositionFormats.end()) {
             command.copyFormat = static_cast<std::size_t>(found - kPositionFormats.begin());
           }
         },
         "How the position is copied: dec, dm, dms, mgrs, utm or shown (if none)")
      ->type_name("FORMAT")
      ->check(oneOf(formats));
}

int run(int argc, char** argv) {
  CLI::App app(kHelp, "wayfell-widget");
  const auto formatter = std::make_shared<CLI::Formatter>();
  formatter->column_width(26);
  app.formatter(formatter);
  app.set_version_flag("--version", kVersion);
  app.footer(kMore);
  wayfell::WidgetCommand command;
  app.add_option_function<std::string>(
         "--source",
         [&command](const std::string& text) {
           command.stage.source = *wayfell::sourceChoiceOf(text);
         },
         "Where positions come from, as below (auto if none)")
      ->type_name("SOURCE")
      ->check(checkSource);
  addRecording(app, command.stage);
  addLook(app, command);
  addCopyFormat(app, command);
  bool checkDisplay = false;
  app.add_flag("--check-display", checkDisplay, "Only tell, by the exit status, if one answers");
  try {
    app.parse(argc, argv);
    if (!wayfell::isRecording(command.stage.source)) {
      for (const char* option : {"--rate", "--suite", "--local", "--snapshots"}) {
        if (app.count(option) > 0) {
          throw CLI::RequiredError(option + std::string(": --source demo or replay=FILE"));
        }
      }
    }
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? wayfell::kDone : wayfell::kBadUsage;
  }
  if (checkDisplay) return wayfell::connectToDisplay() ? wayfell::kDone : wayfell::kBadInput;
  return wayfell::runWidget(command);
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a server that hangs up shows as a failed write
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    wayfell::complain(error.what());
    return wayfell::kBadInput;
  }
}
