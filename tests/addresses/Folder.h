// A folder for the files of one test, gone with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace wayfell {

class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "wayfell-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

}  // namespace wayfell
