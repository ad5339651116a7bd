// A row of segments, one of which is selected.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/UIView.h"

namespace wayfell {

class UISegmentedControl : public UIView {
 public:
  using Action = std::function<void(UISegmentedControl*)>;
  static constexpr int kNoSegment = -1;

  explicit UISegmentedControl(std::size_t segments) : titles_(segments) {}

  std::size_t numberOfSegments() const { return titles_.size(); }
  const std::string& titleForSegmentAtIndex(std::size_t segment) const {
    return titles_.at(segment);
  }
  void setTitleForSegmentAtIndex(std::string title, std::size_t segment) {
    change(titles_.at(segment), std::move(title));
  }

  /// A number that no segment has selects none.
  int selectedSegmentIndex() const { return selected_; }
  /// Selects without telling the targets, as a program does.
  void setSelectedSegmentIndex(int segment) { change(selected_, segment); }

  /// The action of the value-changed event.
  void addTargetForValueChanged(Action action) { actions_.push_back(std::move(action)); }
  /// For hosts: the user has picked a segment.
  void pick(int segment);

  /// How the titles of selected segments are coloured, for every control.
  static const UIColor& selectedTitleColor();
  static void setSelectedTitleColor(const UIColor& color);

 private:
  std::vector<std::string> titles_;
  int selected_ = kNoSegment;
  std::vector<Action> actions_;
};

}  // namespace wayfell
