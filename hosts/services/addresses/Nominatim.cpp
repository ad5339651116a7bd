#include "hosts/services/addresses/Nominatim.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "hosts/places/PositionText.h"
#include "hosts/services/addresses/AddressRow.h"
#include "hosts/services/addresses/StreetText.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonLine.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr long kOk = 200;
constexpr long kTooManyRequests = 429;
constexpr long kUnavailable = 503;

// The credit for the data that all such servers have their addresses from, for one that does not
// say.
constexpr const char* kUsualAttribution = "Data © OpenStreetMap contributors, ODbL 1.0";

using Value = JsonLine::Value;

// The first of the members that has a text in it.
std::string firstText(Value object, std::initializer_list<std::string_view> keys) {
  std::string text;
  for (const std::string_view key : keys) {
    const auto value = object.member(key);
    if (value && value->kind() == JsonLine::Kind::text) setPart(text, value->text(), key);
    if (!text.empty()) break;
  }
  return text;
}

std::optional<CLPlacemark> placemarkOf(Value address) {
  const std::string number = firstText(address, {"house_number"});
  const std::string road = firstText(address, {"road", "pedestrian", "footway", "path", "cycleway",
                                               "bridleway", "street", "place"});
  CNPostalAddress postal;
  postal.street = streetText(number, road, firstText(address, {"country_code"}));
  postal.city = textOrNone(firstText(
      address, {"city", "town", "village", "municipality", "hamlet", "suburb", "city_district"}));
  postal.state =
      textOrNone(firstText(address, {"state", "province", "region", "state_district", "county"}));
  if (postal == CNPostalAddress()) return std::nullopt;
  return CLPlacemark{postal};
}

NominatimAnswer read(Value root) {
  if (root.kind() != JsonLine::Kind::object) throw InputError("not an object");
  NominatimAnswer answer;
  answer.licence = firstText(root, {"licence"});
  const auto address = root.member("address");
  if (address && address->kind() == JsonLine::Kind::object) {
    answer.placemark = placemarkOf(*address);
  } else if (!root.member("error")) {
    throw InputError("neither an address nor an error");
  }
  return answer;
}

}  // namespace

NominatimAnswer readNominatimAnswer(std::string_view json) {
  JsonLine line;
  line.parse(json);
  try {
    return read(line.root());
  } catch (const std::invalid_argument& error) {
    throw InputError(error.what());
  }
}

Nominatim::Nominatim(IoRunLoop& loop, ServerUrl server, std::filesystem::path turns,
                     std::string languages, Warn warn, double timeout)
    : loop_(loop),
      server_(std::move(server)),
      languages_(std::move(languages)),
      warn_(std::move(warn)),
      timeout_(timeout),
      turns_(std::move(turns)),
      client_(loop) {}

Nominatim::~Nominatim() {
  if (turn_) loop_.cancelTimer(*turn_);
}

void Nominatim::reverseGeocode(const std::optional<CLLocation>& location, Completion completion) {
  if (!location || !isPosition(location->coordinate)) {
    completion(std::nullopt);
    return;
  }
  const Completion replaced = std::exchange(completion_, std::move(completion));
  client_.cancel();
  position_ = location->coordinate;
  if (!turn_) awaitTurn();
  if (replaced) replaced(std::nullopt);
}

// What is asked for meanwhile is asked in the same turn.
void Nominatim::awaitTurn() {
  const auto wait = turns_.take(kBetweenRequests, kLongestWait);
  turn_ = loop_.scheduleTimer(wait.value_or(0), false, [this, isComing = wait.has_value()] {
    turn_.reset();
    if (isComing) return send();
    fail(std::string(localized("wants to be left alone for a while")));
    complete(std::nullopt);
  });
}

void Nominatim::send() {
  client_.get({server_.requestFor(position_), "wayfell/" WAYFELL_VERSION, languages_, timeout_},
              [this](const HttpClient::Answer& answer) { complete(placesOf(answer)); });
}

Nominatim::Places Nominatim::placesOf(const HttpClient::Answer& answer) {
  if (answer.status == kTooManyRequests || answer.status == kUnavailable) {
    const double asked = answer.retryAfter.value_or(kUsualPause);
    turns_.putOff(std::clamp(asked, kBetweenRequests, kLongestPause));
  }
  if (!answer.redirection.empty()) {
    fail(localizedStringWithFormat("sends on to %@, which nobody has agreed to",
                                   answer.redirection));
  } else if (!answer.error.empty()) {
    fail(answer.error);
  } else if (answer.status != kOk) {
    fail(localizedStringWithFormat("answers with HTTP status %@", std::to_string(answer.status)));
  } else {
    try {
      NominatimAnswer read = readNominatimAnswer(answer.body);
      warned_ = false;
      if (!read.licence.empty()) attribution_ = std::move(read.licence);
      if (!read.placemark) return std::nullopt;
      if (attribution_.empty()) attribution_ = kUsualAttribution;
      return std::vector{*read.placemark};
    } catch (const InputError& error) {
      fail(localizedStringWithFormat("answers with something else than an address (%@)",
                                     error.what()));
    }
  }
  return std::nullopt;
}

void Nominatim::fail(const std::string& why) {
  if (warned_) return;
  warn_(localizedStringWithFormat("%@: %@; there are no addresses until it answers",
                                  server_.shown(), why));
  warned_ = true;
}

// The last thing that is done: the completion may destroy this.
void Nominatim::complete(const Places& places) {
  const Completion completion = std::exchange(completion_, nullptr);
  if (completion) completion(places);
}

}  // namespace wayfell
