#include "hosts/commandline/FilledText.h"

#include <algorithm>

#include "hosts/text/TextScanner.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

// Without blanks at its end.
std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

// What stands before the last column stays as it is.
std::string filledRow(std::string_view row, int columns) {
  const std::size_t gap = row.rfind("  ");
  const std::size_t start = row.find_first_not_of(' ', gap == std::string_view::npos ? 0 : gap);
  const std::string_view before = row.substr(0, start);
  const int indent = columnsOf(before);
  return std::string(before) + filled(row.substr(start), columns - indent, repeated(" ", indent));
}

}  // namespace

std::string filled(std::string_view text, int columns, std::string_view indent) {
  std::string result;
  int used = 0;
  TextScanner scanner(text);
  while (!scanner.atEnd()) {
    const std::string_view word = scanner.word();
    scanner.take(word);
    const int width = columnsOf(word);
    if (used > 0 && used + 1 + width > columns) {
      result.append("\n").append(indent);
      used = 0;
    } else if (used > 0) {
      result += ' ';
      ++used;
    }
    result += word;
    used += width;
  }
  return result;
}

std::string filledHelp(std::string_view text, int columns) {
  std::string result;
  std::string paragraph;
  const auto endParagraph = [&] {
    if (!paragraph.empty()) result += filled(paragraph, columns) + '\n';
    paragraph.clear();
  };
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    if (!line.empty() && line.front() != ' ') {
      paragraph.append(line).append(" ");
      continue;
    }
    endParagraph();
    result += (line.empty() ? "" : filledRow(line, columns)) + '\n';
  }
  endParagraph();
  if (!result.empty()) result.pop_back();
  return result;
}

}  // namespace wayfell
