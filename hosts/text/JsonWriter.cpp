#include "hosts/text/JsonWriter.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace wayfell {
namespace {

using Json = nlohmann::json;

bool needsNoEscape(char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; }

}  // namespace

// What comes before ends in a bracket, a colon, or a value that has ended.
void JsonWriter::separate() {
  constexpr std::string_view kBeginnings = "{[:";
  if (!text_.empty() && kBeginnings.find(text_.back()) == std::string_view::npos) text_ += ',';
}

JsonWriter& JsonWriter::open(char bracket) {
  separate();
  text_ += bracket;
  return *this;
}

JsonWriter& JsonWriter::close(char bracket) {
  text_ += bracket;
  return *this;
}

JsonWriter& JsonWriter::beginObject() { return open('{'); }
JsonWriter& JsonWriter::endObject() { return close('}'); }
JsonWriter& JsonWriter::beginList() { return open('['); }
JsonWriter& JsonWriter::endList() { return close(']'); }

JsonWriter& JsonWriter::key(std::string_view name) {
  value(name);
  text_ += ':';
  return *this;
}

JsonWriter& JsonWriter::value(std::nullptr_t) {
  separate();
  text_ += "null";
  return *this;
}

JsonWriter& JsonWriter::value(bool boolean) {
  separate();
  text_ += boolean ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::value(std::int64_t integer) {
  separate();
  text_ += std::to_string(integer);
  return *this;
}

JsonWriter& JsonWriter::value(double number) {
  separate();
  text_ += Json(number).dump();
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  separate();
  if (std::all_of(text.begin(), text.end(), needsNoEscape)) {
    text_.append(1, '"').append(text).append(1, '"');
  } else {
    text_ += Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
  }
  return *this;
}

}  // namespace wayfell
