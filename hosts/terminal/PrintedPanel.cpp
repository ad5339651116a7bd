#include "hosts/terminal/PrintedPanel.h"

#include "hosts/terminal/PanelComposer.h"

namespace wayfell {

std::vector<std::string> printedPanel(const WidgetInterface& interface, std::string_view caption) {
  std::vector<std::string> lines;
  for (const TextRow& row : composePanel(readPanel(interface), {}, caption).rows) {
    lines.push_back(textOf(row));
  }
  return lines;
}

}  // namespace wayfell
