// Times of day. Expected seconds and texts were worked out with Python's datetime.
#include <gtest/gtest.h>

#include <cmath>

#include "hosts/text/IsoTime.h"

namespace wayfell {
namespace {

TEST(IsoTimeTest, WritesWhatItReads) {
  struct Case {
    double seconds;  // since 2001-01-01 00:00 UTC
    const char* text;
  };
  const Case cases[] = {
      {0, "2001-01-01T00:00:00Z"},
      {-0.5, "2000-12-31T23:59:59.5Z"},
      {307948399, "2010-10-05T05:13:19Z"},
      {730944000.25, "2024-03-01T00:00:00.25Z"},
      {730943999.125, "2024-02-29T23:59:59.125Z"},
      {-63145526400, "0000-01-01T00:00:00Z"},
      {252423993598, "9999-12-31T23:59:58Z"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(isoTimeOf(NSDate{c.seconds}), c.text);
    EXPECT_EQ(dateOfIsoTime(c.text), NSDate{c.seconds}) << c.text;
  }
}

TEST(IsoTimeTest, WritesMillisecondsAndYearsOfFourDigits) {
  EXPECT_EQ(isoTimeOf(NSDate{59.9996}), "2001-01-01T00:01:00Z");
  EXPECT_EQ(isoTimeOf(NSDate{0.0104}), "2001-01-01T00:00:00.01Z");
  for (const double seconds : {-63145526400.5, 252423993600.0, 1e300, std::nan("")}) {
    EXPECT_EQ(isoTimeOf(NSDate{seconds}), "");
  }
}

// Seconds since 2001-01-01: by GNU date, `date -d TIME +%s` less 978307200.
TEST(IsoTimeTest, ReadsOffsetsFractionsAndNothingElse) {
  const std::pair<const char*, double> times[] = {
      {"2010-10-04T05:13:19", 307861999},       {"2010-10-04T07:13:19+02:00", 307861999},
      {"2010-10-03T22:43:19-06:30", 307861999}, {"2024-02-29T12:00:00.001Z", 730900800.001},
      {"2016-12-31T23:59:60Z", 504921600},      {"2010-10-04 07:13:19+0200", 307861999},
      {"2010-10-04T05:13:19,5z", 307861999.5},  {"2010-10-04T04:13:19-01", 307861999},
  };
  for (const auto& [text, seconds] : times) {
    EXPECT_EQ(dateOfIsoTime(text), NSDate{seconds}) << text;
  }
  for (const char* text : {"2023-02-29T12:00:00Z", "2024-13-01T12:00:00Z", "2024-02-29T24:00:00Z",
                           "2024-02-29T12:00:00.Z", "2024-02-29T12:00:00+2",
                           "2024-02-29T12:00:00 Z", "2024-02-29T12:00", "2024-02-29", ""}) {
    EXPECT_EQ(dateOfIsoTime(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace wayfell
