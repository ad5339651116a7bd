#include "hosts/panel/Spoken.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/NSBundle.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

struct Panel {
  std::string say(UILabel PanelViews::*label, PanelRow row,
                  const std::optional<FormattedText>& text) {
    (interface.views().*label).setText(text);
    return spokenText(interface, row);
  }
  SimulatedHost host;
  std::shared_ptr<TodayViewController> controller = std::make_shared<TodayViewController>();
  WidgetInterface interface { controller };
};

// What is read is the same; what has printed it is not.
TEST(Spoken, SaysWhatHasPrintedALabel) {
  Panel panel;
  EXPECT_EQ(panel.say(&PanelViews::etaLabel, PanelRow::eta, localizedText("%d m", 9)),
            "time to the waypoint 9 minutes");
  EXPECT_EQ(
      panel.say(&PanelViews::altitudeLabel, PanelRow::altitude, localizedText("%0.0f m", 9.0)),
      "altitude 9 metres");
  EXPECT_EQ(
      panel.say(&PanelViews::timeLabel, PanelRow::trackTime, formattedText("%02d:%02d", 5, 0)),
      "track time 5 minutes 0 seconds");
  EXPECT_EQ(panel.say(&PanelViews::addressLabel, PanelRow::address, "007 Main St, 9 m"),
            "address 007 Main St, 9 m");
  EXPECT_EQ(panel.say(&PanelViews::altitudeLabel, PanelRow::altitude, std::nullopt),
            "altitude not known yet");
}

// Formats that leave nothing to tell the arguments by, and turn them round.
TEST(Spoken, SaysTranslatedTexts) {
  Panel panel;
  panel.host.strings.translations = {{"%d hr %d m", "%2$d%1$d"},
                                     {"%@ hours %@ minutes", "%@ Stunden %@ Minuten"},
                                     {"%@, %@", "%2$@%1$@"},
                                     {"N", ""},
                                     {"north", "nördlich"}};
  EXPECT_EQ(panel.say(&PanelViews::etaLabel, PanelRow::eta, localizedText("%d hr %d m", 2, 46)),
            "time to the waypoint 2 Stunden 46 Minuten");
  const auto angle = [](double degrees, const char* quarter) {
    return localizedText("%0.0f° %0.4f' %@", degrees, 58.8, localizedText(quarter));
  };
  EXPECT_EQ(panel.say(&PanelViews::userCoordinateLabel, PanelRow::position,
                      localizedText("%@, %@", angle(46, "N"), angle(7, "W"))),
            "position latitude 46 degrees 58.8000 minutes nördlich, "
            "longitude 7 degrees 58.8000 minutes west");
}

}  // namespace
}  // namespace wayfell
