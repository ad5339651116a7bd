#include "hosts/services/stores/StoreErrors.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/NSBundle.h"

namespace wayfell {

bool isDamage(const SQLite::Exception& error) {
  return error.getErrorCode() == SQLITE_CORRUPT || error.getErrorCode() == SQLITE_NOTADB;
}

bool isForWantOfALock(const SQLite::Exception& error) {
  return error.getErrorCode() == SQLITE_BUSY;
}

bool isForWantOfAccess(const SQLite::Exception& error) {
  return error.getErrorCode() == SQLITE_CANTOPEN || error.getErrorCode() == SQLITE_READONLY;
}

bool isForAnUnfinishedChange(const SQLite::Exception& error) {
  return error.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK;
}

bool isForWantOfSpace(const SQLite::Exception& error) {
  return error.getExtendedErrorCode() == SQLITE_IOERR_SHMSIZE;
}

bool isForSize(const SQLite::Exception& error) { return error.getErrorCode() == SQLITE_TOOBIG; }

bool isDenied(const std::filesystem::path& path, int access) {
  return ::access(path.c_str(), access) != 0;
}

// Where access is wanting, all that SQLite says is that it could not open a file.
std::string whyNotRead(const SQLite::Exception& error, const std::filesystem::path& file) {
  if (isForWantOfAccess(error) && isDenied(file, R_OK)) {
    return std::generic_category().message(errno);
  }
  return error.what();
}

std::string whyNotWritten(const SQLite::Exception& error, const std::filesystem::path& file) {
  if (isForWantOfAccess(error)) {
    if (isDenied(file, W_OK)) return std::string(localized("it is read-only"));
    if (isDenied(file.parent_path(), W_OK))
      return std::string(localized("its folder is read-only"));
  }
  if (isForWantOfSpace(error)) return std::string(localized("the disk is full"));
  return error.what();
}

}  // namespace wayfell
