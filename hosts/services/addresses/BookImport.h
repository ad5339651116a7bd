// Makes a new address book beside the old one and, when it is complete, puts it in the old one's
// place. Until then, and whatever happens before, the old one is as it was.
//
//   BookImport import(path, BookImport::Start::empty);
//   import.setCountry("US");
//   import.add(row);
//   import.commit();
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "hosts/services/addresses/AddressRow.h"
#include "hosts/services/addresses/BookFile.h"

namespace SQLite {  // NOLINT(readability-identifier-naming): SQLiteCpp's name
class Transaction;
}

namespace wayfell {

class BookImport {
 public:
  enum class Start {
    empty,
    withOld,  ///< with what the old book holds, if there is one
  };

  /// Makes the folder if need be, for the user alone, and clears what a dead import has left.
  /// Throws BookError when another import is at work, when the old book is wanted and cannot be
  /// used, or when nothing can be written.
  BookImport(std::filesystem::path book, Start start);
  /// Throws the new book away if it was not committed.
  ~BookImport();

  /// Where the rows that follow are: an ISO 3166-1 code in capitals, or empty.
  void setCountry(const std::string& code);
  /// Throws BookError, for a full disk among others; there is no going on then.
  void add(const AddressRow& row);
  /// Ends the import. What is written survives a power cut. Throws BookError.
  void commit();

  const BookSummary& summary() const { return summary_; }

 private:
  class Lock;
  struct Statements;

  void begin(Start start);
  void discard();
  std::int64_t streetId(const AddressRow& row);

  std::filesystem::path book_;
  std::filesystem::path new_;
  std::unique_ptr<Lock> lock_;
  std::unique_ptr<SQLite::Database> database_;
  std::unique_ptr<Statements> statements_;
  std::unique_ptr<SQLite::Transaction> transaction_;
  std::string country_;
  BookSummary summary_;
  /// Streets met of late; forgotten when they are too many.
  std::unordered_map<std::string, std::int64_t> streets_;
  std::string key_;
};

}  // namespace wayfell
