// Sizes in points, with y growing downwards.
#pragma once

namespace wayfell {

struct CGPoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
  double width = 0;
  double height = 0;
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  friend bool operator==(const CGRect&, const CGRect&) = default;
};

/// A rotation in radians, the only transform this system uses.
struct CGAffineTransform {
  double rotation = 0;
  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

/// Each component from 0 to 1.
struct UIColor {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  friend bool operator==(const UIColor&, const UIColor&) = default;
};

inline constexpr UIColor kBlackColor{0, 0, 0, 1};

}  // namespace wayfell
