#include "hosts/text/LineBuffer.h"

namespace wayfell {

void LineBuffer::append(std::string_view bytes) {
  bytes_.erase(0, start_);
  scanned_ -= start_;
  start_ = 0;
  bytes_ += bytes;
}

std::optional<std::string_view> LineBuffer::next() {
  for (;;) {
    const std::size_t end = bytes_.find('\n', scanned_);
    if (end == std::string::npos) {
      scanned_ = bytes_.size();
      if (scanned_ - start_ > kLongestLine) passingOver_ = true;
      if (passingOver_) start_ = scanned_;
      return std::nullopt;
    }
    std::string_view line(bytes_.data() + start_, end - start_);
    start_ = scanned_ = end + 1;
    if (passingOver_ || line.size() > kLongestLine) {
      passingOver_ = false;
      continue;
    }
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
  }
}

void LineBuffer::clear() {
  bytes_.clear();
  start_ = scanned_ = 0;
  passingOver_ = false;
}

}  // namespace wayfell
