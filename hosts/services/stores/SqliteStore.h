// Settings in a file that several programs read and write at once; docs/shared-suite.md is the
// contract between them.
//
// Reads are answered from memory. The first one in a turn of the run loop looks whether anyone has
// written since and then takes over all keys as they stood at one instant, so that all reads of a
// turn see one state, besides what this process itself writes meanwhile.
//
// What is written is on the disk when the call returns: it outlives the program's death and a loss
// of power. A change that cannot be saved is still seen by this process, and is tried again with
// the next write.
//
// Nothing throws. What is wrong with the file is said through `warn`, once, and the store goes on
// with what can be read, which may be nothing. A damaged file is renamed and a new one begun; a
// file of another program, or of a later version of this one, is never written to.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/services/Warn.h"
#include "platform/Host.h"

namespace wayfell {

/// Tells which turn it is: what is read under one number is of one state.
using Turn = std::function<std::uint64_t()>;
/// For programs without a run loop: every read is a turn of its own.
Turn turnOfEachRead();

class SqliteStore : public KeyValueStore {
 public:
  enum class Access {
    readWrite,  ///< the file and its folder are created when they are missing
    readOnly,   ///< nothing is created; a missing file is one without settings until it is there
  };

  /// How long opening waits for another program's lock, and an open store for a command. Whoever
  /// writes holds it for milliseconds.
  static constexpr std::chrono::milliseconds kCommandPatience{2000};
  /// Short, since a panel waits with its store: what is put off is tried again with the next
  /// change.
  static constexpr std::chrono::milliseconds kPanelPatience{200};

  SqliteStore(std::filesystem::path file, Access access, Turn turn, Warn warn,
              std::chrono::milliseconds patience = kCommandPatience);
  ~SqliteStore() override;

  const PropertyValue* find(std::string_view key) const override;
  /// Writes nothing when the value, of the same type, is there already.
  void set(std::string_view key, std::optional<PropertyValue> value) override;

  /// None removes the key.
  using Changes = std::map<std::string, std::optional<PropertyValue>, std::less<>>;
  /// Writes all of them or none, so that others see them together. False when they could not be
  /// saved, which has been warned about.
  bool setAll(const Changes& changes);

  /// All settings, of the same state as find's; valid until the next call.
  const PropertyValue::Dictionary& values() const;

  enum class State {
    writable,
    readable,    ///< what is there can be read, but nothing can be saved
    missing,     ///< opened for reading, and not there (yet)
    unreadable,  ///< nothing can be read, and why has been warned about
  };
  State state() const;
  const std::filesystem::path& file() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace wayfell
