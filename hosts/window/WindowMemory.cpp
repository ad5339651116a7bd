#include "hosts/window/WindowMemory.h"

#include <cstdint>
#include <limits>

namespace wayfell {
namespace {

constexpr std::string_view kLeft = "hostWindowLeft";
constexpr std::string_view kTop = "hostWindowTop";
constexpr std::string_view kWidth = "hostWindowWidth";
constexpr std::string_view kTheme = "hostWindowTheme";

constexpr std::int64_t kFarthest = std::numeric_limits<std::int16_t>::max();  // as X11 has it

}  // namespace

std::optional<int> WindowMemory::number(std::string_view key) const {
  const PropertyValue* const value = store_ ? store_->find(key) : nullptr;
  const auto* const kept = value ? std::get_if<std::int64_t>(&value->storage()) : nullptr;
  if (!kept || *kept < -kFarthest || *kept > kFarthest) return std::nullopt;
  return static_cast<int>(*kept);
}

std::optional<QPoint> WindowMemory::place() const {
  const auto left = number(kLeft);
  const auto top = number(kTop);
  if (!left || !top) return std::nullopt;
  return QPoint(*left, *top);
}

std::optional<int> WindowMemory::width() const { return number(kWidth); }

std::optional<std::string> WindowMemory::theme() const {
  const PropertyValue* const value = store_ ? store_->find(kTheme) : nullptr;
  const auto* const kept = value ? std::get_if<std::string>(&value->storage()) : nullptr;
  return kept ? std::optional(*kept) : std::nullopt;
}

void WindowMemory::keep(std::optional<QPoint> place, int width) {
  if (!store_) return;
  SqliteStore::Changes changes = {{std::string(kWidth), width}};
  if (place) {
    changes.emplace(kLeft, place->x());
    changes.emplace(kTop, place->y());
  }
  store_->setAll(changes);
}

void WindowMemory::keepTheme(std::string_view theme) {
  if (store_) store_->set(kTheme, theme);
}

}  // namespace wayfell
