#include "platform/FormattedText.h"

#include <gtest/gtest.h>

#include "platform/NSBundle.h"
#include "platform/SimulatedHost.h"
#include "platform/UILabel.h"

namespace wayfell {
namespace {

TEST(FormattedText, KnowsItsArgumentsWhereverTheyStand) {
  SimulatedHost host;
  host.strings.translations = {
      {"%d hr %d m", "%2$d min, %1$02d h"}, {"%@, %@", "%2$@ / %1$@"}, {"N", "nord"}};
  const FormattedText time = localizedText("%d hr %d m", 2, 46);
  EXPECT_EQ(time, "46 min, 02 h");
  EXPECT_EQ(time.whole().key(), "%d hr %d m");
  EXPECT_EQ(time.whole().argument(0).text(), "02");
  EXPECT_EQ(time.whole().argument(1).text(), "46");

  const FormattedText north = formattedText("%0.0f°%6@", 46.0, localizedText("N"));
  const FormattedText pair = localizedText("%@, %@", north, std::string("7°"));
  EXPECT_EQ(pair, "7° / 46°  nord");
  const auto first = pair.whole().argument(0);
  EXPECT_EQ(first.text(), "46°  nord");
  EXPECT_EQ(first.key(), "%0.0f°%6@");
  EXPECT_EQ(first.argument(1).text(), "nord");
  EXPECT_EQ(first.argument(1).key(), "N");
}

TEST(FormattedText, HasRoomForTenArguments) {
  const FormattedText four = formattedText("%d%d%d%d", 1, 2, 3, 4);
  const FormattedText text = formattedText("%@ %@ %@", four, four, four);
  EXPECT_EQ(text, "1234 1234 1234");
  EXPECT_EQ(text.whole().argument(1).argument(3).text(), "4");
  EXPECT_EQ(text.whole().argument(2).text(), "");
  const std::string tooLong(70000, 'x');
  EXPECT_EQ(formattedText("%@%d", tooLong, 7).whole().argument(1).text(), "");
}

TEST(FormattedText, IsAnotherOneWhenAnotherFormatPrintedTheSame) {
  EXPECT_NE(formattedText("%d m", 9), formattedText("%0.0f m", 9.0));
  UILabel label;
  label.setText(formattedText("%d m", 9));
  label.setText(formattedText("%0.0f m", 9.0));
  EXPECT_EQ(label.text(), "9 m");
  EXPECT_EQ(label.text()->whole().key(), "%0.0f m");
  label.setText("9 m");
  EXPECT_EQ(label.text()->whole().key(), "");
}

}  // namespace
}  // namespace wayfell
