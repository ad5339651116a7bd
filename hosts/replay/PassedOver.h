// Parts of a recording that are left out, counted for its note.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wayfell {

/// Lines of a file where something happened, for someone who looks them up.
class NotedLines {
 public:
  /// Counted from 1, in any order.
  void add(std::size_t line);
  std::size_t count() const { return count_; }
  /// 0 without any.
  std::size_t first() const { return first_; }
  /// "(line 17)", "(line 17 and 2 more)".
  std::string text() const;

 private:
  std::size_t count_ = 0;
  std::size_t first_ = 0;
};

class PassedOver {
 public:
  /// Keys of texts: for one part that is left out, and for several, with their number.
  PassedOver(const char* one, const char* several) : one_(one), several_(several) {}

  /// The reason is a key, too, with the number of parts and their lines: "%d without a time %@".
  void add(const char* reason, std::size_t line) { reasons_[reason].add(line); }

  /// The first line where something was left out; none when nothing was.
  std::optional<std::size_t> firstLine() const;
  /// "passed over 3 points: 1 without a time (line 17), 2 out of order (line 1550 and 1 more)", the
  /// reasons in the order of their first lines; none when nothing was left out.
  std::optional<std::string> note() const;

 private:
  std::vector<std::pair<std::string, NotedLines>> sorted() const;

  const char* one_;
  const char* several_;
  std::map<std::string, NotedLines> reasons_;
};

}  // namespace wayfell
