#include "hosts/services/texts/CatalogueFile.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace wayfell {
namespace {

// Ours have some kilobytes.
constexpr std::size_t kLargestFile = 4U << 20U;
// The header also holds the rule for plurals, which gettext compiles as soon as it opens the file.
constexpr std::size_t kLongestHeader = 4096;

constexpr std::uint32_t kMagic = 0x950412de;
constexpr std::size_t kWord = 4;  // bytes

[[noreturn]] void refuse(const std::string& reason) { throw std::runtime_error(reason); }

bool isPrime(std::uint32_t number) {
  for (std::uint32_t divisor = 2; divisor <= number / divisor; ++divisor) {
    if (number % divisor == 0) return false;
  }
  return number > 1;
}

class Catalogue {
 public:
  explicit Catalogue(std::string_view bytes) : bytes_(bytes) {
    if (bytes_.size() < kHeaderWords * kWord) refuse("it is too short for a catalogue");
    if (wordAt(0) != kMagic) swapped_ = true;
    if (wordAt(0) != kMagic) refuse("it is not a compiled catalogue");
    if (wordAt(kRevision) != 0) refuse("its format has an unknown revision");
    count_ = wordAt(kCount);
    keys_ = tableAt(wordAt(kKeys), std::size_t{2} * count_, "keys");
    texts_ = tableAt(wordAt(kTexts), std::size_t{2} * count_, "texts");
    checkHashTable(wordAt(kHashSize), wordAt(kHashTable));
  }

  std::vector<std::string> keys() const {
    std::vector<std::string> keys;
    keys.reserve(count_);
    // Each byte belongs to one string, hence the strings together are not longer than the file.
    std::size_t left = bytes_.size();
    bool hasHeader = false;
    for (std::uint32_t i = 0; i < count_; ++i) {
      const std::string_view key = stringOf(keys_, i, left);
      const std::string_view text = stringOf(texts_, i, left);
      if (const std::string_view first = key.substr(0, key.find('\0')); !first.empty()) {
        keys.emplace_back(first);
      } else {
        checkHeader(text.substr(0, text.find('\0')));
        hasHeader = true;
      }
    }
    if (!hasHeader) refuse("it has no header");
    return keys;
  }

 private:
  // Of the words at the front.
  static constexpr std::size_t kRevision = 1 * kWord;
  static constexpr std::size_t kCount = 2 * kWord;
  static constexpr std::size_t kKeys = 3 * kWord;
  static constexpr std::size_t kTexts = 4 * kWord;
  static constexpr std::size_t kHashSize = 5 * kWord;
  static constexpr std::size_t kHashTable = 6 * kWord;
  static constexpr std::size_t kHeaderWords = 7;

  std::uint32_t wordAt(std::size_t offset) const {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kWord; ++i) {
      const std::size_t place = offset + (swapped_ ? i : kWord - 1 - i);
      word = word << 8U | static_cast<unsigned char>(bytes_[place]);
    }
    return word;
  }

  std::size_t tableAt(std::size_t offset, std::size_t words, const char* what) const {
    if (offset > bytes_.size() || words > (bytes_.size() - offset) / kWord) {
      refuse(std::string("its table of ") + what + " lies outside of it");
    }
    if (offset % kWord != 0) refuse(std::string("its table of ") + what + " is not aligned");
    return offset;
  }

  // gettext steps through the table, by a distance less than its size, until it comes to an empty
  // place: that ends in a table whose size is prime and which is not full.
  void checkHashTable(std::uint32_t size, std::uint32_t offset) const {
    if (size <= 2) return;  // gettext searches the keys instead
    const std::size_t table = tableAt(offset, size, "hashes");
    bool hasEmptyPlace = false;
    for (std::size_t i = 0; i < size; ++i) {
      const std::uint32_t number = wordAt(table + i * kWord);
      if (number > count_) refuse("its table of hashes leads to a string that is not there");
      if (number == 0) hasEmptyPlace = true;
    }
    if (!hasEmptyPlace || !isPrime(size)) refuse("its table of hashes could be searched forever");
  }

  std::string_view stringOf(std::size_t table, std::uint32_t index, std::size_t& left) const {
    const std::size_t entry = table + std::size_t{index} * 2 * kWord;
    const std::size_t length = wordAt(entry);
    const std::size_t offset = wordAt(entry + kWord);
    if (offset >= bytes_.size() || length >= bytes_.size() - offset) {
      refuse("a string lies outside of it");
    }
    if (bytes_[offset + length] != '\0') refuse("a string does not end where it says");
    if (length >= left) refuse("its strings overlap");
    left -= length + 1;
    return bytes_.substr(offset, length);
  }

  static void checkHeader(std::string_view header) {
    constexpr std::string_view kCharset = "charset=";
    if (header.size() > kLongestHeader) refuse("its header is too long");
    const std::size_t found = header.find(kCharset);
    if (found == std::string_view::npos) refuse("its header names no character set");
    header.remove_prefix(found + kCharset.size());
    if (header.substr(0, header.find_first_of(" \t\n")) != "UTF-8") refuse("it is not in UTF-8");
  }

  std::string_view bytes_;
  bool swapped_ = false;  // big-endian
  std::uint32_t count_ = 0;
  std::size_t keys_ = 0;
  std::size_t texts_ = 0;
};

}  // namespace

std::string bytesOfCatalogue(const std::filesystem::path& file) {
  if (!std::filesystem::is_regular_file(file)) refuse("it is not a file");
  const std::uintmax_t size = std::filesystem::file_size(file);
  if (size > kLargestFile) refuse("it is larger than 4 MiB");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) refuse("it cannot be read: " + std::system_category().message(errno));
  std::string bytes(static_cast<std::size_t>(size), '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

std::vector<std::string> keysOfSoundCatalogue(std::string_view bytes) {
  return Catalogue(bytes).keys();
}

}  // namespace wayfell
