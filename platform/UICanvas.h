// What a view draws on.
#pragma once

#include "platform/UIGeometry.h"

namespace wayfell {

/// Corners of a rectangle; combine them with `|`.
enum UIRectCorner : unsigned {
  kTopLeftCorner = 1,
  kTopRightCorner = 2,
  kBottomLeftCorner = 4,
  kBottomRightCorner = 8,
};

/// A closed rectangle, some of whose corners are rounded with the given radii.
struct UIBezierPath {
  CGRect rect;
  unsigned roundedCorners = 0;
  CGSize cornerRadii;
  friend bool operator==(const UIBezierPath&, const UIBezierPath&) = default;
};

class UICanvas {
 public:
  virtual ~UICanvas() = default;
  virtual void setFillColor(const UIColor& color) = 0;
  virtual void fillPath(const UIBezierPath& path) = 0;
};

}  // namespace wayfell
