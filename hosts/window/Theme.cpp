#include "hosts/window/Theme.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

#include "platform/NSBundle.h"

namespace wayfell {
namespace {

bool desktopIsDark() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

// As kThemes.
constexpr std::array kNames = {textKey("dark"), textKey("light"), textKey("sunlight"),
                               textKey("as the desktop")};
static_assert(kNames.size() == kThemes.size());

std::size_t indexOf(std::string_view name) {
  return static_cast<std::size_t>(std::find(kThemes.begin(), kThemes.end(), name) -
                                  kThemes.begin());
}

bool isTheme(std::string_view name) { return indexOf(name) < kThemes.size(); }

}  // namespace

Theme::Theme(PanelStyle& style, WindowMemory& memory, const std::string& wished)
    : style_(style), memory_(memory) {
  const std::string kept = memory_.theme().value_or("");
  name_ = isTheme(kept) ? kept : std::string(kThemes.front());
  if (isTheme(wished)) choose(wished);
  apply();
}

void Theme::next() {
  choose(kThemes.at((indexOf(name_) + 1) % kThemes.size()));
  apply();
}

std::string Theme::localizedName() const { return std::string(localized(kNames[indexOf(name_)])); }

void Theme::choose(std::string_view name) {
  name_ = name;
  memory_.keepTheme(name);
}

void Theme::apply() const {
  if (name_ == "auto") {
    style_.setTheme(desktopIsDark() ? PanelStyle::dark : PanelStyle::light);
  } else if (name_ == "light") {
    style_.setTheme(PanelStyle::light);
  } else if (name_ == "sunlight") {
    style_.setTheme(PanelStyle::sunlight);
  } else {
    style_.setTheme(PanelStyle::dark);
  }
}

}  // namespace wayfell
