// Comma-separated values (RFC 4180) record by record: fields may be quoted, and then hold commas,
// line breaks and doubled quotation marks. Lines end in "\n" or "\r\n".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/text/InputBytes.h"

namespace wayfell {

class CsvRecords {
 public:
  static constexpr std::size_t kLongestRecord = std::size_t{1} << 20U;  // bytes

  explicit CsvRecords(InputBytes input) : input_(std::move(input)) {}

  /// Goes to the next record that is not a blank line; false at the end. Throws InputError for a
  /// quotation mark that is never closed, and for a record over kLongestRecord.
  bool next();
  /// A field of the current record; valid until the next record.
  std::size_t size() const { return ends_.size(); }
  std::string_view field(std::size_t number) const;
  /// Where the current record begins, counted from 1.
  std::size_t line() const { return line_; }

 private:
  enum class State { fieldStart, plain, quoted, quoteInQuoted };

  bool readRecord();
  bool take(char c);
  void endField();
  void endRecord();
  [[noreturn]] void fail(const std::string& what) const;

  InputBytes input_;
  std::string text_;               // all fields, one after the other
  std::vector<std::size_t> ends_;  // where each field ends in it
  State state_ = State::fieldStart;
  std::size_t line_ = 0;
  std::size_t nextLine_ = 1;
};

}  // namespace wayfell
