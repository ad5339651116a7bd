// Catalogues as msgfmt would write them, made by hand: the GNU gettext manual's "The Format of GNU
// MO Files".
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include <unistd.h>

namespace wayfell {

/// A folder of its own, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "wayfell-XXXXXX").string();
    path = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path path;
};

using Texts = std::map<std::string, std::string>;

inline std::string wordBytes(std::uint32_t word, bool bigEndian) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) {
    bytes += static_cast<char>(word >> static_cast<unsigned>(8 * (bigEndian ? 3 - i : i)));
  }
  return bytes;
}

inline const char* const kHeader = "Content-Type: text/plain; charset=UTF-8\n";

/// Seven words; the table of keys at 28, that of texts behind it, no hashes; then the strings.
inline std::string catalogueBytes(Texts texts, bool bigEndian = false) {
  texts.emplace("", kHeader);
  const auto count = static_cast<std::uint32_t>(texts.size());
  std::string bytes;
  const auto put = [&](std::uint32_t word) { bytes += wordBytes(word, bigEndian); };
  for (const std::uint32_t word : {0x950412deU, 0U, count, 28U, 28U + 8 * count, 0U, 0U}) put(word);
  std::string strings;
  const auto place = [&](const std::string& text) {
    put(static_cast<std::uint32_t>(text.size()));
    put(28 + 16 * count + static_cast<std::uint32_t>(strings.size()));
    strings += text + '\0';
  };
  for (const auto& [key, text] : texts) place(key);
  for (const auto& [key, text] : texts) place(text);
  return bytes + strings;
}

inline void write(const std::filesystem::path& file, const std::string& bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

inline std::filesystem::path catalogueIn(const std::filesystem::path& folder,
                                         const std::string& language) {
  return folder / language / "LC_MESSAGES" / "wayfell.mo";
}

}  // namespace wayfell
