// One JSON value out of a line of text, kept for reading. An object is used for line after line
// and then needs no new memory.
//
//   JsonLine line;
//   line.parse(R"({"t":0,"show":true})");
//   for (JsonLine::Value member : line.root()) member.key(), member.kind() ...
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wayfell {

class JsonLine {
 public:
  /// An integer that 64 bits do not hold is a real. Reals are finite.
  enum class Kind { null, boolean, integer, real, text, list, object };
  /// Lists and objects may stand within one another this many times, unless stated otherwise.
  static constexpr std::size_t kDeepest = 64;
  static constexpr std::size_t kAnyDepth = std::numeric_limits<std::size_t>::max();

  class Value;

  /// Throws InputError when the text is not one JSON value, is nested too deeply, or not UTF-8.
  void parse(std::string_view text, std::size_t deepest = kDeepest);
  /// What was parsed last. It stays valid until the next parse.
  Value root() const;

 private:
  class Builder;

  struct Text {
    std::size_t start = 0;  // in texts_
    std::size_t size = 0;
  };
  struct Node {
    Kind kind = Kind::null;
    bool boolean = false;
    std::int64_t integer = 0;
    double real = 0;
    Text text;
    Text key;
    std::size_t next = 0;  // the node after this one and all that it contains
  };

  std::vector<Node> nodes_;  // each followed by what it contains
  std::string texts_;
  std::vector<std::size_t> opened_;  // while parsing: lists and objects that have not ended
};

class JsonLine::Value {
 public:
  Kind kind() const { return node().kind; }
  bool isNumber() const { return kind() == Kind::integer || kind() == Kind::real; }
  /// Each is only for values of its kind.
  bool boolean() const { return node().boolean; }
  std::int64_t integer() const { return node().integer; }
  double real() const { return node().real; }
  std::string_view text() const { return part(node().text); }
  /// An integer or a real.
  double number() const {
    return kind() == Kind::integer ? static_cast<double>(integer()) : real();
  }
  /// The name of a member of an object.
  std::string_view key() const { return part(node().key); }
  /// The first member of that name; none where there is none, and of what is no object.
  std::optional<Value> member(std::string_view name) const;

  // Members of an object and elements of a list, in order; others have none.
  class Iterator;
  Iterator begin() const;
  Iterator end() const;

 private:
  friend class JsonLine;
  Value(const JsonLine& line, std::size_t index) : line_(&line), index_(index) {}
  const Node& node() const { return line_->nodes_[index_]; }
  std::string_view part(const Text& text) const {
    return std::string_view(line_->texts_).substr(text.start, text.size);
  }

  const JsonLine* line_;
  std::size_t index_;
};

class JsonLine::Value::Iterator {
 public:
  explicit Iterator(Value value) : value_(value) {}
  const Value& operator*() const { return value_; }
  Iterator& operator++() {
    value_.index_ = value_.node().next;
    return *this;
  }
  bool operator==(const Iterator& other) const { return value_.index_ == other.value_.index_; }

 private:
  Value value_;
};

inline JsonLine::Value JsonLine::root() const { return {*this, 0}; }
inline JsonLine::Value::Iterator JsonLine::Value::begin() const {
  return Iterator({*line_, index_ + 1});
}
inline JsonLine::Value::Iterator JsonLine::Value::end() const {
  return Iterator({*line_, node().next});
}

}  // namespace wayfell
