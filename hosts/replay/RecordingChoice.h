// What a command line says of the recording to play, and the recording itself.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/replay/Recording.h"
#include "hosts/replay/ReplayedWidget.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/InputFile.h"
#include "hosts/text/InputUntilSignal.h"

namespace wayfell {

struct RecordingChoice {
  std::string file;  ///< "-" for standard input; not used with the demo
  bool demo = false;

  bool isChosen() const { return demo || !file.empty(); }
  /// As complaints call the recording.
  std::string name() const;
  /// As the screen calls it, fit for a terminal.
  std::string title() const;
};

/// "KEY=VALUE", the value without a type (see valueUnder). Throws InputError without a key, and
/// for what is not UTF-8.
event::Settings settingOfText(std::string_view text);

/// In the local store a number under "addressDate" is a date in seconds since the reference date,
/// the way snapshots print it; the widget reads nothing else there.
void makeAddressDate(event::Settings& settings);

/// Settings that a recording begins with, each "KEY=VALUE" (settingOfText).
struct FirstSettings {
  std::vector<std::string> suite;
  std::vector<std::string> local;

  /// Throws InputError for what is none.
  void writeTo(ReplayedWidget& widget) const;
};

/// A chosen recording, open for as long as this lives.
class ChosenRecording {
 public:
  /// How an input is read that is no file on a disk, and may be slow: as events are asked for,
  /// until its end or Ctrl-C (InputUntilSignal), or to its end at once.
  enum class Slow { wait, readAll };

  /// Throws InputError.
  explicit ChosenRecording(const RecordingChoice& choice, Slow slow = Slow::wait);
  ChosenRecording(const ChosenRecording&) = delete;
  ChosenRecording& operator=(const ChosenRecording&) = delete;

  Recording& operator*() const { return *recording_; }

  /// Called while a slow input is waited for, after something has come (InputUntilSignal).
  std::function<void()> onWait;

 private:
  InputBytes all();
  InputBytes untilSignal();

  std::optional<InputFile> file_;
  std::optional<InputUntilSignal> slow_;
  std::string text_;
  std::unique_ptr<Recording> recording_;
};

}  // namespace wayfell
