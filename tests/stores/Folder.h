// A folder of the test's own, and stores in it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {

class Folder {
 public:
  explicit Folder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string name = parent / "wayfell-stores-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
    // Some tests go on as another user.
    std::filesystem::permissions(path_, std::filesystem::perms(0755));
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

/// What a store warned about, and a store that is looked at anew by each read.
struct WatchedStore {
  explicit WatchedStore(const std::filesystem::path& file,
                        SqliteStore::Access access = SqliteStore::Access::readWrite,
                        Turn turn = turnOfEachRead())
      : store(file, access, std::move(turn),
              [this](const std::string& sentence) { warnings.push_back(sentence); }) {}
  std::vector<std::string> warnings;
  SqliteStore store;
};

inline std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void putBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace wayfell
