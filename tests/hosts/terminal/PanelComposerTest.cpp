// How the panel is composed of characters. Whole panels are compared in live_test.py.
#include "hosts/terminal/PanelComposer.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "hosts/replay/ReplayedWidget.h"
#include "hosts/terminal/AsciiText.h"
#include "hosts/text/TextWidth.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

CLHeading heading(double degrees) {
  CLHeading heading;
  heading.trueHeading = degrees;
  heading.headingAccuracy = 5;
  return heading;
}

ComposedPanel composed(const ReplayedWidget& widget, const PanelRoom& room = {}) {
  return composePanel(readPanel(widget.interface()), room, "0:00:00");
}

// What stands under the mark, and beside it for labels that have their middle between two columns.
std::string underMark(const ReplayedWidget& widget, const PanelRoom& room) {
  const ComposedPanel panel = composed(widget, room);
  const TextSpan& mark = panel.rows.at(1).at(1);
  EXPECT_EQ(mark.text, "▼");
  const TextRow& tape = panel.rows.at(2);
  for (std::size_t i = 0; i < tape.size(); ++i) {
    if (tape[i].style != TextStyle::mark) continue;
    EXPECT_EQ(mark.column, tape[i].column);
    const bool labelGoesOn = tape[i - 1].style == TextStyle::value;
    return (labelGoesOn ? tape[i - 1].text : "") + tape[i].text +
           (tape[i + 1].style == TextStyle::value ? tape[i + 1].text : "");
  }
  return "no mark";
}

// The labels of the tapes, by the degrees and mils that they stand for.
TEST(Panel, TheMarkIsOnTheHeading) {
  const std::map<double, std::pair<std::string, std::string>> labels = {
      {0, {"N", "0"}},        {45, {"45", "800"}},    {90, {"E", "1600"}},
      {135, {"135", "2400"}}, {180, {"S", "3200"}},   {225, {"225", "4000"}},
      {270, {"W", "4800"}},   {315, {"315", "5600"}}, {359.9, {"N", "0"}},
  };
  for (const bool mils : {false, true}) {
    ReplayedWidget widget;
    widget.apply(event::WriteSuite{{{"useMils", PropertyValue(mils)}}});
    for (const auto& [degrees, label] : labels) {
      widget.apply(event::Turn{heading(degrees)});
      for (const PanelRoom room : {PanelRoom{}, PanelRoom{80, 24}, PanelRoom{55, 16}}) {
        EXPECT_EQ(underMark(widget, room), mils ? label.second : label.first)
            << degrees << " in " << room.columns << " columns";
      }
    }
  }
}

// The longest that the formats come to, filled by hand.
PanelReading longest() {
  PanelReading panel;
  const auto set = [&panel](PanelRow row, std::string caption, std::string value) {
    panel[row].caption = std::move(caption);
    panel[row].value = std::move(value);
  };
  set(PanelRow::heading, "", "6400 mils");
  set(PanelRow::position, "Latitude\nLongitude", "89° 59' 60.00'' N\n179° 59' 60.00'' W");
  set(PanelRow::altitude, "Altitude", "-12345 ft");
  set(PanelRow::speed, "Pace", "99:59:59 /km");
  set(PanelRow::waypointDistance, "Distance", "20003.93 km");
  set(PanelRow::eta, "ETA", "596523 hr 14 m");
  set(PanelRow::trackTime, "Time", "596523:14:07");
  set(PanelRow::trackDistance, "Distance", "1000000000.00 km");
  set(PanelRow::address, "", "A rather long street 12345, A town, A state");
  set(PanelRow::open, "", "Open");
  panel.formats = {"Dec", "Dm", "DMs", "MGRS", "UTM"};
  return panel;
}

// Its rows, each of which fills its width with texts that do not overlap.
std::string textOf(const ComposedPanel& panel) {
  std::string text;
  for (const TextRow& row : panel.rows) {
    text += textOf(row) + "\n";
    EXPECT_EQ(columnsOf(textOf(row)), panel.columns) << textOf(row);
  }
  return text;
}

