// A stream of bytes that can be looked at before it is read.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

/// Fills the buffer with up to `size` bytes and returns how many; 0 is the end.
using ByteSource = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Reads what is open for reading, and leaves it open. Throws InputError when reading fails.
ByteSource bytesOfFile(int fileDescriptor);
/// The text is not copied.
ByteSource bytesOfText(std::string_view text);

class InputBytes {
 public:
  explicit InputBytes(ByteSource source) : source_(std::move(source)) {}

  /// The bytes that come next: at least `count` of them if there are as many, and none at the
  /// end. They stay valid until the next call.
  std::string_view peek(std::size_t count = 1);
  /// Goes past bytes that peek has shown.
  void skip(std::size_t count) { position_ += count; }

  /// All that is left. Throws InputError when that is more than `limit` bytes.
  std::string readAll(std::size_t limit);

 private:
  ByteSource source_;
  std::vector<char> buffer_ = std::vector<char>(std::size_t{1} << 16U);
  std::size_t position_ = 0;  // where the next byte is in the buffer
  std::size_t end_ = 0;       // where the bytes in the buffer end
};

}  // namespace wayfell
