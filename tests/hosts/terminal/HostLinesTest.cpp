#include "hosts/terminal/HostLines.h"

#include <gtest/gtest.h>

#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

const char kWarning[] = "no gpsd at localhost:2947: this is the demo, not where you are";

// In the first row there is always " DEMO  a walk".
TEST(HostLines, WarningsComeBeforeHintsAndAreTheLastToBeCut) {
  const SimulatedHost host;
  struct Case {
    std::string message, warning;
    int columns, rows;
    std::string expected;
  };
  const std::string old = "fix 8 s old";
  for (const auto& [message, warning, columns, rows, expected] : std::vector<Case>{
           {"", "", 40, 9, "\n  t layout  ? keys  q quit"},
           {"", old, 40, 9, "\n  t layout  ? keys  q quit  fix 8 s old"},
           {"", old, 39, 2, "\n  ? keys  q quit           fix 8 s old"},
           {"", old, 24, 3, "\n  ? keys  q quit\n  fix 8 s old"},
           {"", old, 24, 2, "\n            fix 8 s old"},
           {"", kWarning, 40, 2, "\n  no gpsd at localhost:2947: this is t…"},
           {"", kWarning, 40, 3,
            "\n  t layout  ? keys  q quit\n  no gpsd at localhost:2947: this is t…"},
           {"", kWarning, 40, 9,
            "\n  t layout  ? keys  q quit"
            "\n  no gpsd at localhost:2947: this is"
            "\n  the demo, not where you are"},
           {"Open: wayfell://openFromWidget", old, 40, 3,
            "\n  Open: wayfell://openFromWidget\n  fix 8 s old"},
           {"Open: wayfell://openFromWidget", old, 40, 2,
            "\n  Open: wayfell://openFro…  fix 8 s old"},
           {"a long message", "", 12, 3, "\n  a long\n  message"},
       }) {
    const HostLines lines = {{Scene::Kind::demo, "a walk", "", warning, "", ""},
                             message,
                             {"t layout  ? keys  q quit", "? keys  q quit"}};
    std::string text;
    for (const TextRow& row : composeHostLines(lines, columns, rows)) text += "\n" + textOf(row);
    EXPECT_EQ(text.substr(text.find('\n', 1)), expected) << columns << " columns, " << rows;
  }
}

// The title gives way first, then the end of the state: of 25 columns the last stays free.
TEST(HostLines, NothingIsDrawnOverTheBadge) {
  const SimulatedHost host;
  for (const auto& [state, expected] : std::vector<std::pair<std::string, std::string>>{
           {"0:00:03", "  DEMO  a walk   0:00:03"},
           {"0:00:03  ×10", "  DEMO  a…  0:00:03  ×10"},
           {"0:00:03  paused  ×10", "  DEMO  0:00:03  paused…"},
       }) {
    const HostLines lines = {{Scene::Kind::demo, "a walk", state, "", "", ""}, "", {}};
    EXPECT_EQ(textOf(composeHostLines(lines, 25, 9).front()), expected);
  }
}

}  // namespace
}  // namespace wayfell
