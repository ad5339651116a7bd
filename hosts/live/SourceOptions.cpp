#include "hosts/live/SourceOptions.h"

#include <utility>

#include "hosts/replay/Settings.h"
#include "hosts/scene/Playback.h"
#include "hosts/text/InputError.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

const std::string& rateLimits() {
  static const std::string limits =
      shortestText(Playback::kSlowest) + " to " + shortestText(Playback::kFastest);
  return limits;
}

bool isRate(double rate) {
  return rate == 0 || (rate >= Playback::kSlowest && rate <= Playback::kFastest);
}

std::string checkSetting(const std::string& text) {
  try {
    settingOfText(text);
    return "";
  } catch (const InputError& error) {
    return error.what();
  }
}

Words kindsOf(const Sources& sources) {
  Words kinds = {{"auto", "what is there, or else the demo"}};
  for (const LiveKind& kind : sources.live()) kinds.push_back({kind.name, "live"});
  kinds.push_back({"gpsd=", "a gpsd elsewhere", Listed::hosts});
  kinds.push_back({"replay=", "a recording", Listed::files});
  kinds.push_back({"demo", "the recording that is built in"});
  return kinds;
}

Option sourceOption(const Sources& sources, SourceWishes& wishes) {
  return {.name = "--source",
          .help = "Where positions come from, as below (auto if none)",
          .target = [&sources,
                     &wishes](const std::string& text) { wishes.source = *sources.choiceOf(text); },
          .value = "SOURCE",
          .offered = [&sources](const auto& /*before*/) { return kindsOf(sources); },
          .check =
              [&sources](const std::string& text) {
                return sources.choiceOf(text) ? "" : "expected " + sources.forms();
              }};
}

// What has a meaning for recordings alone.
std::string recordingThatIsMissing(const SourceWishes& wishes) {
  const std::pair<const char*, bool> given[] = {{"--rate", wishes.rate.has_value()},
                                                {"--suite", !wishes.settings.suite.empty()},
                                                {"--local", !wishes.settings.local.empty()},
                                                {"--snapshots", !wishes.snapshots.empty()}};
  for (const auto& [name, isGiven] : given) {
    if (isGiven && !wishes.source.isRecording()) return name + std::string(": --demo or --replay");
  }
  return "";
}

}  // namespace

std::vector<Option> firstSettingsOptions(FirstSettings& settings) {
  return {{.name = "--suite",
           .help = "Set a value of the shared settings first; a JSON number, true or false keeps "
                   "its type, all else is text (repeatable)",
           .target = &settings.suite,
           .value = "KEY=VALUE",
           .check = checkSetting},
          {.name = "--local",
           .help = "Likewise of the widget's own settings",
           .target = &settings.local,
           .value = "KEY=VALUE",
           .check = checkSetting}};
}

void addSourceOptions(Command& command, const Sources& sources, SourceWishes& wishes) {
  const Option gpsd = {
      .name = "--gpsd",
      .help = "The same as --source gpsd=HOST:PORT; port 2947 if none is given",
      .target =
          [&wishes](const std::string& text) {
            wishes.source = {"gpsd", text};
          },
      .value = "HOST:PORT",
      .listed = Listed::hosts,
      .check =
          [&sources](const std::string& text) {
            return sources.choiceOf("gpsd=" + text) ? "" : "expected HOST:PORT, HOST or :PORT";
          }};
  const Option replay = {
      .name = "--replay",
      .help = "The same as --source replay=FILE; - is standard input, read to its end first",
      .target =
          [&wishes](const std::string& text) {
            wishes.source = {"replay", text};
          },
      .value = "FILE",
      .listed = Listed::files};
  const Option demo = {.name = "--demo", .help = "The same as --source demo", .target = [&wishes] {
                         wishes.source = {"demo"};
                       }};
  const Option rate = {.name = "--rate",
                       .help = "Recorded seconds to a real one, " + rateLimits() +
                               "; 0 starts in a pause (default 1)",
                       .target = &wishes.rate,
                       .value = "N",
                       .check = numberThat(isRate, "expected a rate from " + rateLimits() +
                                                       ", or 0 to start in a pause")};
  for (Option& option :
       std::vector<Option>{sourceOption(sources, wishes), gpsd, replay, demo, rate}) {
    command.options.push_back(std::move(option));
  }
  for (Option& option : firstSettingsOptions(wishes.settings)) {
    command.options.push_back(std::move(option));
  }
  command.alternatives = {"--source", "--gpsd", "--replay", "--demo"};
  command.missing = [&wishes] { return recordingThatIsMissing(wishes); };
}

}  // namespace wayfell
