// SQLite as other programs use it.
#pragma once

#include <SQLiteCpp/Database.h>

#include <filesystem>

namespace wayfell {

inline SQLite::Database otherProgram(const std::filesystem::path& file) {
  constexpr int kPatience = 10'000;  // milliseconds
  return {file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, kPatience};
}

inline void execute(const std::filesystem::path& file, const char* sql) {
  otherProgram(file).exec(sql);
}

inline std::int64_t integerOf(SQLite::Database& database, const char* query) {
  return database.execAndGet(query).getInt64();
}

}  // namespace wayfell
