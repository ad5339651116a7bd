// The settings on disk that a command line names.
#pragma once

#include <string>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {

enum class StoreChoice { suite, local, cloud };

/// "the shared settings", "the widget's own settings" or "the cloud's settings".
std::string nameOf(StoreChoice choice);

/// Opens them; what is wrong with them is complained about. Throws std::runtime_error when there is
/// no place for them.
SqliteStore openStore(StoreChoice choice, SqliteStore::Access access);

/// Writes all of the changes, or none and says so. The status to exit with.
int save(const SqliteStore::Changes& changes, SqliteStore& store);
/// Likewise into the shared settings.
int saveInSuite(const SqliteStore::Changes& changes);

}  // namespace wayfell
