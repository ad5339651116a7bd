// Which of its looks the panel has: one that the user has chosen, or that of the desktop.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "hosts/window/WindowMemory.h"
#include "hosts/window/panel/PanelStyle.h"

namespace wayfell {

/// In the order in which a key goes through them. "auto" is dark or light as the desktop is.
inline constexpr std::array<std::string_view, 4> kThemes = {"dark", "light", "sunlight", "auto"};

class Theme {
 public:
  /// The one wished for, or else the one kept, or else dark. What is given must live on.
  Theme(PanelStyle& style, WindowMemory& memory, const std::string& wished);

  const std::string& name() const { return name_; }
  std::string localizedName() const;
  /// Takes the next one and keeps it.
  void next();
  /// The desktop's colours have changed.
  void desktopChanged() { apply(); }
  PanelStyle& style() const { return style_; }

 private:
  void choose(std::string_view name);
  void apply() const;

  PanelStyle& style_;
  WindowMemory& memory_;
  std::string name_;
};

}  // namespace wayfell
