// Texts made ready to be drawn.
#include <gtest/gtest.h>

#include "hosts/window/panel/DisplayedText.h"

namespace wayfell {
namespace {

TEST(DisplayedText, KeepsNumbersFromBeingTurnedRound) {
  const std::pair<QString, QString> cases[] = {
      {"-8848 م", "<-8848> م"},
      {"01:07:03 /كم", "<01:07:03> /كم"},
      {"2:46 س", "<2:46> س"},
      {"شارع 3، بيرن", "شارع <3>، بيرن"},
      {"-8848 m", "-8848 m"},
      {"46° 58.8056' N", "46° 58.8056' N"},
      {"", ""},
  };
  for (const auto& [text, expected] : cases) {
    QString isolated = withNumbersIsolated(text);
    isolated.replace(QChar(0x2066), '<').replace(QChar(0x2069), '>');
    EXPECT_EQ(isolated.toStdString(), expected.toStdString());
  }
}

TEST(DisplayedText, BreaksReferencesBetweenTheirParts) {
  const std::pair<QString, QStringList> cases[] = {
      {"32T MT 19529 03790", {"32T MT", "19529 03790"}},
      {"32 N 419528.6mE 5203790.3mN", {"32 N 419528.6mE", "5203790.3mN"}},
      {"   32TMT1952903790", {"32TMT1952903790"}},
      {"9G WH", {"9G", "WH"}},
      {"", {""}},
  };
  for (const auto& [text, lines] : cases) EXPECT_EQ(inTwoLines(text), lines);
}

}  // namespace
}  // namespace wayfell
