// What every geocoder keeps to: the completion is called once and never with an empty list.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

#include "Book.h"
#include "LoopbackServer.h"
#include "hosts/loop/uv/EventLoop.h"
#include "hosts/services/addresses/Nominatim.h"
#include "platform/SimulatedHost.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

constexpr double kPatience = 5;  // seconds, when something is wrong

struct World {
  EventLoop loop;
  Folder folder;
  LoopbackServer server{loop};
};

struct Kind {
  const char* name;
  bool finds;  // an address at 1 1
  std::function<std::unique_ptr<ReverseGeocoder>(World& world)> make;
};

// For the names of the tests, which would have the bytes of the parameter in them.
void PrintTo(const Kind& kind, std::ostream* stream) { *stream << kind.name; }

class GeocoderTest : public testing::TestWithParam<Kind> {
 protected:
  using Places = std::optional<std::vector<CLPlacemark>>;

  static CLLocation at(double latitude, double longitude) {
    CLLocation location;
    location.coordinate = {latitude, longitude};
    return location;
  }

  ReverseGeocoder::Completion completion() {
    return [this](const Places& places) {
      ++completions;
      last = places;
      EXPECT_FALSE(places && places->empty());
      world.loop.stop();
    };
  }
  void waitForCompletions(int count) {
    bool patient = true;
    const auto timer = world.loop.scheduleTimer(kPatience, false, [&] {
      patient = false;
      world.loop.stop();
    });
    while (completions < count && patient) world.loop.run();
    world.loop.cancelTimer(timer);
    EXPECT_EQ(completions, count);
  }
  /// Turns in which something that is left over would show.
  void goOnAWhile() {
    world.loop.scheduleTimer(0.05, false, [this] { world.loop.stop(); });
    world.loop.run();
  }

  World world;
  std::unique_ptr<ReverseGeocoder> geocoder = GetParam().make(world);
  int completions = 0;
  Places last;
};

TEST_P(GeocoderTest, AnswersOnce) {
  geocoder->reverseGeocode(at(1, 1), completion());
  waitForCompletions(1);
  EXPECT_EQ(last.has_value(), GetParam().finds);
  goOnAWhile();
  EXPECT_EQ(completions, 1);
}

TEST_P(GeocoderTest, FailsWithoutALocation) {
  geocoder->reverseGeocode(std::nullopt, completion());
  waitForCompletions(1);
  EXPECT_FALSE(last);
}

TEST_P(GeocoderTest, AnswersARequestWithinAnAnswer) {
  geocoder->reverseGeocode(at(1, 1), [this](const Places&) {
    ++completions;
    geocoder->reverseGeocode(std::nullopt, completion());
  });
  waitForCompletions(2);
}

TEST_P(GeocoderTest, AnswersEachOfSeveral) {
  for (int i = 0; i < 3; ++i) geocoder->reverseGeocode(at(1, 1), completion());
  waitForCompletions(3);
  EXPECT_EQ(last.has_value(), GetParam().finds);
}

TEST_P(GeocoderTest, IsSilentOnceItIsGone) {
  geocoder->reverseGeocode(at(1, 1), completion());
  const int before = completions;
  geocoder.reset();
  goOnAWhile();
  EXPECT_EQ(completions, before);
}

TEST_P(GeocoderTest, MayBeDestroyedByItsCompletion) {
  auto* const asked = geocoder.get();
  asked->reverseGeocode(at(1, 1), [this](const Places& places) {
    // One that answers at once is still within the call.
    world.loop.scheduleTimer(0, false, [this] { geocoder.reset(); });
    if (std::string(GetParam().name) == "Nominatim") geocoder.reset();
    completion()(places);
  });
  waitForCompletions(1);
  goOnAWhile();
  EXPECT_EQ(completions, 1);
}

const Kind kKinds[] = {
    {"Simulated", true,
     [](World&) {
       auto geocoder = std::make_unique<SimulatedGeocoder>();
       geocoder->answer = CLPlacemark{CNPostalAddress{"a", "b", "c"}};
       return geocoder;
     }},
    {"None", false, [](World&) { return std::make_unique<NoGeocoder>(); }},
    {"Book", true,
     [](World& world) {
       makeBook(world.folder / "book", {house(1, 1, "1")});
       return std::make_unique<AddressBook>(world.folder / "book",
                                            AddressBook::Missing::isWarnedAbout,
                                            [](const std::string&) { ADD_FAILURE(); });
     }},
    {"MissingBook", false,
     [](World& world) {
       return std::make_unique<AddressBook>(world.folder / "book", AddressBook::Missing::isFine,
                                            [](const std::string&) { ADD_FAILURE(); });
     }},
    {"Nominatim", true,
     [](World& world) {
       world.server.reply = LoopbackServer::ok(kParis);
       return std::make_unique<Nominatim>(world.loop, ServerUrl(world.server.url()), "",
                                          [](const std::string&) { ADD_FAILURE(); });
     }},
};

INSTANTIATE_TEST_SUITE_P(All, GeocoderTest, testing::ValuesIn(kKinds),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace wayfell
