#include "platform/NSString.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/NSBundle.h"
#include "platform/Numbers.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// What C's printf prints for the same format and argument, but for not-a-number's sign.
TEST(Format, PrintsRealsAsPrintfDoes) {
  struct Case {
    const char* format;
    double value;
    const char* text;
  };
  const Case cases[] = {
      {"%f", 44.5, "44.500000"},
      {"%0.0f", 0.5, "0"},  // ties of the binary value go to even
      {"%0.0f", 2.5, "2"},
      {"%0.2f", 0.125, "0.12"},
      {"%0.1f", 0.35, "0.3"},  // 0.35 lies just below the tie
      {"%0.0f", -0.4, "-0"},
      {"%0.1f", -0.0, "-0.0"},
      {"%f", kNaN, "nan"},
      {"%f", std::copysign(kNaN, -1.0), "nan"},
      {"%0.2f", -kInfinity, "-inf"},
      {"%08.2f", -3.14159, "-0003.14"},
      {"%+.1f|", 2.0, "+2.0|"},
      {"%-7.1f|", 2.0, "2.0    |"},
      {"%07.1f", kInfinity, "    inf"},
      {"100%% of %0.0f m", 3.0, "100% of 3 m"},
  };
  for (const Case& c : cases) EXPECT_EQ(stringWithFormat(c.format, c.value), c.text) << c.format;
  EXPECT_EQ(fixedText(1.7976931348623157e308, 0).size(), 309U);
  EXPECT_EQ(fixedText(5e-324, 340).find_first_not_of("0."), 325U);  // 4.94e-324: 323 zeros first
}

TEST(Format, PrintsIntegersAndTexts) {
  EXPECT_EQ(stringWithFormat("%d:%02d:%02d", 12, 5, 0), "12:05:00");
  EXPECT_EQ(stringWithFormat("%05d", -42), "-0042");
  EXPECT_EQ(stringWithFormat("%d", std::int64_t{0x1'0000'0007}), "7");  // the low 32 bits
  EXPECT_EQ(stringWithFormat("%ld", std::int64_t{0x1'0000'0007}), "4294967303");
  EXPECT_EQ(stringWithFormat("%@, %@", "é", std::optional<std::string>()), "é, (null)");
  EXPECT_EQ(stringWithFormat("%4@|", "é"), "   é|");
  EXPECT_EQ(stringWithFormat("%2$@ %1$@", "one", "two"), "two one");
}

// A translator's format may be anything: nothing is read that is not there.
TEST(Format, SurvivesWhatIsNoFormat) {
  EXPECT_EQ(stringWithFormat("%d %@ %f", 1), "1  ");
  EXPECT_EQ(stringWithFormat("%f", 1), "");
  EXPECT_EQ(stringWithFormat("%d", "text"), "");
  EXPECT_EQ(stringWithFormat("50 % of", 1), "50 % of");
  EXPECT_EQ(stringWithFormat("%s %n %", "text"), "%s %n %");
  EXPECT_EQ(stringWithFormat("%9$d", 1), "");
  EXPECT_EQ(stringWithFormat("%999999999999d", 1).size(), 400U);
  EXPECT_EQ(stringWithFormat("%.999999999999f", 1.0).size(), 402U);
}

TEST(Format, TranslationsMustTakeTheKeysArguments) {
  EXPECT_TRUE(formatsTakeSameArguments("%0.1f km/h", "km/h: %.0f (100%%)"));
  EXPECT_TRUE(formatsTakeSameArguments("%@ %@mE %@mN", "%3$@ N, %2$@ E, %1$@"));
  EXPECT_FALSE(formatsTakeSameArguments("%d hr %d m", "%d hr"));
  EXPECT_FALSE(formatsTakeSameArguments("%0.0f m", "%d m"));
  EXPECT_FALSE(formatsTakeSameArguments("%d m", "%s m"));

  SimulatedHost host;
  host.strings.translations = {{"%d m", "%d min"}, {"%0.0f m", "%s"}, {"Open", "Öffnen"}};
  EXPECT_EQ(localizedStringWithFormat("%d m", 7), "7 min");
  EXPECT_EQ(localizedStringWithFormat("%0.0f m", 7.0), "7 m");
  EXPECT_EQ(localized("Open"), "Öffnen");
  EXPECT_EQ(localized("Time"), "Time");
}

TEST(TextToNumber, ReadsWhatLeads) {
  struct Case {
    const char* text;
    std::int64_t integer;
    double real;
    bool boolean;
  };
  const Case cases[] = {
      {"", 0, 0, false},
      {"12.9 km", 12, 12.9, true},
      {" \t-7", -7, -7, true},
      {"+5e2x", 5, 500, true},
      {".5", 0, 0.5, false},
      {"-.", 0, 0, false},
      {"nan", 0, 0, false},
      {"inf", 0, 0, false},
      {"0x10", 0, 0, false},
      {"-003", -3, -3, true},
      {"YES", 0, 0, true},
      {"true", 0, 0, true},
      {"1e999", 1, kInfinity, true},
      {"1e-999", 1, 0, true},
      {"9223372036854775807", INT64_MAX, 9223372036854775807.0, true},
      {"9223372036854775808", INT64_MAX, 9223372036854775808.0, true},
      {"-9223372036854775808", INT64_MIN, -9223372036854775808.0, true},
      {"-99999999999999999999", INT64_MIN, -1e20, true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(integerValue(c.text), c.integer) << c.text;
    EXPECT_EQ(doubleValue(c.text), c.real) << c.text;
    EXPECT_EQ(boolValue(c.text), c.boolean) << c.text;
  }
  EXPECT_EQ(intValue("2147483648"), INT32_MAX);
  EXPECT_EQ(intValue("-2147483649"), INT32_MIN);
}

TEST(Numbers, TruncateAndSaturate) {
  const std::pair<double, std::int32_t> cases[] = {{-2.9, -2},
                                                   {2147483647.9, INT32_MAX},
                                                   {2147483648.0, INT32_MAX},
                                                   {-2147483648.9, INT32_MIN},
                                                   {-kInfinity, INT32_MIN},
                                                   {kNaN, 0}};
  for (const auto& [real, integer] : cases) EXPECT_EQ(truncatedToInt32(real), integer) << real;
  EXPECT_EQ(truncatedToInt64(9223372036854775808.0), INT64_MAX);
  EXPECT_EQ(truncatedToInt64(-9223372036854775808.0), INT64_MIN);
  EXPECT_EQ(lowInt32(0x1'8000'0000), INT32_MIN);
}

TEST(ShortestText, ReadsBackTheSame) {
  EXPECT_EQ(shortestText(100000), "100000");
  EXPECT_EQ(shortestText(-2.5e-7), "-2.5e-07");
  EXPECT_EQ(shortestText(1e300), "1e+300");
  for (const double value : {1.0 / 3, 4.35, 123456789.123456789, 6.02e23, 5e-324, 1e16}) {
    EXPECT_EQ(doubleValue(shortestText(value)), value);
  }
}

}  // namespace
}  // namespace wayfell
