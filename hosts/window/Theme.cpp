#include "hosts/window/Theme.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <iterator>

namespace wayfell {
namespace {

bool desktopIsDark() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

bool isTheme(std::string_view name) {
  return std::find(kThemes.begin(), kThemes.end(), name) != kThemes.end();
}

}  // namespace

Theme::Theme(PanelStyle& style, WindowMemory& memory, const std::string& wished)
    : style_(style), memory_(memory) {
  const std::string kept = memory_.theme().value_or("");
  name_ = isTheme(kept) ? kept : std::string(kThemes.front());
  if (isTheme(wished)) choose(wished);
  apply();
}

void Theme::next() {
  const auto* const present = std::find(kThemes.begin(), kThemes.end(), name_);
  choose(kThemes.at(static_cast<std::size_t>(present - kThemes.begin() + 1) % kThemes.size()));
  apply();
}

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
