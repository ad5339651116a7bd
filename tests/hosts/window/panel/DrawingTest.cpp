// What is painted, by its pixels.
#include <gtest/gtest.h>

#include <cmath>

#include "ShownPanel.h"

namespace wayfell {
namespace {

// In a view of 100 x 40 points the top left and the bottom right corner are rounded with 4 points:
// a point at 1/2, 1/2 is 4.9 from the middle of the arc and so outside, one at 1.5, 1.5 is 3.5 from
// it.
TEST(CornerView, IsBlackAtHalfOpacityWithTwoRoundedCorners) {
  ReplayedWidget widget;
  widget.start();
  ShownPanel panel(widget);
  QQuickItem& corner = panel.item("corner");
  panel.style().setTheme(PanelStyle::sunlight);
  const auto lightness = [&](double x, double y) {
    const QPointF place = corner.mapToScene({x, y}) * panel.window().effectiveDevicePixelRatio();
    return panel.draw().pixelColor(place.toPoint()).lightness();
  };
  constexpr int kHalfOfWhite = 127;
  for (const double height : {40.0, 30.0}) {
    corner.setSize({100, height});
    corner.setPosition({200, 244});  // where there is nothing but white
    EXPECT_GT(lightness(0, 0), 200);
    EXPECT_GT(lightness(99, height - 1), 200);
    for (const QPointF inside : {QPointF(99, 0), {0, height - 1}, {2, 2}, {97, height - 3}}) {
      EXPECT_EQ(lightness(inside.x(), inside.y()), kHalfOfWhite) << inside.x() << " " << height;
    }
  }
}

// The letters on the tape that are no further than 15 points from the frame's middle, in points
// from it. Dots are dimmer than letters, and the next label is 37.5 points on.
struct Letters {
  double middle;
  double width;
};
Letters lettersAtMark(ShownPanel& panel) {
  const QImage image = panel.draw();
  const double scale = panel.window().effectiveDevicePixelRatio() * panel.style().unit();
  const QQuickItem& frame = panel.item("tapeFrame");
  const QRectF rect(frame.mapToScene({0, 0}) * panel.window().effectiveDevicePixelRatio(),
                    frame.size() * panel.window().effectiveDevicePixelRatio());
  const int ink = panel.style().value().lightness();
  const QRectF searched = rect.adjusted(50 * scale, 8 * scale, -50 * scale, -scale);
  double first = searched.right();
  double last = searched.left();
  for (int x = static_cast<int>(searched.left()); x < searched.right(); ++x) {
    for (int y = static_cast<int>(searched.top()); y < searched.bottom(); ++y) {
      if (std::abs(image.pixelColor(x, y).lightness() - ink) >= 50) continue;
      first = std::min<double>(first, x);
      last = x;
    }
  }
  return {((first + last + 1) / 2 - rect.center().x()) / scale, (last + 1 - first) / scale};
}

// What stands on the tapes at 0, 45 ... 315 degrees; in Finnish, North is pohjoinen and so on.
TEST(CompassTape, HasTheHeadingUnderTheMark) {
  constexpr const char* kDegreeTape =
      "...315.......N........45........E.......135.......S.......225.......W......315.......N......"
      "..45.......E.......135.....";
  const std::vector<QString> tapes[] = {
      {"N", "45", "E", "135", "S", "225", "W", "315"},
      {"P", "45", "I", "135", "E", "225", "L", "315"},
      {"0", "800", "1600", "2400", "3200", "4000", "4800", "5600"}};
  for (const auto& labels : tapes) {
    ReplayedWidget widget;
    std::string translated = kDegreeTape;
    for (char& letter : translated) {
      const auto at = std::string_view("NESW").find(letter);
      if (at != std::string_view::npos) letter = labels[at * 2].toStdString()[0];
    }
    widget.host().strings.translations[kDegreeTape] = translated;
    widget.apply(event::WriteSuite{{{"useMils", PropertyValue(labels[0] == "0")}}});
    widget.start();
    ShownPanel panel(widget);
    for (std::size_t i = 0; i < labels.size(); ++i) {
      for (const double scale : {1.0, 2.0}) {
        panel.style().setFontScale(scale);
        widget.apply(event::Turn{{45.0 * static_cast<double>(i), 0, 5}});
        SCOPED_TRACE(labels[i].toStdString());
        const Letters letters = lettersAtMark(panel);
        EXPECT_NEAR(letters.middle, 0, 2 * 300.0 / 360);
        EXPECT_EQ(letters.width < 14, labels[i].size() == 1) << letters.width;
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
