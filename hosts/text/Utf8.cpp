#include "hosts/text/Utf8.h"

#include <unistr.h>

#include <array>
#include <cstdint>

namespace wayfell {
namespace {

const std::uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

}  // namespace

std::optional<char32_t> takeCodePoint(std::string_view& text) {
  ucs4_t codePoint = 0;
  const int bytes = u8_mbtoucr(&codePoint, bytesOf(text), text.size());
  text.remove_prefix(bytes > 0 ? static_cast<std::size_t>(bytes) : 1);
  return bytes > 0 ? std::optional<char32_t>(codePoint) : std::nullopt;
}

bool isUtf8(std::string_view text) { return utf8Prefix(text) == text.size(); }

std::size_t utf8Prefix(std::string_view text) {
  const std::uint8_t* const bad = u8_check(bytesOf(text), text.size());
  return bad == nullptr ? text.size() : static_cast<std::size_t>(bad - bytesOf(text));
}

void appendCodePoint(std::string& text, char32_t codePoint) {
  std::array<std::uint8_t, 4> bytes{};
  const int count = u8_uctomb(bytes.data(), codePoint, bytes.size());
  for (int i = 0; i < count; ++i) text += static_cast<char>(bytes[static_cast<std::size_t>(i)]);
}

}  // namespace wayfell
