// A text in a font.
#pragma once

#include <optional>
#include <utility>

#include "platform/FormattedText.h"
#include "platform/UIView.h"

namespace wayfell {

struct UIFont {
  double pointSize = 17;
  bool bold = false;

  static UIFont systemFontOfSize(double size) { return {size, false}; }
  static UIFont boldSystemFontOfSize(double size) { return {size, true}; }
  friend bool operator==(const UIFont&, const UIFont&) = default;
};

enum class NSTextAlignment { left = 0, center = 1, right = 2, natural = 4 };

class UILabel : public UIView {
 public:
  /// None until a text is set; setting none empties the label.
  const std::optional<FormattedText>& text() const { return text_; }
  void setText(std::optional<FormattedText> text) { change(text_, std::move(text)); }

  const UIFont& font() const { return font_; }
  void setFont(const UIFont& font) { change(font_, font); }

  NSTextAlignment textAlignment() const { return textAlignment_; }
  void setTextAlignment(NSTextAlignment alignment) { change(textAlignment_, alignment); }

 private:
  std::optional<FormattedText> text_;
  UIFont font_;
  NSTextAlignment textAlignment_ = NSTextAlignment::natural;
};

}  // namespace wayfell
