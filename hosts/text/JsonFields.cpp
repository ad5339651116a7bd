#include "hosts/text/JsonFields.h"

#include <algorithm>

#include "hosts/text/InputError.h"

namespace wayfell {

std::string FieldPath::text() const {
  if (index_) return parent_->text() + '[' + std::to_string(*index_) + ']';
  return (parent_ ? parent_->text() + '.' : "") + std::string(name_);
}

void FieldPath::fail(const std::string& what) const { throw InputError(text() + ": " + what); }

double expectNumber(JsonLine::Value value, const FieldPath& path) {
  if (!value.isNumber()) path.fail("expected a number");
  return value.number();
}

int expectInteger(JsonLine::Value value, const FieldPath& path, int smallest, int greatest) {
  if (value.kind() != JsonLine::Kind::integer || value.integer() < smallest ||
      value.integer() > greatest) {
    path.fail("expected an integer from " + std::to_string(smallest) + " to " +
              std::to_string(greatest));
  }
  return static_cast<int>(value.integer());
}

std::string_view expectText(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() != JsonLine::Kind::text) path.fail("expected a text");
  return value.text();
}

bool expectBoolean(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() != JsonLine::Kind::boolean) path.fail("expected true or false");
  return value.boolean();
}

void expectTrue(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() != JsonLine::Kind::boolean || !value.boolean()) path.fail("expected true");
}

void expectObject(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() != JsonLine::Kind::object) path.fail("expected an object");
}

void expectList(JsonLine::Value value, const FieldPath& path) {
  if (value.kind() != JsonLine::Kind::list) path.fail("expected a list");
}

void readNumbers(JsonLine::Value object, const FieldPath& path,
                 std::initializer_list<NumberField*> fields) {
  expectObject(object, path);
  for (const JsonLine::Value& member : object) {
    const FieldPath memberPath(path, member.key());
    const auto* const field =
        std::find_if(fields.begin(), fields.end(),
                     [&member](const NumberField* one) { return one->name == member.key(); });
    if (field == fields.end()) memberPath.fail("unknown field");
    if ((*field)->given) memberPath.fail("given twice");
    *(*field)->target = expectNumber(member, memberPath);
    (*field)->given = true;
  }
}

}  // namespace wayfell
