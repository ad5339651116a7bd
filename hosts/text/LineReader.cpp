#include "hosts/text/LineReader.h"

#include "hosts/text/InputError.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

std::optional<std::string_view> LineReader::next() {
  if (putBack_) {
    putBack_ = false;
    return line_;
  }
  while (readLine()) {
    if (line_.find_first_not_of(kBlanks) != std::string_view::npos) return line_;
  }
  return std::nullopt;
}

bool LineReader::readLine() {
  input_.skip(passed_);
  passed_ = 0;
  longLine_.clear();
  std::string_view bytes = input_.peek();
  if (bytes.empty()) return false;
  ++number_;
  std::size_t end = bytes.find('\n');
  while (end == std::string_view::npos && !bytes.empty()) {
    if (longLine_.size() + bytes.size() > kLongestLine) {
      throw InputError("line " + std::to_string(number_) + ": longer than 1 MiB");
    }
    longLine_ += bytes;
    input_.skip(bytes.size());
    bytes = input_.peek();
    end = bytes.find('\n');
  }
  const std::string_view last = bytes.substr(0, end);
  passed_ = end == std::string_view::npos ? bytes.size() : end + 1;
  if (longLine_.empty()) {
    line_ = last;
  } else {
    longLine_ += last;
    line_ = longLine_;
  }
  if (!line_.empty() && line_.back() == '\r') line_.remove_suffix(1);
  return true;
}

std::string_view LineReader::peekFirstLine(std::size_t count) {
  if (input_.peek(kByteOrderMark.size()).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    input_.skip(kByteOrderMark.size());
  }
  for (std::string_view bytes = input_.peek(); !bytes.empty(); bytes = input_.peek()) {
    if (kBlanks.find(bytes.front()) == std::string_view::npos) return input_.peek(count);
    if (bytes.front() == '\n') ++number_;
    input_.skip(1);
  }
  return {};
}

}  // namespace wayfell
