#include "hosts/replay/PassedOver.h"

#include <algorithm>

#include "platform/NSBundle.h"

namespace wayfell {

void NotedLines::add(std::size_t line) {
  first_ = count_ == 0 ? line : std::min(first_, line);
  ++count_;
}

std::string NotedLines::text() const {
  if (count_ == 1) return localizedStringWithFormat("(line %d)", first_);
  return localizedStringWithFormat("(line %d and %d more)", first_, count_ - 1);
}

std::vector<std::pair<std::string, NotedLines>> PassedOver::sorted() const {
  std::vector<std::pair<std::string, NotedLines>> sorted(reasons_.begin(), reasons_.end());
  std::sort(sorted.begin(), sorted.end(), [](const auto& one, const auto& other) {
    return one.second.first() < other.second.first();
  });
  return sorted;
}

std::optional<std::size_t> PassedOver::firstLine() const {
  return reasons_.empty() ? std::nullopt : std::optional(sorted().front().second.first());
}

std::optional<std::string> PassedOver::note() const {
  if (reasons_.empty()) return std::nullopt;
  std::size_t all = 0;
  std::string list;
  for (const auto& [reason, lines] : sorted()) {
    all += lines.count();
    // Translators: between the items of a list.
    if (!list.empty()) list += localized(", ");
    list += localizedStringWithFormat(reason, lines.count(), lines.text());
  }
  return all == 1 ? localizedStringWithFormat(one_, list)
                  : localizedStringWithFormat(several_, all, list);
}

}  // namespace wayfell
