#include "hosts/services/addresses/BookImport.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <optional>
#include <system_error>
#include <utility>

#include "hosts/services/sqlite/Sqlite.h"
#include "hosts/services/stores/StoreFile.h"

namespace wayfell {
namespace {

// Enough for most towns of a country; some 10 MB.
constexpr std::size_t kStreetsRemembered = 100000;

[[noreturn]] void failWith(const std::filesystem::path& path, int error) {
  throw BookError(path.string() + ": " + std::strerror(error));
}

void syncFolder(const std::filesystem::path& folder) {
  const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number >= 0) fsync(opened.number);
}

// What SQLite says is wrong gets the book's path.
template <class Action>
void tellingWhere(const std::filesystem::path& book, Action action) {
  try {
    action();
  } catch (const SQLite::Exception& error) {
    throw BookError(book.string() + ": " + error.what());
  }
}

// The id of a row that the statement adds unless it is there.
template <class... Values>
std::int64_t idOf(SQLite::Statement& add, const Values&... parameters) {
  const StatementRun run(add);
  SQLite::bind(add, parameters...);
  add.executeStep();
  return add.getColumn(0).getInt64();
}

std::int64_t inUnits(double degrees) { return std::llround(degrees * kBookUnitsPerDegree); }

}  // namespace

// The file under construction, which one import at a time has. It is empty at first.
class BookImport::Lock {
 public:
  explicit Lock(std::filesystem::path path) : path_(std::move(path)) {
    while (!acquire()) continue;
    if (fchmod(file_->number, S_IRUSR | S_IWUSR) != 0 || ftruncate(file_->number, 0) != 0) {
      failWith(path_, errno);
    }
  }

  void sync() const {
    if (fsync(file_->number) != 0) failWith(path_, errno);
  }

 private:
  // Whether what is locked is still what has the name: an import that ended just now has given its
  // file another.
  bool acquire() {
    createPrivateFile(path_);
    file_.emplace(open(path_.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW));
    if (file_->number < 0) failWith(path_, errno);
    if (flock(file_->number, LOCK_EX | LOCK_NB) != 0) {
      if (errno == EWOULDBLOCK) throw BookError("another import is at work");
      failWith(path_, errno);
    }
    struct stat locked = {};
    struct stat named = {};
    return fstat(file_->number, &locked) == 0 && stat(path_.c_str(), &named) == 0 &&
           locked.st_ino == named.st_ino;
  }

  std::filesystem::path path_;
  std::optional<Descriptor> file_;
};

struct BookImport::Statements {
  explicit Statements(const SQLite::Database& database)
      : addTown(database,
                "INSERT INTO town (city, region, country) VALUES (?1, ?2, ?3) "
                "ON CONFLICT DO UPDATE SET city = city RETURNING id"),
        addStreet(database,
                  "INSERT INTO street (name, town) VALUES (?1, ?2) "
                  "ON CONFLICT DO UPDATE SET name = name RETURNING id"),
        addAddress(database, "INSERT INTO address VALUES (?1, ?2, ?2, ?3, ?3, ?4, ?5)") {}

  SQLite::Statement addTown;
  SQLite::Statement addStreet;
  SQLite::Statement addAddress;
};

BookImport::BookImport(std::filesystem::path book, Start start)
    : book_(std::move(book)), new_(book_.string() + ".new") {
  try {
    lock_ = std::make_unique<Lock>(new_);
    tellingWhere(book_, [&] { begin(start); });
  } catch (const std::system_error& error) {
    discard();
    failWith(book_, error.code().value());
  } catch (...) {
    discard();
    throw;
  }
}

BookImport::~BookImport() { discard(); }

void BookImport::begin(Start start) {
  const bool old = start == Start::withOld && std::filesystem::exists(book_);
  if (old) {
    openBook(book_);  // so that what cannot be used is not copied
    std::filesystem::copy_file(book_, new_, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::permissions(
        new_, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  database_ = std::make_unique<SQLite::Database>(openDatabase(new_, DatabaseAccess::readWrite));
  // A book that is not complete is thrown away, so nothing has to be undone or safe before its end.
  database_->exec(
      "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
      "PRAGMA cache_size = -65536");  // 64 MiB
  if (old) {
    summary_ = readSummary(*database_);
  } else {
    createBook(*database_);
  }
  statements_ = std::make_unique<Statements>(*database_);
  transaction_ = std::make_unique<SQLite::Transaction>(*database_);
}

void BookImport::discard() {
  if (lock_ == nullptr) return;
  statements_.reset();
  transaction_.reset();
  database_.reset();
  std::error_code ignored;
  std::filesystem::remove(new_, ignored);
  lock_.reset();
}

void BookImport::setCountry(const std::string& code) {
  country_ = code;
  streets_.clear();
}

void BookImport::add(const AddressRow& row) {
  tellingWhere(book_, [&] {
    const std::int64_t street = streetId(row);
    run(statements_->addAddress, ++summary_.addresses, inUnits(row.longitude),
        inUnits(row.latitude), row.number, street);
  });
  summary_.south = std::min(summary_.south, row.latitude);
  summary_.north = std::max(summary_.north, row.latitude);
  summary_.west = std::min(summary_.west, row.longitude);
  summary_.east = std::max(summary_.east, row.longitude);
}

std::int64_t BookImport::streetId(const AddressRow& row) {
  // No part has a line break in it.
  key_.assign(row.street).append("\n").append(row.city).append("\n").append(row.region);
  const auto known = streets_.find(key_);
  if (known != streets_.end()) return known->second;
  if (streets_.size() == kStreetsRemembered) streets_.clear();
  const std::int64_t town = idOf(statements_->addTown, row.city, row.region, country_);
  return streets_[key_] = idOf(statements_->addStreet, row.street, town);
}

void BookImport::commit() {
  tellingWhere(book_, [&] {
    writeSummary(*database_, summary_);
    transaction_->commit();
  });
  statements_.reset();
  transaction_.reset();
  database_.reset();
  lock_->sync();
  if (std::rename(new_.c_str(), book_.c_str()) != 0) failWith(book_, errno);
  lock_.reset();
  syncFolder(book_.parent_path());
}

}  // namespace wayfell
