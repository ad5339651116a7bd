#include "hosts/services/stores/StorePaths.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace wayfell {
namespace {

namespace fs = std::filesystem;

/// The path in an environment variable, empty when it counts for nothing.
fs::path pathIn(const char* variable) {
  const char* const text = std::getenv(variable);
  const fs::path path = text != nullptr ? text : "";
  return path.is_absolute() ? path : fs::path();
}

fs::path homeFolder() {
  fs::path home = pathIn("HOME");
  if (!home.empty()) return home;
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 4096> texts{};
  getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
  fs::path listed = found != nullptr ? found->pw_dir : "";
  if (!listed.is_absolute()) throw std::runtime_error("there is no home folder: set HOME");
  return listed;
}

fs::path folder(const char* variable, const char* underHome) {
  const fs::path base = pathIn(variable);
  return (base.empty() ? homeFolder() / underHome : base) / "wayfell";
}

constexpr std::string_view kCloud = "cloud";
// The address book, which shares the folder with the suites.
constexpr std::string_view kAddresses = "addresses";

}  // namespace

fs::path dataFolder() { return folder("XDG_DATA_HOME", ".local/share"); }

fs::path sharedStoreFile(std::string_view suiteName) {
  using namespace std::string_view_literals;
  if (suiteName.empty()) throw std::invalid_argument("the name of a settings suite is empty");
  if (suiteName == kCloud || suiteName == kAddresses ||
      suiteName.find_first_of("/\0"sv) != std::string_view::npos) {
    throw std::invalid_argument('"' + std::string(suiteName) +
                                "\" cannot be the name of a settings suite");
  }
  return dataFolder() / (std::string(suiteName) + ".db");
}

fs::path localStoreFile() { return folder("XDG_CONFIG_HOME", ".config") / "widget.db"; }

fs::path cloudStoreFile() { return dataFolder() / (std::string(kCloud) + ".db"); }

}  // namespace wayfell
