#include "hosts/services/stores/Stores.h"

#include <chrono>
#include <exception>
#include <utility>

#include "hosts/services/stores/StorePaths.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// Names of stores that are no suites begin with what no suite's name may hold.
constexpr std::string_view kLocal = "/local";
constexpr std::string_view kCloud = "/cloud";

}  // namespace

Stores::Stores(Turn turn, Warn warn) : turn_(std::move(turn)), warn_(std::move(warn)) {}

SqliteStore* Stores::standardDefaults() {
  return opened(kLocal, SqliteStore::Access::readWrite, localStoreFile);
}

SqliteStore* Stores::sharedDefaults(std::string_view suiteName) {
  return opened(suiteName, SqliteStore::Access::readWrite,
                [suiteName] { return sharedStoreFile(suiteName); });
}

SqliteStore* Stores::ubiquitousDefaults() {
  SqliteStore* const cloud = opened(kCloud, SqliteStore::Access::readOnly, cloudStoreFile);
  return cloud != nullptr && cloud->state() != SqliteStore::State::missing ? cloud : nullptr;
}

SqliteStore* Stores::opened(std::string_view name, SqliteStore::Access access,
                            const std::function<std::filesystem::path()>& file) {
  const auto known = stores_.find(name);
  if (known != stores_.end()) return known->second.get();
  // One that has no place is known as null, so that it is warned about once.
  std::unique_ptr<SqliteStore>& store = stores_[std::string(name)];
  try {
    store =
        std::make_unique<SqliteStore>(file(), access, turn_, warn_, SqliteStore::kPanelPatience);
  } catch (const std::exception& error) {
    warn_(localizedStringWithFormat("settings: %@; they are not kept", error.what()));
  }
  return store.get();
}

}  // namespace wayfell
