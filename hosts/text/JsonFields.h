// Reading what is expected at a place of a JSON value, with errors that name the place.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/text/JsonLine.h"

namespace wayfell {

/// Where a value stands: "fixes[2].latitude". It lives on the stack of those who descend to it.
class FieldPath {
 public:
  explicit FieldPath(std::string_view name) : name_(name) {}
  FieldPath(const FieldPath& parent, std::string_view name) : parent_(&parent), name_(name) {}
  FieldPath(const FieldPath& parent, std::size_t index) : parent_(&parent), index_(index) {}

  /// Throws InputError: the place, a colon, and what is wrong there.
  [[noreturn]] void fail(const std::string& what) const;

 private:
  std::string text() const;

  const FieldPath* parent_ = nullptr;
  std::string_view name_;
  std::optional<std::size_t> index_;
};

// Each throws InputError for a value of another kind.

double expectNumber(JsonLine::Value value, const FieldPath& path);
int expectInteger(JsonLine::Value value, const FieldPath& path, int smallest, int greatest);
std::string_view expectText(JsonLine::Value value, const FieldPath& path);
bool expectBoolean(JsonLine::Value value, const FieldPath& path);
void expectTrue(JsonLine::Value value, const FieldPath& path);
void expectObject(JsonLine::Value value, const FieldPath& path);
void expectList(JsonLine::Value value, const FieldPath& path);

/// A number that an object may hold, and where it goes.
struct NumberField {
  std::string_view name;
  double* target;
  bool given = false;
};
/// Reads an object that holds some of these numbers, each once, and nothing else.
void readNumbers(JsonLine::Value object, const FieldPath& path,
                 std::initializer_list<NumberField*> fields);

}  // namespace wayfell
