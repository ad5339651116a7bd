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
#include "hosts/text/TextScanner.h"
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

// Empty for what is not UTF-8.
std::string caseFolded(std::string_view text, uninorm_t form) {
  std::size_t size = 0;
  const std::unique_ptr<std::uint8_t, Free> folded(
      u8_casefold(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), nullptr, form,
                  nullptr, &size));
  if (!folded) return "";
  return {reinterpret_cast<const char*>(folded.get()), size};
}

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

std::string comparableName(std::string_view name) {
  const std::string folded = caseFolded(name, UNINORM_NFC);
  std::string result;
  TextScanner scanner(folded);
  while (!scanner.atEnd()) {
    const std::string_view word = scanner.word();
    if (!result.empty()) result += ' ';
    result += word;
    scanner.take(word);
  }
  return result;
}

std::string foldedText(std::string_view text) {
  std::string folded;
  if (isAscii(text)) {
    for (const char c : text) {
      if (isLetter(c) || isDigit(c)) folded += smallLetter(c);
    }
    return folded;
  }
  const std::string decomposed = caseFolded(text, UNINORM_NFKD);
  std::string_view rest = decomposed;
  while (!rest.empty()) {
    const char32_t codePoint = takeCodePoint(rest).value_or(U' ');
    if (uc_is_alnum(codePoint)) appendCodePoint(folded, baseLetter(codePoint));
  }
  return folded;
}

}  // namespace wayfell
