#include "hosts/terminal/PanelText.h"

#include "hosts/text/TextWidth.h"

namespace wayfell {

std::vector<std::string> panelText(const WidgetInterface& interface, std::string_view caption) {
  std::vector<std::string> lines;
  for (const PanelRow& row : composePanel(interface, {}, caption).rows) {
    std::string& line = lines.emplace_back();
    int column = 0;
    for (const PanelSpan& span : row) {
      line += repeated(" ", span.column - column) + span.text;
      column = span.column + columnsOf(span.text);
    }
  }
  return lines;
}

}  // namespace wayfell
