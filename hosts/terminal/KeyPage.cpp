#include "hosts/terminal/KeyPage.h"

#include <algorithm>
#include <utility>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr int kLeft = 2;
constexpr int kGap = 2;

using Lines = std::vector<std::string> (*)(std::string_view text, int columns);

std::vector<std::string> cutLine(std::string_view text, int columns) {
  return {fitted(text, columns)};
}

void addAction(std::vector<TextRow>& rows, PanelAction action, Lines linesOf, int keyColumns,
               int columns) {
  const auto [keys, does] = helpOf(action);
  const std::vector<std::string> left = linesOf(keys, keyColumns);
  const std::vector<std::string> right = linesOf(does, columns - keyColumns - kGap);
  for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
    TextRow& row = rows.emplace_back();
    std::string key = i < left.size() ? left[i] : "";
    key += repeated(" ", keyColumns + kGap - columnsOf(key));
    row.push_back({kLeft, std::move(key), TextStyle::button, requestOf(action)});
    if (i < right.size()) append(row, right[i], TextStyle::plain, requestOf(action));
  }
}

std::vector<TextRow> rowsOf(std::span<const PanelAction> actions, Lines linesOf, int columns) {
  int keyColumns = 0;
  for (const PanelAction action : actions) {
    keyColumns = std::max(keyColumns, columnsOf(helpOf(action).keys));
  }
  keyColumns = std::min(keyColumns, columns / 2);
  std::vector<TextRow> rows;
  for (const PanelAction action : actions) addAction(rows, action, linesOf, keyColumns, columns);
  return rows;
}

}  // namespace

std::vector<TextRow> composeKeyPage(std::span<const PanelAction> actions,
                                    const std::string& lastMessage, int columns, int mostRows) {
  const int room = columns - 2 * kLeft;
  std::vector<TextRow> rows = rowsOf(actions, wrapped, room);
  if (std::ssize(rows) > mostRows) rows = rowsOf(actions, cutLine, room);
  const std::string message = printable(lastMessage);
  if (columnsOf(message) > room) {
    for (const std::string& line : wrapped(message, room)) {
      rows.push_back({{kLeft, line, TextStyle::remark}});
    }
  }
  rows.resize(std::min(rows.size(), static_cast<std::size_t>(std::max(0, mostRows))));
  return rows;
}

}  // namespace wayfell
