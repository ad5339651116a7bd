#include "hosts/live/SourceChoice.h"

#include <algorithm>
#include <utility>

#include "hosts/live/GpsdTrouble.h"
#include "hosts/live/SystemClock.h"
#include "hosts/services/location/GpsdLink.h"
#include "hosts/services/location/GpsdSource.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

GpsdAddress addressOf(const std::string& where) {
  return where.empty() ? GpsdAddress() : *gpsdAddressOf(where);
}

std::string nameOf(const GpsdAddress& address) {
  return localizedStringWithFormat("gpsd at %@", address.text());
}

LiveSource openGpsd(HostRunLoop& loop, const std::string& where) {
  const GpsdAddress address = addressOf(where);
  auto source = std::make_unique<GpsdSource>(loop, systemClock(), address);
  const GpsdSource& gpsd = *source;
  SourceStatus status = {[address] { return nameOf(address); },
                         [&gpsd] { return gpsdTrouble(gpsd.state()); },
                         [&gpsd] { return gpsd.deliversHeadings(); }};
  return {std::move(source), std::move(status)};
}

// The link pauses longer and longer between its attempts.
std::shared_ptr<void> awaitGpsd(HostRunLoop& loop, std::function<void()> isThere) {
  auto link = std::make_shared<GpsdLink>(
      loop, GpsdAddress(), GpsdIntervals(),
      GpsdLink::Handlers{
          .statusChanged = [] {},
          .lineCame = [isThere = std::move(isThere)](std::string_view /*line*/) { isThere(); },
          .ticked = [] {}});
  link->open();
  return link;
}

LiveKind gpsd() {
  return {.name = "gpsd",
          .forms = {{"gpsd[=HOST:PORT]", "a gpsd, here or elsewhere; it is waited for if need be"}},
          .takes = [](const std::string& where) { return where.empty() || gpsdAddressOf(where); },
          .open = openGpsd,
          .called = [] { return nameOf({}); },
          .isThere = [](HostRunLoop& loop) { return gpsdAnswers(loop, GpsdAddress()); },
          .await = awaitGpsd};
}

}  // namespace

Sources::Sources(std::vector<LiveKind> more) : live_(std::move(more)) {
  live_.insert(live_.begin(), gpsd());
}

std::optional<SourceChoice> Sources::choiceOf(std::string_view text) const {
  const auto equals = text.find('=');
  if (equals != std::string_view::npos && equals + 1 == text.size()) return std::nullopt;
  SourceChoice choice{std::string(text.substr(0, equals))};
  if (equals != std::string_view::npos) choice.where = text.substr(equals + 1);
  bool isSource = false;
  if (choice.kind == "auto" || choice.kind == "demo") {
    isSource = choice.where.empty();
  } else if (choice.kind == "replay") {
    isSource = !choice.where.empty();
  } else {
    isSource = std::any_of(live_.begin(), live_.end(), [&choice](const LiveKind& kind) {
      return kind.name == choice.kind && kind.takes(choice.where);
    });
  }
  return isSource ? std::optional(choice) : std::nullopt;
}

std::vector<SourceForm> Sources::forms() const {
  std::string first;
  for (const LiveKind& kind : live_) {
    if (kind.isThere) first += kind.name + ", or else ";
  }
  std::vector<SourceForm> forms = {{"auto", first + "demo: the first that is there"}};
  for (const LiveKind& kind : live_) {
    forms.insert(forms.end(), kind.forms.begin(), kind.forms.end());
  }
  forms.push_back({"replay=FILE", "a GPX track, reports of gpsd (gpspipe -w) or a scenario"});
  forms.push_back({"demo", "the recording that is built in"});
  return forms;
}

const LiveKind& Sources::live(const std::string& name) const {
  return *std::find_if(live_.begin(), live_.end(),
                       [&name](const LiveKind& kind) { return kind.name == name; });
}

}  // namespace wayfell
