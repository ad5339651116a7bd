// What is painted, by its pixels.
#include <gtest/gtest.h>

#include <QPainter>
#include <cmath>

#include "ShownPanel.h"
#include "hosts/window/panel/CanvasPainter.h"
#include "hosts/window/panel/TapeLayout.h"
#include "widget/CornerView.h"

namespace wayfell {
namespace {

// How much of a pixel of 1/scale points lies within 100 x 40 points whose top left and bottom right
// corners are rounded with 4 points: of 16 x 16 places in it, how many do.
double coverage(int px, int py, double scale) {
  constexpr int kPlaces = 16;
  const auto inside = [](double x, double y) {
    const bool topLeft = x < 4 && y < 4;
    const bool bottomRight = x > 96 && y > 36;
    if (topLeft) return std::hypot(x - 4, y - 4) <= 4;
    if (bottomRight) return std::hypot(x - 96, y - 36) <= 4;
    return x <= 100 && y <= 40;
  };
  int covered = 0;
  for (int i = 0; i < kPlaces * kPlaces; ++i) {
    const double x = (px + (i % kPlaces + 0.5) / kPlaces) / scale;
    const double y = (py + (i / kPlaces + 0.5) / kPlaces) / scale;
    if (inside(x, y)) ++covered;
  }
  return covered / double(kPlaces * kPlaces);
}

TEST(CornerView, IsBlackAtHalfOpacityWithTwoRoundedCorners) {
  for (const int scale : {1, 2}) {
    QImage image(102 * scale, 42 * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    CanvasPainter canvas(painter);
    CornerView view;
    view.setFrame({{7, 9}, {100, 40}});
    view.drawRect(canvas, {});
    painter.end();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        // The painter's edges are as smooth as its own samples.
        ASSERT_NEAR(color.alphaF(), 0.5 * coverage(x, y, scale), 0.05) << x << ", " << y;
        ASSERT_EQ(color.red() + color.green() + color.blue(), 0) << x << ", " << y;
      }
    }
  }
}

TEST(CornerView, TakesTheSizeOfItsItem) {
  ReplayedWidget widget;
  widget.start();
  ShownPanel panel(widget);
  QQuickItem& corner = panel.item("corner");
  panel.style().setTheme(PanelStyle::sunlight);
  corner.setSize({100, 30});
  const auto lightness = [&](QPointF at) {
    const QPointF place = corner.mapToScene(at) * panel.window().effectiveDevicePixelRatio();
    return panel.draw().pixelColor(place.toPoint()).lightness();
  };
  EXPECT_EQ(lightness({2, 20}), 127);  // half of white
  EXPECT_EQ(lightness({2, 38}), 255);
}

CLHeading heading(double degrees) {
  CLHeading heading;
  heading.trueHeading = degrees;
  heading.headingAccuracy = 5;
  return heading;
}

// The middle of the letters on the tape that are no further than 15 points from the frame's middle,
// in points from it. Dots are dimmer than letters, and the next label is 37.5 points on.
double lettersOffMark(ShownPanel& panel) {
  const QImage image = panel.draw();
  const double scale = panel.window().effectiveDevicePixelRatio();
  const QQuickItem& frame = panel.item("tapeFrame");
  const QRectF rect(frame.mapToScene({0, 0}) * scale, frame.size() * scale);
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
  return ((first + last + 1) / 2 - rect.center().x()) / scale;
}

// What the laid-out tape has under the mark.
QString labelUnderMark(ShownPanel& panel) {
  QFont font;
  font.setPixelSize(11);
  const TapeReading tape = readTape(panel.adapter().tape().toStdString());
  for (const TapeGlyphs& glyphs : layOutTape(tape, QFontMetricsF(font))) {
    const double place = glyphs.middle + panel.item("tape").x() + 1;
    if (glyphs.text != "." && std::abs(place - 65) < 2 * 300.0 / 360) return glyphs.text;
  }
  return {};
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
        widget.apply(event::Turn{heading(45.0 * static_cast<double>(i))});
        EXPECT_NEAR(lettersOffMark(panel), 0, 2 * 300.0 / 360) << labels[i].toStdString();
        EXPECT_EQ(labelUnderMark(panel), labels[i]);
      }
    }
  }
}

}  // namespace
}  // namespace wayfell
