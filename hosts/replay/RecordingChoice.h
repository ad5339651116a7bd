// What a command line says of the recording to play, and the recording itself.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/replay/Recording.h"
#include "hosts/replay/ReplayedWidget.h"

namespace wayfell {

struct RecordingChoice {
  std::string file;  ///< "-" for standard input; not used with the demo
  bool demo = false;
  std::vector<std::string> suite;  ///< settings to begin with, "KEY=VALUE"
  std::vector<std::string> local;

  bool isChosen() const { return demo || !file.empty(); }
  /// As complaints call the recording.
  std::string name() const;
  /// Writes the settings. Throws InputError for what cannot be read.
  void applySettings(ReplayedWidget& widget) const;
};

class OpenFile {
 public:
  /// "-" is standard input. Throws InputError.
  explicit OpenFile(const std::string& path);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor() const { return descriptor_; }
  bool isOnDisk() const;

 private:
  int descriptor_;
};

/// A chosen recording, open for as long as this lives.
class ChosenRecording {
 public:
  /// How an input is read that is no file on a disk, and may be slow: as events are asked for, or
  /// to its end at once.
  enum class Slow { wait, readAll };

  /// Throws InputError.
  explicit ChosenRecording(const RecordingChoice& choice, Slow slow = Slow::wait);
  ChosenRecording(const ChosenRecording&) = delete;
  ChosenRecording& operator=(const ChosenRecording&) = delete;

  Recording& operator*() const { return *recording_; }

 private:
  std::optional<OpenFile> file_;
  std::string text_;
  std::unique_ptr<Recording> recording_;
};

}  // namespace wayfell
