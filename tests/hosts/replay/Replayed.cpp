#include "Replayed.h"

#include "hosts/replay/Recording.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/text/InputError.h"

namespace wayfell {

std::vector<std::string> replayedLines(std::string_view recording, std::optional<double> every) {
  std::vector<std::string> lines;
  ReplayedWidget widget;
  const auto show = [&lines](ReplayedWidget& shown) {
    lines.push_back(snapshotLine(shown));
    shown.host().urls.requests.clear();
    return true;
  };
  Replay(every, show, [](double) {
  }).play(*openRecording(InputBytes(bytesOfText(recording))), widget);
  return lines;
}

std::vector<nlohmann::json> replayed(std::string_view recording, std::optional<double> every) {
  std::vector<nlohmann::json> snapshots;
  for (const std::string& line : replayedLines(recording, every)) {
    snapshots.push_back(nlohmann::json::parse(line));
  }
  return snapshots;
}

nlohmann::json lastOf(std::string_view recording) { return replayed(recording).back(); }

std::string complaintAbout(std::string_view recording) {
  try {
    replayed(recording);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

std::vector<Event> eventsOf(std::string_view recording) {
  const auto opened = openRecording(InputBytes(bytesOfText(recording)));
  std::vector<Event> events;
  while (auto event = opened->next()) events.push_back(*std::move(event));
  return events;
}

std::vector<CLLocation> fixesOf(std::string_view recording) {
  std::vector<CLLocation> fixes;
  for (const Event& event : eventsOf(recording)) {
    const auto& delivered = std::get<event::Locate>(event.action).fixes;
    fixes.insert(fixes.end(), delivered.begin(), delivered.end());
  }
  return fixes;
}

}  // namespace wayfell
