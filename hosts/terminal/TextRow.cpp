#include "hosts/terminal/TextRow.h"

#include <utility>

#include "hosts/text/TextWidth.h"

namespace wayfell {

int endOf(const TextRow& row) {
  return row.empty() ? 0 : row.back().column + columnsOf(row.back().text);
}

void append(TextRow& row, std::string text, TextStyle style, std::optional<PanelRequest> request) {
  if (!text.empty()) row.push_back({endOf(row), std::move(text), style, request});
}

void appendBefore(TextRow& row, int column, std::string text, TextStyle style) {
  if (!text.empty()) row.push_back({column - columnsOf(text), std::move(text), style});
}

std::string textOf(const TextRow& row) {
  std::string text;
  int column = 0;
  for (const TextSpan& span : row) {
    text += repeated(" ", span.column - column) + span.text;
    column = span.column + columnsOf(span.text);
  }
  return text;
}

}  // namespace wayfell
