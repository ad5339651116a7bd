#include "hosts/text/FoldedText.h"

#include <unicase.h>
#include <unictype.h>
#include <uninorm.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "hosts/text/Characters.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

struct Letter {
  char32_t letter;
  char32_t base;
};

// Unicode decomposes none of these.
constexpr std::array kUndecomposed = {
    Letter{U'Æ', U'A'}, Letter{U'Ð', U'D'}, Letter{U'Ø', U'O'}, Letter{U'Þ', U'T'},
    Letter{U'ß', U's'}, Letter{U'æ', U'a'}, Letter{U'ð', U'd'}, Letter{U'ø', U'o'},
    Letter{U'þ', U't'}, Letter{U'Đ', U'D'}, Letter{U'đ', U'd'}, Letter{U'Ħ', U'H'},
    Letter{U'ħ', U'h'}, Letter{U'ı', U'i'}, Letter{U'Ł', U'L'}, Letter{U'ł', U'l'},
    Letter{U'Ŋ', U'N'}, Letter{U'ŋ', U'n'}, Letter{U'Œ', U'O'}, Letter{U'œ', U'o'},
    Letter{U'Ŧ', U'T'}, Letter{U'ŧ', U't'},
};

struct Free {
  void operator()(std::uint8_t* bytes) const { std::free(bytes); }
};

char smallLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

char32_t baseLetter(char32_t codePoint) {
  if (codePoint < 0xC0) return codePoint;
  for (const Letter& one : kUndecomposed) {
    if (one.letter == codePoint) return one.base;
  }
  std::array<ucs4_t, UC_DECOMPOSITION_MAX_LENGTH> parts{codePoint};
  while (uc_canonical_decomposition(parts[0], parts.data()) > 0) continue;
  return uc_is_alpha(parts[0]) ? parts[0] : codePoint;
}

std::string foldedText(std::string_view text) {
  std::string folded;
  if (isAscii(text)) {
    for (const char c : text) {
      if (isLetter(c) || isDigit(c)) folded += smallLetter(c);
    }
    return folded;
  }
  std::size_t size = 0;
  const std::unique_ptr<std::uint8_t, Free> decomposed(
      u8_casefold(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), nullptr,
                  UNINORM_NFKD, nullptr, &size));
  if (!decomposed) return folded;
  std::string_view rest(reinterpret_cast<const char*>(decomposed.get()), size);
  while (!rest.empty()) {
    const char32_t codePoint = takeCodePoint(rest).value_or(U' ');
    if (uc_is_alnum(codePoint)) appendCodePoint(folded, baseLetter(codePoint));
  }
  return folded;
}

}  // namespace wayfell
