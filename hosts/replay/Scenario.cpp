// A replay written out event by event: JSON Lines, each an object with its time "t" and one event.
// docs/replay.md says what events there are. It is read line by line as the replay goes on.
#include <limits>

#include "hosts/replay/Recording.h"
#include "hosts/replay/RecordingChoice.h"
#include "hosts/services/location/FixQuality.h"
#include "hosts/settings/SettingJson.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonFields.h"
#include "hosts/text/JsonLine.h"
#include "hosts/text/LineReader.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

constexpr int kLastFormat = 4;  // the last coordinate format's number
constexpr int kLastAuthorization = 4;

CLLocation readFix(JsonLine::Value value, const FieldPath& path, double t) {
  CLLocation fix;
  fix.horizontalAccuracy = kUsualAccuracy;
  fix.verticalAccuracy = kUsualAccuracy;
  fix.timestamp = {t};
  NumberField latitude{"latitude", &fix.coordinate.latitude};
  NumberField longitude{"longitude", &fix.coordinate.longitude};
  NumberField altitude{"altitude", &fix.altitude};
  NumberField horizontalAccuracy{"horizontalAccuracy", &fix.horizontalAccuracy};
  NumberField verticalAccuracy{"verticalAccuracy", &fix.verticalAccuracy};
  NumberField speed{"speed", &fix.speed};
  NumberField course{"course", &fix.course};
  NumberField timestamp{"timestamp", &fix.timestamp.timeIntervalSinceReferenceDate};
  readNumbers(value, path,
              {&latitude, &longitude, &altitude, &horizontalAccuracy, &verticalAccuracy, &speed,
               &course, &timestamp});
  for (const NumberField* field : {&latitude, &longitude}) {
    if (!field->given) FieldPath(path, field->name).fail("missing");
  }
  return fix;
}

std::vector<CLLocation> readFixes(JsonLine::Value value, const FieldPath& path, double t) {
  expectList(value, path);
  std::vector<CLLocation> fixes;
  for (const JsonLine::Value& element : value) {
    fixes.push_back(readFix(element, FieldPath(path, fixes.size()), t));
  }
  if (fixes.empty()) path.fail("expected at least one fix");
  return fixes;
}

CLHeading readHeading(JsonLine::Value value, const FieldPath& path) {
  CLHeading heading;
  heading.headingAccuracy = kUsualHeadingAccuracy;
  NumberField trueHeading{"trueHeading", &heading.trueHeading};
  NumberField magneticHeading{"magneticHeading", &heading.magneticHeading};
  NumberField headingAccuracy{"headingAccuracy", &heading.headingAccuracy};
  readNumbers(value, path, {&trueHeading, &magneticHeading, &headingAccuracy});
  if (!trueHeading.given && !magneticHeading.given) {
    path.fail("expected trueHeading or magneticHeading");
  }
  // A true heading that is missing stays unknown.
  if (!magneticHeading.given) heading.magneticHeading = heading.trueHeading;
  return heading;
}

std::optional<CLPlacemark> readPlacemark(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() == JsonLine::Kind::null) return std::nullopt;
  expectObject(value, path);
  CNPostalAddress address;
  for (const JsonLine::Value& member : value) {
    const FieldPath memberPath(path, member.key());
    std::optional<std::string>* part = nullptr;
    if (member.key() == "street") part = &address.street;
    if (member.key() == "city") part = &address.city;
    if (member.key() == "state") part = &address.state;
    if (!part) memberPath.fail("unknown field");
    if (*part) memberPath.fail("given twice");
    if (member.kind() != JsonLine::Kind::null) *part = expectText(member, memberPath);
  }
  return CLPlacemark{address};
}

// Null removes a key.
event::Settings expectSettings(JsonLine::Value value, const FieldPath& path) {
  expectObject(value, path);
  event::Settings settings;
  for (const JsonLine::Value& member : value) {
    const FieldPath memberPath(path, member.key());
    const auto [entry, isNew] = settings.emplace(member.key(), std::nullopt);
    if (!isNew) memberPath.fail("given twice");
    if (member.kind() != JsonLine::Kind::null)
      entry->second = expectSettingValue(member, memberPath);
  }
  return settings;
}

Action readTap(JsonLine::Value value, const FieldPath& path) {
  const std::string_view view = expectText(value, path);
  if (view == "toggleViewButton") return event::Tap{event::Tap::View::toggleViewButton};
  if (view == "openLabel") return event::Tap{event::Tap::View::openLabel};
  if (view == "openMiniLabel") return event::Tap{event::Tap::View::openMiniLabel};
  path.fail("expected \"toggleViewButton\", \"openLabel\" or \"openMiniLabel\"");
}

