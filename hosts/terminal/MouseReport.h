// What a terminal sends for the mouse, byte by byte after what introduces it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace wayfell {

/// With the left button, from 0/0 in the upper left corner.
struct Click {
  int row = 0;
  int column = 0;
  friend bool operator==(const Click&, const Click&) = default;
};

class MouseReport {
 public:
  /// Asks the terminal for reports: in Sgr where it knows it, and else in X10, which xterm and its
  /// likes all know.
  static constexpr std::string_view kOn = "\033[?1000h\033[?1006h";
  static constexpr std::string_view kOff = "\033[?1006l\033[?1000l";

  enum class Form {
    sgr,  ///< introduced by "\033[<"; numbers, and "M" for a press or "m" for a release
    x10,  ///< introduced by "\033[M"; three bytes, each a number and 32
  };
  static constexpr const char* kSgrStart = "\033[<";
  static constexpr const char* kX10Start = "\033[M";

  explicit MouseReport(Form form) : form_(form) {}

  /// Takes the next byte. Returns whether the report is now at its end.
  bool take(int byte);
  /// A report that is at its end: a press of the left button, or none for all else.
  std::optional<Click> click() const;

 private:
  Form form_;
  std::array<int, 3> numbers_{};  // button, column, row; the latter two from 1
  std::size_t complete_ = 0;      // of them, and of any more
  bool press_ = false;
};

}  // namespace wayfell
