#include "hosts/services/addresses/Nominatim.h"

#include <algorithm>
#include <utility>

#include "hosts/places/PositionRange.h"
#include "hosts/services/addresses/NominatimAnswer.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

constexpr long kOk = 200;
constexpr long kTooManyRequests = 429;
constexpr long kUnavailable = 503;

// The credit for the data that all such servers have their addresses from, for one that does not
// say.
constexpr const char* kUsualAttribution = "Data © OpenStreetMap contributors, ODbL 1.0";

}  // namespace

Nominatim::Nominatim(IoRunLoop& loop, ServerUrl server, std::string languages, Warn warn,
                     double timeout)
    : loop_(loop),
      server_(std::move(server)),
      languages_(std::move(languages)),
      warn_(std::move(warn)),
      timeout_(timeout),
      client_(loop) {}

Nominatim::~Nominatim() {
  for (const auto& timer : {rest_, pause_}) {
    if (timer) loop_.cancelTimer(*timer);
  }
}

void Nominatim::reverseGeocode(const std::optional<CLLocation>& location, Completion completion) {
  if (!location || !isPosition(location->coordinate) || pause_) {
    completion(std::nullopt);
    return;
  }
  const Completion replaced = std::exchange(completion_, std::move(completion));
  client_.cancel();
  position_ = location->coordinate;
  if (!rest_) send();
  if (replaced) replaced(std::nullopt);
}

void Nominatim::send() {
  rest_ = loop_.scheduleTimer(kBetweenRequests, false, [this] {
    rest_.reset();
    if (completion_ && !client_.isBusy()) send();
  });
  client_.get({server_.requestFor(position_), "wayfell/" WAYFELL_VERSION, languages_, timeout_},
              [this](const HttpClient::Answer& answer) { complete(placesOf(answer)); });
}

Nominatim::Places Nominatim::placesOf(const HttpClient::Answer& answer) {
  if (answer.status == kTooManyRequests || answer.status == kUnavailable) {
    pause(answer.retryAfter.value_or(kUsualPause));
  }
  if (!answer.redirection.empty()) {
    fail("sends on to " + answer.redirection + ", which nobody has agreed to");
  } else if (!answer.error.empty()) {
    fail(answer.error);
  } else if (answer.status != kOk) {
    fail("answers with HTTP status " + std::to_string(answer.status));
  } else {
    try {
      NominatimAnswer read = readNominatimAnswer(answer.body);
      warned_ = false;
      if (!read.licence.empty()) attribution_ = std::move(read.licence);
      if (!read.placemark) return std::nullopt;
      if (attribution_.empty()) attribution_ = kUsualAttribution;
      return std::vector{*read.placemark};
    } catch (const InputError& error) {
      fail(std::string("answers with something else than an address (") + error.what() + ')');
    }
  }
  return std::nullopt;
}

void Nominatim::pause(double seconds) {
  pause_ = loop_.scheduleTimer(std::clamp(seconds, kBetweenRequests, kLongestPause), false,
                               [this] { pause_.reset(); });
}

void Nominatim::fail(const std::string& why) {
  if (!warned_) warn_(server_.shown() + ": " + why + "; there are no addresses until it answers");
  warned_ = true;
}

// The last thing that is done: the completion may destroy this.
void Nominatim::complete(const Places& places) {
  const Completion completion = std::exchange(completion_, nullptr);
  if (completion) completion(places);
}

}  // namespace wayfell
