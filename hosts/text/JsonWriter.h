// Writes a JSON value without blanks, its parts in the order in which they are given.
//
//   JsonWriter line;
//   line.beginObject().member("metres", 12.5).member("unit", "m").endObject();
//   line.text()  // {"metres":12.5,"unit":"m"}
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

class JsonWriter {
 public:
  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginList();
  JsonWriter& endList();

  /// The name of the member whose value comes next.
  JsonWriter& key(std::string_view name);

  JsonWriter& value(std::nullptr_t);
  JsonWriter& value(bool boolean);
  JsonWriter& value(std::int64_t integer);
  JsonWriter& value(int integer) { return value(std::int64_t{integer}); }
  /// With few digits, but enough to be read back as the same number; always with a fraction or an
  /// exponent. null for what is not finite.
  JsonWriter& value(double number);
  /// Each part that is not UTF-8 becomes U+FFFD.
  JsonWriter& value(std::string_view text);
  JsonWriter& value(const char* text) { return value(std::string_view(text)); }
  /// null for none.
  template <class Value>
  JsonWriter& value(const std::optional<Value>& value) {
    return value ? this->value(*value) : this->value(nullptr);
  }

  template <class Value>
  JsonWriter& member(std::string_view name, const Value& value) {
    return key(name).value(value);
  }

  const std::string& text() const { return text_; }

 private:
  void separate();
  JsonWriter& open(char bracket);
  JsonWriter& close(char bracket);

  std::string text_;
};

}  // namespace wayfell
