#include "hosts/window/panel/ShownRow.h"

#include <utility>

namespace wayfell {

void ShownRow::take(const PanelReading::Row& row, std::string said) {
  if (row == row_ && said == said_) return;
  row_ = row;
  said_ = std::move(said);
  emit changed();
}

}  // namespace wayfell