// The only event with a field of its own beside it: the number of the format, "index".
Action readCall(JsonLine::Value value, const FieldPath& path,
                const std::optional<JsonLine::Value>& index) {
  const std::string_view operation = expectText(value, path);
  const bool update = operation == "updateCurrentLocationDisplayWithUnits";
  if (!update && operation != "openAppWithCoordinate") {
    path.fail("expected \"openAppWithCoordinate\" or \"updateCurrentLocationDisplayWithUnits\"");
  }
  const FieldPath indexPath("index");
  if (!update) {
    if (index) indexPath.fail("openAppWithCoordinate takes none");
    return event::OpenAppWithCoordinate{};
  }
  if (!index) indexPath.fail("missing");
  return event::UpdateCurrentLocationDisplay{expectInteger(
      *index, indexPath, std::numeric_limits<int>::min(), std::numeric_limits<int>::max())};
}

Action readAction(JsonLine::Value value, const FieldPath& path, double t,
                  const std::optional<JsonLine::Value>& index) {
  const std::string_view name = value.key();
  if (name == "call") return readCall(value, path, index);
  if (index) FieldPath("index").fail("goes with a call");
  if (name == "fix") return event::Locate{{readFix(value, path, t)}};
  if (name == "heading") return event::Turn{readHeading(value, path)};
  if (name == "fixes") return event::Locate{readFixes(value, path, t)};
  if (name == "suite") return event::WriteSuite{expectSettings(value, path)};
  if (name == "local") {
    event::WriteLocal write{expectSettings(value, path)};
    makeAddressDate(write.settings);
    return write;
  }
  if (name == "tap") return readTap(value, path);
  if (name == "segment") return event::PickSegment{expectInteger(value, path, 0, kLastFormat)};
  if (name == "authorization") {
    return event::Authorize{
        CLAuthorizationStatus{expectInteger(value, path, 0, kLastAuthorization)}};
  }
  if (name == "course") return event::FollowCourse{expectBoolean(value, path)};
  if (name == "placemark") return event::AnswerLookups{readPlacemark(value, path)};
  if (name != "appear" && name != "disappear" && name != "show") path.fail("unknown event");
  expectTrue(value, path);
  if (name == "appear") return event::Appear{};
  if (name == "disappear") return event::Disappear{};
  return event::Show{};
}

double readTime(const std::optional<JsonLine::Value>& value, std::optional<double> lastTime) {
  const FieldPath path("t");
  if (!value) path.fail("missing");
  const double t = expectNumber(*value, path);
  if (t < -kFarthestTime || t > kFarthestTime) {
    path.fail("more than " + shortestText(kFarthestTime) + " seconds from the reference date");
  }
  if (lastTime && t < *lastTime) {
    path.fail(shortestText(t) + " is before " + shortestText(*lastTime) +
              ", the time of the event before");
  }
  return t;
}

Event readEvent(JsonLine::Value line, std::optional<double> lastTime) {
  if (line.kind() != JsonLine::Kind::object) throw InputError("expected an object");
  std::optional<JsonLine::Value> time;
  std::optional<JsonLine::Value> index;
  std::optional<JsonLine::Value> action;
  for (const JsonLine::Value& member : line) {
    std::optional<JsonLine::Value>& part = member.key() == "t"       ? time
                                           : member.key() == "index" ? index
                                                                     : action;
    if (part) {
      FieldPath(member.key()).fail(&part == &action ? "a second event on the line" : "given twice");
    }
    part = member;
  }
  const double t = readTime(time, lastTime);
  if (!action) throw InputError("no event beside t");
  return {t, readAction(*action, FieldPath(action->key()), t, index)};
}

class Scenario : public Recording {
 public:
  explicit Scenario(std::unique_ptr<LineReader> lines) : lines_(std::move(lines)) {}
  // Errors name the line and the field.
  std::optional<Event> next() override;

 private:
  std::unique_ptr<LineReader> lines_;
  JsonLine line_;
  std::optional<double> lastTime_;
};

std::optional<Event> Scenario::next() {
  const auto text = lines_->next();
  if (!text) return std::nullopt;
  try {
    line_.parse(*text);
    Event event = readEvent(line_.root(), lastTime_);
    lastTime_ = event.t;
    return event;
  } catch (const InputError& error) {
    throw InputError("line " + std::to_string(lines_->number()) + ": " + error.what());
  }
}

}  // namespace

std::unique_ptr<Recording> openScenario(std::unique_ptr<LineReader> lines) {
  return std::make_unique<Scenario>(std::move(lines));
}

}  // namespace wayfell
