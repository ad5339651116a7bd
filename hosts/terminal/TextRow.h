// A row of texts on a screen, each at its column and with a style: what the panel and the lines
// around it are composed of before a terminal draws them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/panel/PanelKeys.h"

namespace wayfell {

/// How a text stands out.
enum class TextStyle {
  frame,
  caption,
  value,
  stale,  ///< a value, an arrow or a mark that is old, or not known yet
  dots,
  mark,
  arrow,
  format,
  chosenFormat,
  button,
  badge,
  plain,
  remark,
  warning,
};

struct TextSpan {
  int column = 0;
  std::string text;
  TextStyle style = TextStyle::value;
  std::optional<PanelRequest> request = {};  ///< what a click on the text asks for
};

/// From left to right, not overlapping; blanks between them.
using TextRow = std::vector<TextSpan>;

/// The column after the last text.
int endOf(const TextRow& row);

/// Adds a text right after the last one, or so that it ends before a column; nothing for an empty
/// one.
void append(TextRow& row, std::string text, TextStyle style,
            std::optional<PanelRequest> request = {});
void appendBefore(TextRow& row, int column, std::string text, TextStyle style);

/// Without the styles.
std::string textOf(const TextRow& row);

}  // namespace wayfell
