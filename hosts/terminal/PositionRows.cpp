#include "hosts/terminal/PositionRows.h"

#include <algorithm>
#include <utility>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr int kCaptionColumns = 11;  // "Longitude" and a gap
constexpr std::size_t kRows = 2;     // of two coordinates

// Without the blanks that they begin with.
std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = printable(text.substr(0, end));
    lines.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

int widestOf(const std::vector<std::string>& lines) {
  int columns = 0;
  for (const std::string& line : lines) columns = std::max(columns, columnsOf(line));
  return columns;
}

std::vector<TextRow> rowsOf(const std::vector<std::string>& lines, TextStyle style, int columns) {
  std::vector<TextRow> rows;
  for (const std::string& line : lines) {
    for (const std::string& part : wrapped(line, columns)) rows.push_back({{0, part, style}});
  }
  return rows;
}

// Captions are cut, where they must be, for the sake of values.
std::vector<TextRow> besideCaptions(std::vector<std::string> captions,
                                    std::vector<std::string> values, TextStyle style, int columns) {
  captions.resize(std::max({std::size_t{1}, captions.size(), values.size()}));
  values.resize(captions.size());
  const int column = std::clamp(widestOf(captions) + 1, kCaptionColumns,
                                std::max(kCaptionColumns, columns - widestOf(values)));
  std::vector<TextRow> rows;
  for (std::size_t i = 0; i < captions.size(); ++i) {
    for (const std::string& part : wrapped(values[i], columns - column)) {
      TextRow& row = rows.emplace_back();
      append(row, fitted(std::exchange(captions[i], ""), column - 1), TextStyle::caption);
      row.push_back({column, part, style});
    }
  }
  return rows;
}

std::vector<TextRow> apartFromCaption(const std::vector<std::string>& captions,
                                      const std::vector<std::string>& values, TextStyle style,
                                      int columns) {
  std::vector<TextRow> rows = rowsOf(values, style, columns);
  std::string caption;
  for (const std::string& line : captions) caption += (caption.empty() ? "" : " ") + line;
  caption = fitted(caption, columns);
  rows.resize(std::max(rows.size(), kRows));
  if (endOf(rows.back()) + 1 + columnsOf(caption) > columns) rows.emplace_back();
  appendBefore(rows.back(), columns, caption, TextStyle::caption);
  return rows;
}

}  // namespace

std::vector<TextRow> positionRows(const PanelReading& panel, int columns) {
  const PanelReading::Row& position = panel[PanelRow::position];
  if (!position.shown) return {};
  const std::vector<std::string> captions = linesOf(position.caption);
  std::vector<std::string> values = linesOf(position.value);
  const std::vector<std::string> zone = linesOf(panel[PanelRow::zone].value);
  values.insert(values.end(), zone.begin(), zone.end());
  const TextStyle style = position.dim ? TextStyle::stale : TextStyle::value;
  return panel.captionNamesLines ? besideCaptions(captions, values, style, columns)
                                 : apartFromCaption(captions, values, style, columns);
}

}  // namespace wayfell
