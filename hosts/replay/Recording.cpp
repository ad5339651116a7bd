#include "hosts/replay/Recording.h"

#include "hosts/replay/OtherFormats.h"
#include "hosts/services/location/GpsdNotice.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"

namespace wayfell {
namespace {

// gpsd's objects all have a class, which it writes first, and a scenario's never do. A line that
// cannot be read is left to the scenario to complain of.
bool isGpsdReport(std::string_view line) {
  if (isGpsdObject(line)) return true;
  JsonLine json;
  try {
    json.parse(line);
  } catch (const InputError&) {
    return false;
  }
  return json.root().member("class").has_value();
}

}  // namespace

std::unique_ptr<Recording> openRecording(InputBytes input) {
  auto lines = std::make_unique<LineReader>(std::move(input));
  const std::string_view beginning = lines->peekFirstLine(kToldBy);
  if (beginning.empty()) throw InputError("empty");
  refuseOtherFiles(beginning);
  if (beginning.front() != '{') return openGpxTrack(lines->readAll(kLongestGpxFile));
  const auto first = lines->next();
  const bool gpsd = first && isGpsdReport(*first);
  lines->putBack();
  return gpsd ? openGpsdReports(std::move(lines)) : openScenario(std::move(lines));
}

}  // namespace wayfell
