// A file that a user names for reading.
#pragma once

#include <string>

namespace wayfell {

class InputFile {
 public:
  /// "-" is standard input. Throws InputError.
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  int descriptor() const { return descriptor_; }
  bool isOnDisk() const;

 private:
  int descriptor_;
};

}  // namespace wayfell
