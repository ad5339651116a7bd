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
        EXPECT_GE(contrast(style.dim(), backing), 4.5);
        EXPECT_LE(contrast(style.dim(), backing), contrast(style.value(), backing) / 2);
        EXPECT_GE(contrast(style.caption(), backing), theme == PanelStyle::sunlight ? 7 : 4.5);
        EXPECT_GE(contrast(style.mark(), backing), 3);
        EXPECT_GE(contrast(style.focus(), backing), 3);
      }
      EXPECT_GE(contrast(style.value(), style.field()), 7);
      EXPECT_GE(contrast(style.dim(), style.field()), 4.5);
      EXPECT_GE(contrast(style.mark(), style.field()), 3);
      EXPECT_GE(contrast(style.plateText(), style.plate()), 7);
      EXPECT_GE(contrast(Qt::black, style.chosen()), 7);
    }
  }
}

TEST(PanelStyle, GrowsWithItsWidthAndWithWhatIsWished) {
  struct Case {
    double width, fontScale, unit;
  };
  const Case cases[] = {
      {280, 1, 1}, {359, 1, 1},     {280, 2, 1}, {359, 1.2, 1.2}, {359, 2, 359 / 280.0},
      {560, 2, 2}, {538.5, 1, 1.5}, {718, 1, 2}, {718, 1.5, 2},   {1436, 1, 2},
  };
  for (const auto& [width, fontScale, unit] : cases) {
    PanelStyle style;
    style.setWidth(width);
    style.setFontScale(fontScale);
    EXPECT_DOUBLE_EQ(style.unit(), unit) << width << ", fonts x " << fontScale;
  }
}

}  // namespace
}  // namespace wayfell
