#include "hosts/text/JsonLine.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "hosts/text/InputError.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"

namespace wayfell {

// What the parser meets, in the order of the text.
class JsonLine::Builder {
 public:
  // NOLINTBEGIN(readability-identifier-naming): the names are those that the parser calls.
  using number_integer_t = nlohmann::json::number_integer_t;
  using number_unsigned_t = nlohmann::json::number_unsigned_t;
  using number_float_t = nlohmann::json::number_float_t;
  using string_t = nlohmann::json::string_t;
  using binary_t = nlohmann::json::binary_t;

  Builder(JsonLine& line, std::size_t deepest) : line_(line), deepest_(deepest) {
    line_.nodes_.clear();
    line_.texts_.clear();
    line_.opened_.clear();
  }

  bool null() {
    add(Kind::null);
    return true;
  }
  bool boolean(bool value) {
    add(Kind::boolean).boolean = value;
    return true;
  }
  bool number_integer(number_integer_t value) {
    add(Kind::integer).integer = value;
    return true;
  }
  bool number_unsigned(number_unsigned_t value) {
    if (value > static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max())) {
      return number_float(static_cast<double>(value), {});
    }
    return number_integer(static_cast<number_integer_t>(value));
  }
  bool number_float(number_float_t value, const string_t& /*text*/) {
    add(Kind::real).real = value;
    return true;
  }
  bool string(const string_t& value) {
    add(Kind::text).text = keep(value);
    return true;
  }
  bool binary(const binary_t& /*value*/) { return false; }  // no JSON text has any
  bool key(const string_t& name) {
    key_ = keep(name);
    return true;
  }
  bool start_object(std::size_t /*size*/) { return open(Kind::object); }
  bool end_object() { return close(); }
  bool start_array(std::size_t /*size*/) { return open(Kind::list); }
  bool end_array() { return close(); }

  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const nlohmann::json::exception& error) {
    // "[...] parse error at line 1, column 7: syntax error ...; last read: ...", of which the
    // last may be as long as the line.
    std::string what = error.what();
    what.erase(0, what.find("] ") + 2);
    if (what.rfind("parse error", 0) == 0) what.erase(0, what.find(": ") + 2);
    what.resize(std::min(what.size(), what.find("; last read")));
    constexpr int kLongest = 200;  // columns
    what.resize(cut(what, kLongest).size());
    throw InputError("not JSON at column " + std::to_string(position) + ": " + what);
  }
  // NOLINTEND(readability-identifier-naming)

 private:
  Node& add(Kind kind) {
    Node& node = line_.nodes_.emplace_back();
    node.kind = kind;
    node.key = std::exchange(key_, {});
    node.next = line_.nodes_.size();
    return node;
  }
  Text keep(std::string_view text) {
    const Text kept{line_.texts_.size(), text.size()};
    line_.texts_ += text;
    return kept;
  }
  bool open(Kind kind) {
    if (line_.opened_.size() == deepest_) throw InputError("lists and objects nested too deeply");
    line_.opened_.push_back(line_.nodes_.size());
    add(kind);
    return true;
  }
  bool close() {
    line_.nodes_[line_.opened_.back()].next = line_.nodes_.size();
    line_.opened_.pop_back();
    return true;
  }

  JsonLine& line_;
  std::size_t deepest_;
  Text key_;  // the name of the member that comes next
};

void JsonLine::parse(std::string_view text, std::size_t deepest) {
  if (!isUtf8(text)) throw InputError("not UTF-8");
  Builder builder(*this, deepest);
  nlohmann::json::sax_parse(text.begin(), text.end(), &builder);
}

std::optional<JsonLine::Value> JsonLine::Value::member(std::string_view name) const {
  if (kind() != Kind::object) return std::nullopt;
  for (const Value& member : *this) {
    if (member.key() == name) return member;
  }
  return std::nullopt;
}

}  // namespace wayfell
