#include "hosts/terminal/CellRows.h"

#include <algorithm>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr int kGap = 2;            // where there is room
constexpr int kLeastGap = 1;       // between two cells, and between a caption and its value
constexpr int kLeastCaptions = 4;  // of so many columns one is a caption's, if it has to be cut

int widthOf(const PanelCell& cell) {
  return columnsOf(cell.caption) + kLeastGap + columnsOf(cell.value);
}

bool fitBeside(const PanelCell& left, const PanelCell& right, int columns) {
  return widthOf(left) + kLeastGap + widthOf(right) <= columns;
}

PanelCell withCaption(PanelCell cell, int columns) {
  cell.caption = fitted(cell.caption, columns);
  return cell;
}

// The caption at the left end of the columns and the value at the right.
void addCell(TextRow& row, const PanelCell& cell, int column, int columns) {
  row.push_back({column, cell.caption, TextStyle::caption});
  row.push_back({column + columns - columnsOf(cell.value), cell.value, cell.style});
}

// Either may take what the other does not need.
TextRow besideEachOther(const PanelCell& left, const PanelCell& right, int columns) {
  const int half = (columns - kGap) / 2;
  const int most = columns - kLeastGap;
  const int forRight = std::max(widthOf(right), std::min(half, most - widthOf(left)));
  const int forLeft = std::min(std::max(half, widthOf(left)), most - forRight);
  TextRow row;
  addCell(row, left, 0, forLeft);
  addCell(row, right, columns - forRight, forRight);
  return row;
}

// One cell, in a row if its value leaves room for some of the caption.
void addRows(std::vector<TextRow>& rows, const PanelCell& cell, int columns) {
  const int room = columns - columnsOf(cell.value) - kLeastGap;
  if (room >= std::min(columnsOf(cell.caption), columns / kLeastCaptions)) {
    addCell(rows.emplace_back(), withCaption(cell, room), 0, columns);
    return;
  }
  rows.push_back({{0, fitted(cell.caption, columns), TextStyle::caption}});
  for (const std::string& line : wrapped(cell.value, columns))
    rows.push_back({{0, line, cell.style}});
}

std::optional<LargeText> largeOrPlain(const std::string& value, int columns) {
  LargeText text = largeText(value);
  if (text.columns <= columns) return text;
  if (columnsOf(value) > columns) return std::nullopt;
  return LargeText{{"", "", value}, columns};
}

}  // namespace

std::vector<TextRow> cellRows(const PanelCell& left, const PanelCell& right, int columns) {
  if (fitBeside(left, right, columns)) return {besideEachOther(left, right, columns)};
  const int caption = columns / kLeastCaptions;
  const PanelCell shortLeft = withCaption(left, caption);
  const PanelCell shortRight = withCaption(right, caption);
  if (fitBeside(shortLeft, shortRight, columns)) {
    return {besideEachOther(shortLeft, shortRight, columns)};
  }
  std::vector<TextRow> rows;
  addRows(rows, left, columns);
  addRows(rows, right, columns);
  return rows;
}

std::optional<std::vector<TextRow>> largeCellRows(const PanelCell& left, const PanelCell& right,
                                                  const std::optional<CellPicture>& picture,
                                                  int columns) {
  const int half = (columns - kGap) / 2;
  const int second = half + kGap;
  const int pictureColumns = picture ? picture->text.columns + kLeastGap : 0;
  const auto first = largeOrPlain(left.value, half);
  const auto last = largeOrPlain(right.value, columns - second - pictureColumns);
  if (!first || !last) return std::nullopt;

  std::vector<TextRow> rows = {{{0, fitted(left.caption, half), TextStyle::caption},
                                {second, fitted(right.caption, half), TextStyle::caption}}};
  for (std::size_t i = 0; i < kLargeRows; ++i) {
    TextRow& row = rows.emplace_back();
    row = {{0, first->rows[i], left.style}, {second, last->rows[i], right.style}};
    if (picture) appendBefore(row, columns, picture->text.rows[i], picture->style);
  }
  return rows;
}

}  // namespace wayfell
