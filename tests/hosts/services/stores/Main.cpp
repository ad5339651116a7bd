// The tests; or, started by one of them with a first argument of these, a writer of settings:
//   --write-pairs FILE NAME COUNT   NAME.a and NAME.b become 1 to COUNT, always together, and
//                                   NAME.0 to NAME.99 in turn. Exits with 1 when something could
//                                   not be saved, with 2 when there was a warning, else with 0
//   --count FILE                    n and n.again count on for ever, together, and each number is
//                                   printed once it is saved
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "hosts/services/stores/SqliteStore.h"

namespace wayfell {
namespace {

int writePairs(const char* file, const std::string& name, int count) {
  bool warned = false;
  SqliteStore store(file, SqliteStore::Access::readWrite, turnOfEachRead(),
                    [&warned](const std::string& /*sentence*/) { warned = true; });
  for (int i = 1; i <= count; ++i) {
    const bool saved = store.setAll(
        {{name + ".a", i}, {name + ".b", i}, {name + "." + std::to_string(i % 100), i}});
    if (!saved) return 1;
  }
  return warned ? 2 : 0;
}

int countOn(const char* file) {
  SqliteStore store(file, SqliteStore::Access::readWrite, turnOfEachRead(),
                    [](const std::string& sentence) { std::cerr << sentence << std::endl; });
  const PropertyValue* const last = store.find("n");
  for (std::int64_t n = last != nullptr ? last->integerValue() + 1 : 1;; ++n) {
    if (!store.setAll({{"n", n}, {"n.again", n}})) return 1;
    std::cout << n << std::endl;
  }
}

}  // namespace
}  // namespace wayfell

int main(int count, char** arguments) {
  const std::string what = count > 1 ? arguments[1] : "";
  if (what == "--write-pairs" && count == 5) {
    return wayfell::writePairs(arguments[2], arguments[3], std::atoi(arguments[4]));
  }
  if (what == "--count" && count == 3) return wayfell::countOn(arguments[2]);
  testing::InitGoogleMock(&count, arguments);
  return RUN_ALL_TESTS();
}
