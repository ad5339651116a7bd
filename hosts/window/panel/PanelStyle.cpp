#include "hosts/window/panel/PanelStyle.h"

#include <algorithm>

namespace wayfell {
namespace {

// What shows through of the brightest or darkest thing behind leaves values their contrast.
constexpr int kTranslucentAlpha = 225;  // of 255

struct Palette {
  QRgb backing;
  QRgb edge;
  QRgb value;
  QRgb caption;
  QRgb field;
  QRgb pointer;
  QRgb mark;
  QRgb plate;
  QRgb plateText;
  QRgb chosen;
  QRgb focus;
};

constexpr Palette kDark = {
    .backing = 0xFF12171B,
    .edge = 0xFF3B454D,
    .value = 0xFFF4F6F2,
    .caption = 0xFFA9B6BD,
    .field = 0xFF2A343B,
    .pointer = 0xFFFFC145,
    .mark = 0xFFFF7A66,
    .plate = 0xFF34424B,
    .plateText = 0xFFF4F6F2,
    .chosen = 0xFFFFC145,
    .focus = 0xFF8FD3FF,
};

constexpr Palette kLight = {
    .backing = 0xFFF6F4EE,
    .edge = 0xFFB9B6AC,
    .value = 0xFF12171B,
    .caption = 0xFF48525A,
    .field = 0xFFE3E0D6,
    .pointer = 0xFF683200,
    .mark = 0xFFB3261E,
    .plate = 0xFF2B3A44,
    .plateText = 0xFFFFFFFF,
    .chosen = 0xFFFFC145,
    .focus = 0xFF0055B8,
};

constexpr Palette kSunlight = {
    .backing = 0xFFFFFFFF,
    .edge = 0xFF000000,
    .value = 0xFF000000,
    .caption = 0xFF1C1C1C,
    .field = 0xFFFFFFFF,
    .pointer = 0xFF0A2FA8,
    .mark = 0xFFA30000,
    .plate = 0xFF000000,
    .plateText = 0xFFFFFFFF,
    .chosen = 0xFFFFD21F,
    .focus = 0xFF0A2FA8,
};

const Palette& paletteOf(PanelStyle::Theme theme) {
  switch (theme) {
    case PanelStyle::light:
      return kLight;
    case PanelStyle::sunlight:
      return kSunlight;
    case PanelStyle::dark:
      break;
  }
  return kDark;
}

}  // namespace

void PanelStyle::setFontScale(double scale) {
  change(fontScale_, std::clamp(scale, 1.0, kGreatestFontScale));
}

QColor PanelStyle::backing() const {
  QColor color = paletteOf(theme_).backing;
  if (translucent_ && theme_ != sunlight) color.setAlpha(kTranslucentAlpha);
  return color;
}
QColor PanelStyle::edge() const { return paletteOf(theme_).edge; }
QColor PanelStyle::value() const { return paletteOf(theme_).value; }
QColor PanelStyle::caption() const { return paletteOf(theme_).caption; }
QColor PanelStyle::field() const { return paletteOf(theme_).field; }
QColor PanelStyle::pointer() const { return paletteOf(theme_).pointer; }
QColor PanelStyle::mark() const { return paletteOf(theme_).mark; }
QColor PanelStyle::plate() const { return paletteOf(theme_).plate; }
QColor PanelStyle::plateText() const { return paletteOf(theme_).plateText; }
QColor PanelStyle::chosen() const { return paletteOf(theme_).chosen; }
QColor PanelStyle::focus() const { return paletteOf(theme_).focus; }

}  // namespace wayfell
