#include "hosts/terminal/ChosenStore.h"

#include <filesystem>
#include <utility>

#include "hosts/services/stores/StorePaths.h"
#include "hosts/terminal/Output.h"
#include "widget/TodayViewController.h"

namespace wayfell {
namespace {

std::filesystem::path fileOf(StoreChoice choice) {
  switch (choice) {
    case StoreChoice::local:
      return localStoreFile();
    case StoreChoice::cloud:
      return cloudStoreFile();
    case StoreChoice::suite:
      break;
  }
  return sharedStoreFile(TodayViewController::kSharedSuite);
}

}  // namespace

std::string nameOf(StoreChoice choice) {
  switch (choice) {
    case StoreChoice::local:
      return "the widget's own settings";
    case StoreChoice::cloud:
      return "the cloud's settings";
    case StoreChoice::suite:
      break;
  }
  return "the shared settings";
}

SqliteStore openStore(StoreChoice choice, SqliteStore::Access access) {
  return {fileOf(choice), access, turnOfEachRead(), complain};
}

int save(const SqliteStore::Changes& changes, SqliteStore& store) {
  if (store.setAll(changes)) return kDone;
  complainMore("nothing is saved");
  return kBadInput;
}

int saveInSuite(const SqliteStore::Changes& changes) {
  SqliteStore suite = openStore(StoreChoice::suite, SqliteStore::Access::readWrite);
  return save(changes, suite);
}

}  // namespace wayfell
