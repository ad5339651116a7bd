// Where the settings are kept. Folders follow the XDG base directory rules: a variable that is
// unset, empty or not an absolute path counts for nothing. The functions throw std::runtime_error
// when there is no home folder either.
#pragma once

#include <filesystem>
#include <string_view>

namespace wayfell {

/// $XDG_DATA_HOME/wayfell, or ~/.local/share/wayfell.
std::filesystem::path dataFolder();

/// The suite that programs share under the name: NAME.db in the data folder. Throws
/// std::invalid_argument for a name that is empty, has a "/" or a NUL in it, or is "cloud" or
/// "addresses", which name other files there.
std::filesystem::path sharedStoreFile(std::string_view suiteName);
/// The widget's own settings: widget.db in $XDG_CONFIG_HOME/wayfell, or ~/.config/wayfell.
std::filesystem::path localStoreFile();
/// The user's settings in the cloud, put there by whoever fetches them: cloud.db in the data
/// folder.
std::filesystem::path cloudStoreFile();

}  // namespace wayfell
