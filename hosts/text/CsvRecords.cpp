#include "hosts/text/CsvRecords.h"

#include "hosts/text/InputError.h"

namespace wayfell {

bool CsvRecords::next() {
  while (readRecord()) {
    const bool blank = size() == 1 && text_.find_first_not_of(" \t") == std::string::npos;
    if (!blank) return true;
  }
  return false;
}

std::string_view CsvRecords::field(std::size_t number) const {
  const std::size_t start = number == 0 ? 0 : ends_[number - 1];
  return std::string_view(text_).substr(start, ends_[number] - start);
}

bool CsvRecords::readRecord() {
  text_.clear();
  ends_.clear();
  state_ = State::fieldStart;
  line_ = nextLine_;
  bool any = false;
  for (std::string_view bytes = input_.peek(); !bytes.empty(); bytes = input_.peek()) {
    any = true;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (take(bytes[i])) {
        input_.skip(i + 1);
        return true;
      }
    }
    input_.skip(bytes.size());
    const std::size_t length = text_.size() + ends_.size();  // with the commas
    if (length > kLongestRecord) fail("longer than 1 MiB; is a quotation mark not closed?");
  }
  if (state_ == State::quoted) fail("a quotation mark is never closed");
  if (any) endRecord();
  return any;
}

// Whether the record ends with it.
bool CsvRecords::take(char c) {
  if (c == '\n') ++nextLine_;
  if (state_ == State::quoted && c == '"') {
    state_ = State::quoteInQuoted;
  } else if (state_ == State::quoted || (state_ == State::quoteInQuoted && c == '"')) {
    text_ += c;
    state_ = State::quoted;
  } else if (state_ == State::fieldStart && c == '"') {
    state_ = State::quoted;
  } else if (c == ',') {
    endField();
  } else if (c == '\n') {
    endRecord();
    return true;
  } else {
    text_ += c;
    state_ = State::plain;
  }
  return false;
}

void CsvRecords::endField() {
  ends_.push_back(text_.size());
  state_ = State::fieldStart;
}

void CsvRecords::endRecord() {
  const std::size_t start = ends_.empty() ? 0 : ends_.back();
  if (text_.size() > start && text_.back() == '\r') text_.pop_back();
  endField();
}

void CsvRecords::fail(const std::string& what) const {
  throw InputError("line " + std::to_string(line_) + ": " + what);
}

}  // namespace wayfell
