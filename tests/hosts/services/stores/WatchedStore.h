// A store that is looked at anew by each read, what it warned about, and what it put aside.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {

struct WatchedStore {
  explicit WatchedStore(const std::filesystem::path& file,
                        SqliteStore::Access access = SqliteStore::Access::readWrite,
                        Turn turn = turnOfEachRead())
      : store(file, access, std::move(turn),
              [this](const std::string& sentence) { warnings.push_back(sentence); }) {}
  std::vector<std::string> warnings;
  SqliteStore store;
};

/// The damaged files that have been put aside there, without what lay beside them.
inline std::vector<std::filesystem::path> putAsideIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename();
    const bool isBeside =
        name.ends_with("-journal") || name.ends_with("-wal") || name.ends_with("-shm");
    if (name.starts_with("suite.db.corrupt-") && !isBeside) files.push_back(entry.path());
  }
  return files;
}

}  // namespace wayfell
