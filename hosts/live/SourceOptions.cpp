#include "hosts/live/SourceOptions.h"

#include <algorithm>
#include <utility>

#include "hosts/commandline/DidYouMean.h"
#include "hosts/replay/RecordingChoice.h"
#include "hosts/scene/Playback.h"
#include "hosts/services/location/GpsdAddress.h"
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

// "gpsd" and "gpsd=" for "gpsd[=HOST:PORT]".
Words wordsOf(const Sources& sources) {
  Words words;
  for (const auto& [written, about] : sources.forms()) {
    const std::string kind = written.substr(0, written.find_first_of("[="));
    const bool takesMore = written.find('=') != std::string::npos;
    if (!takesMore || written.find('[') != std::string::npos) words.push_back({kind, about});
    const bool isHost = written.find("HOST") != std::string::npos;
    if (takesMore) words.push_back({kind + '=', about, isHost ? Listed::hosts : Listed::files});
  }
  return words;
}

// "auto, gpsd[=HOST:PORT], replay=FILE or demo"
std::string listOf(const Sources& sources) {
  std::string list;
  const std::vector<SourceForm> forms = sources.forms();
  for (std::size_t i = 0; i < forms.size(); ++i) {
    list += (i == 0 ? "" : i + 1 < forms.size() ? ", " : " or ") + forms[i].written;
  }
  return list;
}

std::string helpOn(const Sources& sources) {
  constexpr std::size_t kColumns = 18;
  std::string help = "SOURCE is where positions come from:\n";
  for (const auto& [written, about] : sources.forms()) {
    const std::size_t rest = kColumns - std::min(kColumns, written.size());
    help.append("  ").append(written).append(rest, ' ').append(about).append("\n");
  }
  return help +
         "\nOf --source, --gpsd, --replay and --demo only one can be meant. --rate, --suite and "
         "--local go with a recording alone: with --replay, --demo, or --source replay=FILE or "
         "demo.\n\n";
}

Option sourceOption(const Sources& sources, SourceWishes& wishes) {
  return {.name = "--source",
          .help = "Where positions come from, as below (auto if none)",
          .target = [&sources,
                     &wishes](const std::string& text) { wishes.source = *sources.choiceOf(text); },
          .value = "SOURCE",
          .offered = [&sources](const auto& /*before*/) { return wordsOf(sources); },
          .check =
              [&sources](const std::string& text) {
                if (sources.choiceOf(text)) return std::string();
                return "expected " + listOf(sources) + didYouMean(text, wordsOf(sources));
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
           .help = "Set a value of the shared settings first, as \"wayfell settings set\" reads it "
                   "(repeatable)",
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
      .help =
          "The same as --source gpsd=HOST:PORT; port " + GpsdAddress().port + " if none is given",
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
  command.more.insert(0, helpOn(sources));
  command.alternatives = {"--source", "--gpsd", "--replay", "--demo"};
  command.missing = [&wishes] { return recordingThatIsMissing(wishes); };
}

}  // namespace wayfell
