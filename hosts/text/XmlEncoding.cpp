#include "hosts/text/XmlEncoding.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

#include "hosts/text/FoldedText.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/Utf8.h"

namespace wayfell {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::string_view kUtf8 = "UTF-8";

// What a file in an encoding begins with.
struct Beginning {
  std::string_view bytes;
  std::string_view encoding;
  std::size_t mark;  // how many of the bytes are no text
};

// The longer ones come first where one begins like another.
constexpr std::array kBeginnings = {
    Beginning{kByteOrderMark, kUtf8, kByteOrderMark.size()},
    Beginning{"\xFF\xFE\0\0"sv, "UTF-32LE", 4},
    Beginning{"\0\0\xFE\xFF"sv, "UTF-32BE", 4},
    Beginning{"<\0\0\0"sv, "UTF-32LE", 0},
    Beginning{"\0\0\0<"sv, "UTF-32BE", 0},
    Beginning{"\xFF\xFE<\0"sv, "UTF-16LE", 2},
    Beginning{"\xFE\xFF\0<"sv, "UTF-16BE", 2},
    Beginning{"<\0"sv, "UTF-16LE", 0},
    Beginning{"\0<"sv, "UTF-16BE", 0},
};

const Beginning* beginningOf(std::string_view text) {
  const auto* const found = std::find_if(
      kBeginnings.begin(), kBeginnings.end(),
      [text](const Beginning& each) { return text.substr(0, each.bytes.size()) == each.bytes; });
  return found == kBeginnings.end() ? nullptr : found;
}

// The encoding that the declaration names, "<?xml version="1.0" encoding="ISO-8859-1"?>".
std::string_view declaredEncoding(std::string_view xml) {
  xml.remove_prefix(std::min(xml.find_first_not_of(" \t\r\n"), xml.size()));
  if (xml.substr(0, 5) != "<?xml") return {};
  const std::string_view declaration = xml.substr(0, xml.find("?>"));
  const std::size_t name = declaration.find("encoding");
  const std::size_t open = declaration.find_first_of("\"'", std::min(name, declaration.size()));
  if (open == std::string_view::npos) return {};
  const std::size_t close = declaration.find(declaration[open], open + 1);
  return close == std::string_view::npos ? std::string_view()
                                         : declaration.substr(open + 1, close - open - 1);
}

// A declaration that can be read byte by byte is in no wide encoding, whatever it says: programs
// that make a text in memory and save it as UTF-8 declare what they had in memory.
bool isReallyUtf8(std::string_view declared) {
  const std::string name = foldedText(declared);
  return name.empty() || name == "utf8" || name.starts_with("utf16") || name.starts_with("utf32") ||
         name.starts_with("ucs");
}

[[noreturn]] void refuse(std::string_view textBefore, std::string_view encoding) {
  const auto line = std::count(textBefore.begin(), textBefore.end(), '\n') + 1;
  throw InputError("line " + std::to_string(line) + ": not " + std::string(encoding) +
                   (encoding == kUtf8 ? ", and the first line names no other encoding"
                                      : ", the encoding of the file"));
}

class Converter {
 public:
  explicit Converter(const std::string& encoding)
      : encoding_(encoding), handle_(iconv_open(kUtf8.data(), encoding.c_str())) {
    if (!isOpen()) {
      throw InputError("the encoding " + inQuotes(encoding) +
                       ", which the first line names, is not known here: save the file as UTF-8");
    }
  }
  ~Converter() {
    if (isOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  std::string toUtf8(std::string& bytes) {
    std::string text;
    text.reserve(bytes.size());
    char* next = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) convert(&next, &left, text);
    convert(nullptr, nullptr, text);  // what was held back, for an accent that may follow
    return text;
  }

 private:
  bool isOpen() const {
    return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): POSIX's
  }

  void convert(char** next, std::size_t* left, std::string& text) {
    std::array<char, 65536> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    char* end = piece.data();
    std::size_t room = piece.size();
    const std::size_t done = iconv(handle_, next, left, &end, &room);
    const bool failed = done == static_cast<std::size_t>(-1) && errno != E2BIG;
    text.append(piece.data(), end);
    if (failed) refuse(text, encoding_);
  }

  const std::string& encoding_;
  iconv_t handle_;
};

}  // namespace

bool isWideXml(std::string_view beginning) {
  const Beginning* const found = beginningOf(beginning);
  return found != nullptr && found->encoding != kUtf8;
}

std::string utf8OfXml(std::string bytes) {
  std::string encoding;
  if (const Beginning* const found = beginningOf(bytes)) {
    encoding = found->encoding;
    bytes.erase(0, found->mark);
  } else if (const std::string_view declared = declaredEncoding(bytes); !isReallyUtf8(declared)) {
    encoding = declared;
  }
  if (!encoding.empty() && encoding != kUtf8) return Converter(encoding).toUtf8(bytes);
  if (const std::size_t good = utf8Prefix(bytes); good < bytes.size()) {
    refuse(std::string_view(bytes).substr(0, good), kUtf8);
  }
  return bytes;
}

}  // namespace wayfell
