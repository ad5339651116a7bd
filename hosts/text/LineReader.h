// Reads a text line by line. Memory stays flat, however long the text and its lines are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/text/InputBytes.h"

namespace wayfell {

class LineReader {
 public:
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20U;  // bytes

  explicit LineReader(InputBytes input) : input_(std::move(input)) {}
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  /// The next line that is not blank, without its end ("\n" or "\r\n"); none after the last one.
  /// It stays valid until the next call. Throws InputError for a line over kLongestLine.
  std::optional<std::string_view> next();
  /// The next call of next() gives the same line once more.
  void putBack() { putBack_ = true; }
  /// The number of the line read last, counted from 1.
  std::size_t number() const { return number_; }

  /// Passes over the byte order mark and the blank lines at the start, and returns what follows:
  /// at least `count` bytes if there are as many.
  std::string_view peekFirstLine(std::size_t count);
  /// All the rest, unread lines only, with an empty line for each that was passed over, so that
  /// lines count alike. See InputBytes::readAll.
  std::string readAll(std::size_t limit) { return input_.readAll(limit).insert(0, number_, '\n'); }

 private:
  bool readLine();

  InputBytes input_;
  std::string_view line_;  // in the input's buffer, or in longLine_
  std::string longLine_;   // a line that does not lie in the buffer as a whole
  std::size_t number_ = 0;
  std::size_t passed_ = 0;  // bytes of the buffer that line_ lies in
  bool putBack_ = false;
};

}  // namespace wayfell
