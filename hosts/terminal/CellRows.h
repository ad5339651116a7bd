// Two values with their captions, beside each other: "Altitude 402 m  Pace 08:19 /km".
//
// A value is never cut. Where two cells do not fit beside each other, their captions are cut, and
// where that does not do one cell stands below the other.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/terminal/LargeText.h"
#include "hosts/terminal/TextRow.h"

namespace wayfell {

struct PanelCell {
  std::string caption;
  std::string value;
  TextStyle style = TextStyle::value;  ///< the value's
};

/// The texts are printable.
std::vector<TextRow> cellRows(const PanelCell& left, const PanelCell& right, int columns);

/// Stands at the right end of large cells.
struct CellPicture {
  LargeText text;
  TextStyle style = TextStyle::arrow;
};

/// The captions, and below them the values three rows high, or plain where large digits have no
/// room. None where a value has no room even so.
std::optional<std::vector<TextRow>> largeCellRows(const PanelCell& left, const PanelCell& right,
                                                  const std::optional<CellPicture>& picture,
                                                  int columns);

}  // namespace wayfell
