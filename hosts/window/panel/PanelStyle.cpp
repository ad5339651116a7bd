#include "hosts/window/panel/PanelStyle.h"

#include <QFontMetricsF>
#include <algorithm>

#include "hosts/window/panel/DisplayedText.h"

namespace wayfell {
namespace {

// What shows through of the brightest or darkest thing behind leaves values their contrast.
constexpr int kTranslucentAlpha = 225;  // of 255

struct Colors {
  QRgb dark, light, sunlight;
};

constexpr Colors kBacking = {0xFF12171B, 0xFFF6F4EE, 0xFFFFFFFF};
constexpr Colors kEdge = {0xFF3B454D, 0xFFB9B6AC, 0xFF000000};
constexpr Colors kValue = {0xFFF4F6F2, 0xFF12171B, 0xFF000000};
constexpr Colors kDim = {0xFF9AA5AC, 0xFF565D64, 0xFF6B6B6B};
constexpr Colors kCaption = {0xFFA9B6BD, 0xFF48525A, 0xFF1C1C1C};
constexpr Colors kField = {0xFF2A343B, 0xFFE3E0D6, 0xFFFFFFFF};
constexpr Colors kPointer = {0xFFFFC145, 0xFF683200, 0xFF0A2FA8};
constexpr Colors kMark = {0xFFFF7A66, 0xFFB3261E, 0xFFA30000};
constexpr Colors kPlate = {0xFF34424B, 0xFF2B3A44, 0xFF000000};
constexpr Colors kPlateText = {0xFFF4F6F2, 0xFFFFFFFF, 0xFFFFFFFF};
constexpr Colors kChosen = {0xFFFFC145, 0xFFFFC145, 0xFFFFD21F};
constexpr Colors kFocus = {0xFF8FD3FF, 0xFF0055B8, 0xFF0A2FA8};

QColor of(const Colors& colors, PanelStyle::Theme theme) {
  if (theme == PanelStyle::light) return colors.light;
  return theme == PanelStyle::sunlight ? colors.sunlight : colors.dark;
}

}  // namespace

void PanelStyle::setFontScale(double scale) {
  change(fontScale_, std::clamp(scale, 1.0, kGreatestFontScale));
}

QString PanelStyle::isolated(const QString& text) { return withNumbersIsolated(text); }

// Measured large; small letters, which are fitted to pixels, may be a little wider.
double PanelStyle::widthAtOnePoint(const QString& text, bool bold) {
  constexpr int kMeasured = 200;
  constexpr double kFitted = 1.015;
  QFont font;
  font.setPixelSize(kMeasured);
  font.setBold(bold);
  return QFontMetricsF(font).horizontalAdvance(text) / kMeasured * kFitted;
}

double PanelStyle::unit() const {
  const double wished = std::min(fontScale_, width_ / kNarrowest);
  return std::clamp(std::max(wished, width_ / kUsualWidth), 1.0, kGreatestFontScale);
}

QColor PanelStyle::backing() const {
  QColor color = of(kBacking, theme_);
  if (translucent_ && theme_ != sunlight) color.setAlpha(kTranslucentAlpha);
  return color;
}
QColor PanelStyle::edge() const { return of(kEdge, theme_); }
QColor PanelStyle::value() const { return of(kValue, theme_); }
QColor PanelStyle::dim() const { return of(kDim, theme_); }
QColor PanelStyle::caption() const { return of(kCaption, theme_); }
QColor PanelStyle::field() const { return of(kField, theme_); }
QColor PanelStyle::pointer() const { return of(kPointer, theme_); }
QColor PanelStyle::mark() const { return of(kMark, theme_); }
QColor PanelStyle::plate() const { return of(kPlate, theme_); }
QColor PanelStyle::plateText() const { return of(kPlateText, theme_); }
QColor PanelStyle::chosen() const { return of(kChosen, theme_); }
QColor PanelStyle::focus() const { return of(kFocus, theme_); }

}  // namespace wayfell
