// A store that is looked at anew by each read, and what it warned about.
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

}  // namespace wayfell
