// How the panel is composed of characters. Whole panels are compared in live_test.py.
#include "hosts/terminal/PanelComposer.h"

#include <gtest/gtest.h>

#include <map>

#include "hosts/replay/ReplayedWidget.h"
#include "hosts/terminal/AsciiText.h"
#include "hosts/text/TextWidth.h"

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

// Every row fills its width and its texts do not overlap, however long the values and, in other
// languages, the captions are.
TEST(Panel, RowsFillTheirWidth) {
  for (const bool translated : {false, true}) {
    ReplayedWidget widget;
    if (translated) {
      for (const char* key : {"Altitude", "Speed", "Pace", "Distance", "ETA", "Time", "Open", "Dm",
                              "Latitude\nLongitude"}) {
        widget.host().strings.translations[key] = "a long word in another language";
      }
    }
    widget.apply(event::WriteSuite{{{"widgetAddressString", PropertyValue(std::string(200, 'x'))},
                                    {"hasWaypoint", PropertyValue(true)},
                                    {"distance", PropertyValue(1e12)},
                                    {"time", PropertyValue(1e9)}}});
    widget.apply(event::Turn{heading(1e30)});
    CLLocation far;
    far.coordinate = {-89.123456789, -179.123456789};
    far.altitude = -12345678;
    far.horizontalAccuracy = 1;
    widget.apply(event::Locate{{far}});
    for (const int columns : {1, 40, 41, 59, 60, 64, 500}) {
      for (const std::optional<int> rows : {std::optional<int>(), std::optional<int>(22)}) {
        const ComposedPanel panel = composed(widget, {columns, rows});
        EXPECT_EQ(panel.columns, std::min(64, std::max(40, columns)));
        for (const TextRow& row : panel.rows) {
          int end = 0;
          for (const TextSpan& span : row) {
            EXPECT_GE(span.column, end) << span.text << " in " << columns;
            end = span.column + columnsOf(span.text);
          }
          EXPECT_EQ(end, panel.columns) << row.at(1).text;
        }
      }
    }
  }
}

TEST(AsciiText, KeepsTheWidth) {
  for (const auto& [text, ascii] : std::map<std::string, std::string>{
           {"46° 58.9' N", "46d 58.9' N"},
           {"╭─ Höhenweg – … ─╮", "+- Hohenweg - ~ -+"},
           {"東京 \u0301a\xFF", "???? a?"},
           {"ÆØÅßÿ÷ Łódź ≠", "AOAsy/ Lodz ?"},
       }) {
    EXPECT_EQ(asciiText(text), ascii);
    EXPECT_EQ(columnsOf(ascii), columnsOf(text)) << text;
  }
}

}  // namespace
}  // namespace wayfell
