// The colours, by their contrasts.
#include <gtest/gtest.h>

#include <cmath>

#include "hosts/window/panel/PanelStyle.h"

namespace wayfell {
namespace {

// Relative luminance and contrast as WCAG 2.1 defines them.
double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double ratio = (luminance(one) + 0.05) / (luminance(other) + 0.05);
  return std::max(ratio, 1 / ratio);
}

QColor over(const QColor& above, const QColor& below) {
  const auto mixed = [&](float a, float b) {
    return a * above.alphaF() + b * (1 - above.alphaF());
  };
  return QColor::fromRgbF(mixed(above.redF(), below.redF()), mixed(above.greenF(), below.greenF()),
                          mixed(above.blueF(), below.blueF()));
}

TEST(PanelStyle, ValuesStandOut) {
  EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 1e-9);
  for (const auto theme : {PanelStyle::dark, PanelStyle::light, PanelStyle::sunlight}) {
    for (const bool translucent : {false, true}) {
      PanelStyle style;
      style.setTheme(theme);
      style.setTranslucent(translucent);
      for (const QColor behind : {Qt::black, Qt::white}) {
        const QColor backing = over(style.backing(), behind);
        SCOPED_TRACE(testing::Message() << "theme " << theme << (translucent ? " over " : " on ")
                                        << behind.name().toStdString());
        EXPECT_GE(contrast(style.value(), backing), 7);
        EXPECT_GE(contrast(style.pointer(), backing), 7);
        EXPECT_GE(contrast(style.caption(), backing), theme == PanelStyle::sunlight ? 7 : 4.5);
        EXPECT_GE(contrast(style.mark(), backing), 3);
        EXPECT_GE(contrast(style.focus(), backing), 3);
      }
      EXPECT_GE(contrast(style.value(), style.field()), 7);
      EXPECT_GE(contrast(style.mark(), style.field()), 3);
      EXPECT_GE(contrast(style.plateText(), style.plate()), 7);
      EXPECT_GE(contrast(Qt::black, style.chosen()), 7);
    }
  }
}

}  // namespace
}  // namespace wayfell