// Besides its look it has a sign where it is a direction.
TEST(Panel, WhatIsOldOrUnknownLooksSo) {
  SimulatedHost host;
  PanelReading panel = longest();
  panel.northDim = panel.waypointDim = panel[PanelRow::altitude].dim = true;
  panel.waypoint = 90;
  std::string stale;
  for (const TextRow& row : composePanel(panel, {}, "").rows) {
    for (const TextSpan& span : row) {
      const bool blank = span.text.find_first_not_of(' ') == std::string::npos;
      if (span.style == TextStyle::stale && !blank) stale += span.text + "|";
    }
  }
  EXPECT_EQ(stale, "▽|-12345 ft| →?|");
}

TEST(Panel, WhatDoesNotFitStandsBelow) {
  SimulatedHost host;
  PanelReading panel = longest();
  panel.captionNamesLines = false;
  panel[PanelRow::position].value = "60 S 999999.9mE 10000000.0mN";
  panel.waypointDim = true;
  EXPECT_EQ(textOf(composePanel(panel, {}, "")), R"(╭─ Wayfell ────────────────────────────╮
│             ▼                        │
│                            6400 mils │
│ 60 S 999999.9mE 10000000.0mN         │
│                   Latitude Longitude │
│ Altitude -12345 ft Pace 99:59:59 /km │
├─ Waypoint ? ─────────────────────────┤
│ Distance                 20003.93 km │
│ ETA                   596523 hr 14 m │
├─ Track ──────────────────────────────┤
│ Time                    596523:14:07 │
│ Distance            1000000000.00 km │
├──────────────────────────────────────┤
│ A rather long street 12345, A town,… │
│  Dec  Dm  DMs  MGRS  UTM    [Open] ▾ │
╰──────────────────────────────────────╯
)");
}

// Large or not, and where there are few rows, of which the position keeps the last.
void expectNoNumberIsCut(const PanelReading& panel, int columns) {
  const std::string all = textOf(composePanel(panel, {columns, {}}, ""));
  for (const PanelRow row :
       {PanelRow::heading, PanelRow::altitude, PanelRow::speed, PanelRow::waypointDistance,
        PanelRow::eta, PanelRow::trackTime, PanelRow::trackDistance}) {
    EXPECT_NE(all.find(" " + panel[row].value + " "), std::string::npos)
        << panel[row].value << " in\n"
        << all;
  }
  const std::regex cutNumber("[0-9]…");
  const std::string large = textOf(composePanel(panel, {columns, 40}, ""));
  EXPECT_FALSE(std::regex_search(all + large, cutNumber)) << all << large;
  const std::string low = textOf(composePanel(panel, {columns, 3}, ""));
  EXPECT_NE(low.find(" 179° 59' 60.00'' W "), std::string::npos) << low;
}

TEST(Panel, NumbersAreNeverCut) {
  SimulatedHost host;
  for (const char* word : {"ETA", "Voraussichtliche Ankunftszeit", "وقت الوصول"}) {
    host.strings.translations["Waypoint"] = host.strings.translations["Track"] = word;
    PanelReading panel = longest();
    panel[PanelRow::eta].caption = panel[PanelRow::trackTime].caption = word;
    panel[PanelRow::open].value = panel.formats[1] = word;
    for (const auto& [heading, eta] : std::map<std::string, std::string>{
             {"0°", "0 m"},
             {"6400 mils", "14 hr 6 m"},
             {"1000000000000000019884624838656°", "596523 hr 14 m"}}) {
      panel[PanelRow::heading].value = heading;
      panel[PanelRow::eta].value = eta;
      for (int columns = 38; columns <= 66; ++columns) expectNoNumberIsCut(panel, columns);
    }
  }
}

TEST(AsciiText, KeepsTheWidth) {
  for (const auto& [text, ascii] : std::map<std::string, std::string>{
           {"46° 58.9' N", "46d 58.9' N"},
           {"╭─ Höhenweg – … ─╮", "+- Hohenweg - ~ -+"},
           {"東京 \u0301a\xFF", "???? a?"},
           {"ÆØÅßÿ÷ Łódź ≠", "AOAsy/ Lodz ?"},
           {"2\u00A0s ▽", "2 s v"},
       }) {
    EXPECT_EQ(asciiText(text), ascii);
    EXPECT_EQ(columnsOf(ascii), columnsOf(text)) << text;
  }
}

}  // namespace
}  // namespace wayfell
