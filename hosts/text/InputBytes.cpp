#include "hosts/text/InputBytes.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "hosts/text/InputError.h"

namespace wayfell {

ByteSource bytesOfFile(int fileDescriptor) {
  return [fileDescriptor](char* buffer, std::size_t size) {
    ssize_t count = -1;
    do {
      count = ::read(fileDescriptor, buffer, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) throw InputError(std::string("cannot be read: ") + std::strerror(errno));
    return static_cast<std::size_t>(count);
  };
}

ByteSource bytesOfText(std::string_view text) {
  return [text](char* buffer, std::size_t size) mutable {
    const std::size_t count = text.copy(buffer, size);
    text.remove_prefix(count);
    return count;
  };
}

std::string_view InputBytes::peek(std::size_t count) {
  while (end_ - position_ < count) {
    std::copy(buffer_.data() + position_, buffer_.data() + end_, buffer_.data());
    end_ -= position_;
    position_ = 0;
    const std::size_t more = source_(buffer_.data() + end_, buffer_.size() - end_);
    if (more == 0) break;
    end_ += more;
  }
  return {buffer_.data() + position_, end_ - position_};
}

std::string InputBytes::readAll(std::size_t limit) {
  std::string all;
  for (std::string_view next = peek(); !next.empty(); next = peek()) {
    if (all.size() + next.size() > limit) {
      throw InputError("longer than " + std::to_string(limit >> 20U) + " MiB");
    }
    all += next;
    skip(next.size());
  }
  return all;
}

}  // namespace wayfell
