#include "hosts/services/stores/SqliteStore.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "hosts/services/stores/SqliteStoreImplementation.h"
#include "hosts/services/stores/StoredValue.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

using namespace std::chrono_literals;

// Once a lock has been held for so long that a change was put off, the next changes hardly wait, so
// that a stuck program does not hold up this one.
constexpr auto kImpatience = 50ms;

}  // namespace

void overlay(const SqliteStore::Changes& changes, PropertyValue::Dictionary& values) {
  for (const auto& [key, value] : changes) {
    if (value) {
      values.insert_or_assign(key, *value);
    } else {
      values.erase(key);
    }
  }
}

Turn turnOfEachRead() {
  return [turn = std::uint64_t{0}]() mutable { return ++turn; };
}

// ---- Reading ----

void SqliteStore::Implementation::refresh() {
  const std::uint64_t turn = turn_();
  if (turn == lastTurn_) return;
  lastTurn_ = turn;
  if (isReplaced()) {
    open();
    return;
  }
  if (!table_) return;
  try {
    loadChanges();
    reading_.over();
  } catch (const SQLite::Exception& error) {
    if (isDamage(error) && putAside(error)) {
      open();
    } else {
      tell(reading_, localizedStringWithFormat(
                         "cannot be read just now: %@; the settings stay as they were last read",
                         error.what()));
    }
  }
}

void SqliteStore::Implementation::loadChanges() {
  try {
    if (table_->dataVersion() != dataVersion_) load();
  } catch (const SQLite::Exception& error) {
    if (!isForAnUnfinishedChange(error)) throw;
    undoUnfinishedChange();
    load();
  }
}

bool SqliteStore::Implementation::isReplaced() const {
  if (!table_ || sealed_) return markOf(file_) != mark_;
  return !isStillAt(file_, *mark_);
}

void SqliteStore::Implementation::load() {
  // In this order: what is written in between is then noticed by the next look.
  const std::int64_t version = table_->dataVersion();
  SettingsTable::Contents contents = table_->read();
  dataVersion_ = version;
  values_ = std::move(contents.values);
  overlay(unsaved_, values_);

  if (contents.faults.empty()) {
    rows_.over();
    return;
  }
  const std::string& fault = contents.faults.front();
  const std::size_t others = contents.faults.size() - 1;
  tell(rows_, others == 0
                  ? localizedStringWithFormat("%@; it is left there and counts as missing", fault)
                  : localizedStringWithFormat(
                        "%@ (and %@ more like it); it is left there and counts as missing", fault,
                        std::to_string(others)));
}

// ---- Writing ----

bool SqliteStore::Implementation::setAll(const Changes& changes) {
  try {
    for (const auto& [key, value] : changes) {
      if (value) SettingsTable::check(key, *value);
    }
  } catch (const BadValue& fault) {
    tell(saving_,
         localizedStringWithFormat("a value cannot be kept: %@; it is ignored", fault.what()));
    return false;
  }
  if (unsaved_.empty() && isThere(changes)) return true;
  for (const auto& [key, value] : changes) unsaved_.insert_or_assign(key, value);
  overlay(changes, values_);
  return save();
}

// Looks at the rows themselves, not into the memory, whose state may be a turn old.
bool SqliteStore::Implementation::isThere(const Changes& changes) {
  if (isReplaced() || !table_) return false;
  try {
    return std::all_of(changes.begin(), changes.end(), [this](const auto& change) {
      return table_->holds(change.first, change.second);
    });
  } catch (const SQLite::Exception&) {
    return false;  // what is wrong shows again when it is written
  }
}

bool SqliteStore::Implementation::save() {
  if (access_ == Access::readOnly) {
    tell(saving_,
         std::string(localized("is open for reading only; changes last until the program ends")));
    return false;
  }
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    if (state_ != State::writable || isReplaced()) open();
    if (state_ != State::writable) return false;
    const Outcome outcome = write();
    if (outcome == Outcome::failed) return false;
    // What was written to a file that has been put aside meanwhile is not saved.
    if (outcome == Outcome::written && !isReplaced()) {
      unsaved_.clear();
      saving_.over();
      return true;
    }
  }
  tell(saving_, std::string(localized(
                    "changes cannot be saved: the file is being replaced again and again")));
  return false;
}

SqliteStore::Implementation::Outcome SqliteStore::Implementation::write() {
  try {
    table_->write(unsaved_);
    table_->waitForLocks(patience_);
    return Outcome::written;
  } catch (const SQLite::Exception& error) {
    if (isDamage(error) && putAside(error)) {
      open();
      return Outcome::putAside;
    }
    if (isForWantOfALock(error)) table_->waitForLocks(kImpatience);
    tell(saving_, localizedStringWithFormat("changes cannot be saved: %@", error.what()));
    return Outcome::failed;
  }
}

// ---- The store ----

SqliteStore::SqliteStore(std::filesystem::path file, Access access, Turn turn, Warn warn,
                         std::chrono::milliseconds patience)
    : implementation_(std::make_unique<Implementation>(std::move(file), access, std::move(turn),
                                                       std::move(warn), patience)) {}

SqliteStore::~SqliteStore() = default;

const PropertyValue* SqliteStore::find(std::string_view key) const {
  const PropertyValue::Dictionary& values = implementation_->values();
  const auto found = values.find(key);
  return found == values.end() ? nullptr : &found->second;
}

void SqliteStore::set(std::string_view key, std::optional<PropertyValue> value) {
  Changes change;
  change.emplace(key, std::move(value));
  implementation_->setAll(change);
}

bool SqliteStore::setAll(const Changes& changes) { return implementation_->setAll(changes); }

const PropertyValue::Dictionary& SqliteStore::values() const { return implementation_->values(); }

SqliteStore::State SqliteStore::state() const { return implementation_->state(); }

const std::filesystem::path& SqliteStore::file() const { return implementation_->file(); }

}  // namespace wayfell
