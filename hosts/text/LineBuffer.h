// Puts lines together from bytes as they arrive, in whatever pieces. Memory is bounded: a line
// that is too long is passed over up to its end.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

class LineBuffer {
 public:
  static constexpr std::size_t kLongestLine = std::size_t{1} << 16U;  // bytes

  void append(std::string_view bytes);
  /// The next whole line without its end ("\n" or "\r\n"); none until more bytes come. It stays
  /// valid until bytes are appended.
  std::optional<std::string_view> next();
  /// Forgets what has been appended.
  void clear();

 private:
  std::string bytes_;
  std::size_t start_ = 0;    // where the next line begins
  std::size_t scanned_ = 0;  // no line ends before this
  bool passingOver_ = false;
};

}  // namespace wayfell
