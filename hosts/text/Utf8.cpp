#include "hosts/text/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace wayfell {
namespace {

struct Form {
  std::size_t bytes;
  char32_t firstBits;  // of the code point, out of the lead byte
  char32_t smallest;   // less is an overlong form
};

std::optional<Form> formOf(std::uint8_t lead) {
  if (lead < 0x80) return Form{1, lead, 0};
  if (lead >> 5U == 0x6) return Form{2, lead & 0x1FU, 0x80};
  if (lead >> 4U == 0xE) return Form{3, lead & 0x0FU, 0x800};
  if (lead >> 3U == 0x1E) return Form{4, lead & 0x07U, 0x10000};
  return std::nullopt;
}

std::uint8_t byteAt(std::string_view text, std::size_t index) {
  return static_cast<std::uint8_t>(text[index]);
}

}  // namespace

std::optional<char32_t> takeCodePoint(std::string_view& text) {
  const std::optional<Form> form = formOf(byteAt(text, 0));
  std::size_t bytes = form ? 1 : 0;
  char32_t codePoint = form ? form->firstBits : 0;
  while (form && bytes < form->bytes && bytes < text.size() && byteAt(text, bytes) >> 6U == 0x2) {
    codePoint = codePoint << 6U | (byteAt(text, bytes) & 0x3FU);
    ++bytes;
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (!form || bytes < form->bytes || codePoint < form->smallest || surrogate ||
      codePoint > 0x10FFFF) {
    text.remove_prefix(1);
    return std::nullopt;
  }
  text.remove_prefix(bytes);
  return codePoint;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    if (byteAt(text, 0) < 0x80) {
      text.remove_prefix(1);
    } else if (!takeCodePoint(text)) {
      return false;
    }
  }
  return true;
}

void appendCodePoint(std::string& text, char32_t codePoint) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto appendRest = [&append, codePoint](unsigned shift) {
    append(0x80U | (codePoint >> shift & 0x3FU));
  };
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0U | codePoint >> 6U);
    appendRest(0);
  } else if (codePoint < 0x10000) {
    append(0xE0U | codePoint >> 12U);
    appendRest(6);
    appendRest(0);
  } else {
    append(0xF0U | codePoint >> 18U);
    appendRest(12);
    appendRest(6);
    appendRest(0);
  }
}

}  // namespace wayfell
