// A value as a key-value store holds it. Types stay apart: the integer 1, the boolean true, the
// real 1.0 and the text "1" are four different values. Typed reads convert:
//
//   stored      | intValue          | doubleValue  | boolValue        | stringValue
//   ------------+-------------------+--------------+------------------+----------------------
//   integer     | itself            | nearest      | not 0            | its digits
//   boolean     | 0 or 1            | 0 or 1       | itself           | "0" or "1"
//   real        | truncated,        | itself       | not 0 (NaN true) | shortest text that
//               | saturating, NaN 0 |              |                  | reads back the same
//   text        | leading number    | leading      | begins with Y, T | itself
//               |                   | number       | or a digit but 0 |
//   all others  | 0                 | 0            | false            | none
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/NSDate.h"

namespace wayfell {

class PropertyValue {
 public:
  using Data = std::vector<std::uint8_t>;
  using List = std::vector<PropertyValue>;
  using Dictionary = std::map<std::string, PropertyValue, std::less<>>;
  using Storage =
      std::variant<std::int64_t, bool, double, std::string, NSDate, Data, List, Dictionary>;

  PropertyValue(std::int64_t integer) : storage_(integer) {}
  PropertyValue(int integer) : storage_(std::int64_t{integer}) {}
  PropertyValue(bool boolean) : storage_(boolean) {}
  PropertyValue(double real) : storage_(real) {}
  PropertyValue(std::string text) : storage_(std::move(text)) {}
  PropertyValue(std::string_view text) : storage_(std::string(text)) {}
  PropertyValue(const char* text) : storage_(std::string(text)) {}
  PropertyValue(NSDate date) : storage_(date) {}
  PropertyValue(Data data) : storage_(std::move(data)) {}
  PropertyValue(List list) : storage_(std::move(list)) {}
  PropertyValue(Dictionary dictionary) : storage_(std::move(dictionary)) {}

  std::int64_t integerValue() const;
  double doubleValue() const;
  bool boolValue() const;
  std::optional<std::string> stringValue() const;
  /// The date, when it is one.
  std::optional<NSDate> dateValue() const;

  const Storage& storage() const { return storage_; }

  friend bool operator==(const PropertyValue&, const PropertyValue&) = default;

 private:
  Storage storage_;
};

}  // namespace wayfell
