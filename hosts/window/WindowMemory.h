// What the window keeps of itself between two runs, among the widget's own settings.
//
//   hostWindowLeft, hostWindowTop, hostWindowWidth   integers, in points of the screens' space
//   hostWindowTheme                                  "dark", "light", "sunlight" or "auto"
//
// What is missing or makes no sense counts as never kept.
#pragma once

#include <QPoint>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {

class WindowMemory {
 public:
  /// Without a store nothing is kept. The store must live on.
  explicit WindowMemory(SqliteStore* store) : store_(store) {}

  std::optional<QPoint> place() const;
  std::optional<int> width() const;
  std::optional<std::string> theme() const;

  /// No place where the platform does not tell it.
  void keep(std::optional<QPoint> place, int width);
  void keepTheme(std::string_view theme);

 private:
  std::optional<int> number(std::string_view key) const;

  SqliteStore* store_;
};

}  // namespace wayfell
