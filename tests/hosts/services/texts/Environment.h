// A variable of the environment, put back as it was.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace wayfell {

class Variable {
 public:
  Variable(const char* name, std::optional<std::string> value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  ~Variable() { set(before_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  void set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace wayfell
