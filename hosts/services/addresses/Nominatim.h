// Asks a Nominatim server for addresses, over the network: it learns the user's position. To be
// made only for a user who has agreed to that server.
//
// It keeps to what the public server asks of its users: one request at a time and at most one a
// second, whichever of the user's programs makes it, and none before the time that a server asks to
// be left alone for. A request made while another waits or is under way replaces it, and the other
// fails.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/Warn.h"
#include "hosts/services/addresses/AttributedGeocoder.h"
#include "hosts/services/addresses/HttpClient.h"
#include "hosts/services/addresses/RequestTurns.h"
#include "hosts/services/addresses/ServerUrl.h"

namespace wayfell {

/// What a server answers, in its format jsonv2.
struct NominatimAnswer {
  /// None when the server knows no address there.
  std::optional<CLPlacemark> placemark;
  /// Whose data it is, as the server says; empty when it does not.
  std::string licence;
};

/// Throws InputError for what is no such answer.
///
/// The street is the number and the first there is of: road, pedestrian, footway, path, cycleway,
/// bridleway, street, place; in the order of the country. The city is the first of city, town,
/// village, municipality, hamlet, suburb, city_district; the state the first of state, province,
/// region, state_district, county.
NominatimAnswer readNominatimAnswer(std::string_view json);

class Nominatim : public AttributedGeocoder {
 public:
  static constexpr const char* kPublicServer = "https://nominatim.openstreetmap.org";
  /// Seconds, unless stated otherwise, as all of these.
  static constexpr double kTimeout = 10;
  static constexpr double kBetweenRequests = 1;
  /// For one's turn; a request that would wait longer fails.
  static constexpr double kLongestWait = 10;
  /// For a server that is overloaded and does not say for how long; and the longest that one may
  /// say.
  static constexpr double kUsualPause = 60;
  static constexpr double kLongestPause = 86400;

  /// The file has the turns of all programs that ask the server. Names are asked for in the
  /// languages of an Accept-Language header; empty: the local ones. Warns of failures, once until
  /// an answer comes again.
  Nominatim(IoRunLoop& loop, ServerUrl server, std::filesystem::path turns, std::string languages,
            Warn warn, double timeout = kTimeout);
  ~Nominatim() override;

  void reverseGeocode(const std::optional<CLLocation>& location, Completion completion) override;
  /// In the words of the last answer; empty until one has come.
  std::string attribution() const override { return attribution_; }

 private:
  using Places = std::optional<std::vector<CLPlacemark>>;

  void awaitTurn();
  void send();
  Places placesOf(const HttpClient::Answer& answer);
  void fail(const std::string& why);
  void complete(const Places& places);

  IoRunLoop& loop_;
  ServerUrl server_;
  std::string languages_;
  Warn warn_;
  double timeout_;
  RequestTurns turns_;
  HttpClient client_;
  Completion completion_;  // of the request that waits or is under way, or null
  CLLocationCoordinate2D position_;
  std::optional<RunLoop::TimerId> turn_;  // until it comes
  bool warned_ = false;
  std::string attribution_;
};

}  // namespace wayfell
