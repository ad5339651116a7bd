#include "hosts/terminal/HostLines.h"

#include <algorithm>
#include <utility>

#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr int kBadge = 1;  // where it begins
constexpr int kText = 2;   // where the texts below it begin
constexpr int kRight = 1;  // columns kept free at the right end
constexpr int kGap = 2;
constexpr int kLeastTold = 10;  // columns that are worth being shown of a message

TextRow titleRow(const Scene::Lines& scene, int end) {
  TextRow row = {{kBadge, " " + badgeText(scene.kind) + " ", TextStyle::badge}};
  const int title = endOf(row) + 1;
  const std::string state = fitted(scene.state, end - title);
  const int room = end - columnsOf(state) - kGap - title;
  if (room > 0) row.push_back({title, fitted(printable(scene.title), room), TextStyle::plain});
  appendBefore(row, end, state, TextStyle::button);
  return row;
}

// In at most so many rows, cut if it takes more.
void addWrapped(std::vector<TextRow>& rows, const std::string& text, TextStyle style, int columns,
                int mostRows) {
  std::vector<std::string> lines = wrapped(text, columns);
  const auto most = static_cast<std::size_t>(mostRows);
  if (lines.size() > most) {
    lines[most - 1] = fitted(lines[most - 1] + " " + lines[most], columns);
    lines.resize(most);
  }
  for (std::string& line : lines) rows.push_back({{kText, std::move(line), style}});
}

std::string firstThatFits(const std::vector<std::string>& texts, int columns) {
  for (const std::string& text : texts) {
    if (columnsOf(text) <= columns) return text;
  }
  return "";
}

// In one row.
void addBeside(std::vector<TextRow>& rows, const std::string& told, const std::string& warning,
               int end) {
  const int room = end - kText;
  const std::string right = fitted(warning, room);
  TextRow& row = rows.emplace_back();
  if (const int left = room - columnsOf(right) - kGap;
      left >= std::min(kLeastTold, columnsOf(told))) {
    row.push_back({kText, fitted(told, left), TextStyle::remark});
  }
  appendBefore(row, end, right, TextStyle::warning);
}

}  // namespace

int leastRowsOf(const HostLines& lines) {
  return 2 + (lines.scene.note.empty() ? 0 : 1) + (lines.scene.credit.empty() ? 0 : 1);
}

std::vector<TextRow> composeHostLines(const HostLines& lines, int columns, int mostRows) {
  const int end = std::max(columns - kRight, kText + 2);
  const int room = end - kText;
  const int most =
      std::max(1, mostRows - leastRowsOf(lines) + 1);  // for what is told and warned of
  const std::string warning = printable(lines.scene.warning);
  const int beside = warning.empty() ? room : room - columnsOf(warning) - kGap;
  std::string told = printable(lines.message);
  if (told.empty()) told = firstThatFits(lines.hints, beside);
  if (told.empty() && most > 1) told = firstThatFits(lines.hints, room);

  std::vector<TextRow> rows = {titleRow(lines.scene, end)};
  if (warning.empty()) {
    addWrapped(rows, told, TextStyle::remark, room, most);
  } else if (columnsOf(told) <= beside || most == 1) {
    addBeside(rows, told, warning, end);
  } else if (told.empty()) {
    addWrapped(rows, warning, TextStyle::warning, room, most);
  } else {
    const int forWarning = std::min(static_cast<int>(wrapped(warning, room).size()), most - 1);
    addWrapped(rows, told, TextStyle::remark, room, most - forWarning);
    addWrapped(rows, warning, TextStyle::warning, room, forWarning);
  }
  for (const std::string* const text : {&lines.scene.note, &lines.scene.credit}) {
    if (!text->empty()) {
      rows.push_back({{kText, fitted(printable(*text), room), TextStyle::remark}});
    }
  }
  return rows;
}

}  // namespace wayfell
