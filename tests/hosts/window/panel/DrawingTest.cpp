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

TEST(CornerView, IsDrawnAnewForItsSize) {
  ReplayedWidget widget;
  widget.start();
  ShownPanel panel(widget);
  QQuickItem& corner = panel.item("cornerView");
  const auto darkness = [&](QPointF at) {
    const QPointF place = corner.mapToScene(at) * panel.window().effectiveDevicePixelRatio();
    return panel.draw().pixelColor(place.toPoint()).lightness();
  };
  panel.style().setTheme(PanelStyle::sunlight);
  EXPECT_EQ(corner.size(), QSizeF(100, 40));
  EXPECT_EQ(darkness({2, 20}), 127);  // half of white
  EXPECT_EQ(darkness({2, 38}), 127);
  corner.setSize({100, 30});
  EXPECT_EQ(darkness({2, 20}), 127);
  EXPECT_EQ(darkness({2, 38}), 255);
  EXPECT_EQ(widget.interface().view("cornerView").bounds().size, (CGSize{100, 30}));
}

CLHeading heading(double degrees) {
  CLHeading heading;
  heading.trueHeading = degrees;
  heading.headingAccuracy = 5;
  return heading;
}

// The middle of the letters on the tape that are nearest to the frame's middle, in points from it.
// Dots are dimmer than letters.
double lettersOffMark(ShownPanel& panel) {
  const QImage image = panel.draw();
  const double scale = panel.window().effectiveDevicePixelRatio();
  const QQuickItem& frame = panel.item("compassView");
  const QRectF rect(frame.mapToScene({0, 0}) * scale, frame.size() * scale);
  const QColor ink = panel.style().value();
  const auto isLetter = [&](int x) {
    for (int y = static_cast<int>(rect.top() + 8 * scale); y < rect.bottom() - scale; ++y) {
      const QColor color = image.pixelColor(x, y);
      if (std::abs(color.lightness() - ink.lightness()) < 50) return true;
    }
    return false;
  };
  double nearest = 1000;
  double first = -1;
  double last = -1;
  const auto end = [&] {
    if (first < 0) return;
    const double middle = ((first + last + 1) / 2 - rect.center().x()) / scale;
    if (std::abs(middle) < std::abs(nearest)) nearest = middle;
  };
  for (int x = static_cast<int>(rect.left() + scale); x < rect.right() - scale; ++x) {
    if (!isLetter(x)) continue;
    if (first < 0 || x - last > 8 * scale) {
      end();
      first = x;
    }
    last = x;
  }
  end();
  return nearest;
}

// What the laid-out tape has under the mark.
QString labelUnderMark(ShownPanel& panel) {
  QFont font;
  font.setPixelSize(11);
  const QString tape =
      QString::fromStdString(*panel.scene().interface().label("compassLabel").text());
  for (const TapeGlyphs& glyphs : layOutTape(tape, QFontMetricsF(font))) {
    const double place = glyphs.middle + panel.item("compassLabel").x() + 1;
    if (glyphs.text != "." && std::abs(place - 65) < 2 * 300.0 / 360) return glyphs.text;
  }
  return {};
}

struct Tape {
  const char* name;
  bool mils;
  std::vector<QString> labels;  // at 0, 45 ... 315 degrees
};

TEST(CompassTape, HasTheHeadingUnderTheMark) {
  const Tape tapes[] = {
      {"degrees", false, {"N", "45", "E", "135", "S", "225", "W", "315"}},
      {"mils", true, {"0", "800", "1600", "2400", "3200", "4000", "4800", "5600"}},
      {"German", false, {"N", "45", "O", "135", "S", "225", "W", "315"}},
      {"Finnish", false, {"P", "45", "I", "135", "E", "225", "L", "315"}},
  };
  constexpr const char* kDegreeTape =
      "...315.......N........45........E.......135.......S.......225.......W......315.......N......"
      "..45.......E.......135.....";
  for (const Tape& tape : tapes) {
    ReplayedWidget widget;
    std::string translated = kDegreeTape;
    for (char& letter : translated) {
      const std::string_view from = "NESW";
      const auto at = from.find(letter);
      if (at != std::string_view::npos) letter = tape.labels[at * 2].toStdString()[0];
    }
    widget.host().strings.translations[kDegreeTape] = translated;
    if (tape.mils) widget.apply(event::WriteSuite{{{"useMils", PropertyValue(true)}}});
    widget.start();
    ShownPanel panel(widget);
    EXPECT_EQ(panel.item("compassLabel").size(), QSizeF(430, 26));
    EXPECT_EQ(panel.item("compassLabel").mapToItem(&panel.item("compassView"), {}),
              QPointF(0, -3));  // before any heading
    for (std::size_t i = 0; i < tape.labels.size(); ++i) {
      for (const double scale : {1.0, 2.0}) {
        panel.style().setFontScale(scale);
        widget.apply(event::Turn{heading(45.0 * static_cast<double>(i))});
        EXPECT_NEAR(lettersOffMark(panel), 0, 2 * 300.0 / 360) << tape.name << " " << i;
        EXPECT_EQ(labelUnderMark(panel), tape.labels[i]) << tape.name << " " << i;
      }
    }
    const QQuickItem& mark = panel.item("compassArrowImageView");
    EXPECT_EQ(mark.mapToItem(&panel.item("compassView"), {mark.width() / 2, 0}).x(), 65);
  }
}

}  // namespace
}  // namespace wayfell
