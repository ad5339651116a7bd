// A distance that places one view relative to another.
#pragma once

#include <functional>
#include <optional>
#include <utility>

namespace wayfell {

class NSLayoutConstraint {
 public:
  /// Points; none until a program sets it, while the interface's own value holds.
  std::optional<double> constant() const { return constant_; }
  void setConstant(double constant) {
    if (constant_ == constant) return;
    constant_ = constant;
    if (onChange_) onChange_();
  }

  /// For hosts: called after each change.
  void setObserver(std::function<void()> onChange) { onChange_ = std::move(onChange); }

 private:
  std::optional<double> constant_;
  std::function<void()> onChange_;
};

}  // namespace wayfell
