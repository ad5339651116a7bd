#include "hosts/terminal/PrintedPanel.h"

#include "hosts/terminal/PanelComposer.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {

std::vector<std::string> printedPanel(const WidgetInterface& interface, std::string_view caption) {
  std::vector<std::string> lines;
  for (const TextRow& row : composePanel(readPanel(interface), {}, caption).rows) {
    std::string& line = lines.emplace_back();
    int column = 0;
    for (const TextSpan& span : row) {
      line += repeated(" ", span.column - column) + span.text;
      column = span.column + columnsOf(span.text);
    }
  }
  return lines;
}

}  // namespace wayfell
