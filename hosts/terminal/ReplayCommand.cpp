#include "hosts/terminal/ReplayCommand.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>

#include "hosts/replay/Demo.h"
#include "hosts/replay/InputError.h"
#include "hosts/replay/Recording.h"
#include "hosts/replay/Replay.h"
#include "hosts/replay/Settings.h"
#include "hosts/replay/Snapshot.h"
#include "hosts/terminal/Elapsed.h"
#include "hosts/terminal/PanelText.h"
#include "hosts/terminal/Progress.h"

namespace wayfell {
namespace {

void complain(const std::string& what) { std::fprintf(stderr, "wayfell: %s\n", what.c_str()); }

class File {
 public:
  explicit File(const std::string& path)
      : descriptor_(path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) throw InputError(std::string("cannot be opened: ") + std::strerror(errno));
  }
  ~File() {
    if (descriptor_ != STDIN_FILENO) close(descriptor_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

// What is printed is gone on purpose when the reader has gone: that is no error.
class Output {
 public:
  bool readerGone() const { return error_ == EPIPE; }
  int error() const { return error_; }
  bool ok() const { return error_ == 0; }

  void line(const std::string& text) {
    if (ok() && (std::fwrite(text.data(), 1, text.size(), stdout) < text.size() ||
                 std::fputc('\n', stdout) == EOF)) {
      error_ = errno;
    }
  }
  void flush() {
    if (ok() && std::fflush(stdout) == EOF) error_ = errno;
  }

 private:
  int error_ = 0;
};

void printPanel(const ReplayedWidget& widget, double seconds, Output& output) {
  for (const std::string& line : panelText(widget.interface(), elapsedText(seconds))) {
    output.line(line);
  }
  for (const auto& url : widget.host().urls.requests) {
    output.line("opened " + (url ? url->absoluteString() : "nothing, as the URL was not valid"));
  }
}

// "--suite" and "--local": throws InputError for what cannot be read.
void applySettings(const ReplayCommand& command, ReplayedWidget& widget) {
  for (const std::string& text : command.suite) {
    try {
      widget.apply(event::WriteSuite{settingOfText(text)});
    } catch (const InputError& error) {
      throw InputError(std::string("--suite: ") + error.what());
    }
  }
  for (const std::string& text : command.local) {
    try {
      event::WriteLocal write{settingOfText(text)};
      makeAddressDate(write.settings);
      widget.apply(write);
    } catch (const InputError& error) {
      throw InputError(std::string("--local: ") + error.what());
    }
  }
}

void play(const ReplayCommand& command, const std::string& name, Recording& recording,
          ReplayedWidget& widget, Output& output) {
  if (const auto note = recording.note()) complain(name + ": " + *note);
  Progress progress;
  std::optional<double> start;
  const auto elapsed = [&start](double t) {
    if (!start) start = t;
    return t - *start;
  };
  const auto show = [&](ReplayedWidget& shown) {
    progress.clear();
    if (command.text) {
      const double now = shown.host().loop.now().timeIntervalSinceReferenceDate;
      printPanel(shown, elapsed(now), output);
    } else {
      output.line(snapshotLine(shown));
    }
    shown.host().urls.requests.clear();
    return output.ok();
  };
  Replay(command.every, show, [&](double t) {
    progress.reach(elapsed(t));
  }).play(recording, widget);
}

int playAll(const ReplayCommand& command, ReplayedWidget& widget) {
  const std::string name = command.demo          ? "the demo"
                           : command.file == "-" ? "standard input"
                                                 : command.file;
  Output output;
  int status = kDone;
  try {
    std::optional<File> file;
    if (!command.demo) file.emplace(command.file);
    const auto recording =
        openRecording(InputBytes(file ? bytesOfFile(file->descriptor()) : demoBytes()));
    play(command, name, *recording, widget, output);
  } catch (const InputError& error) {
    output.flush();
    complain(name + ": " + error.what());
    status = kBadInput;
  }
  output.flush();
  if (!output.ok() && !output.readerGone()) {
    complain(std::string("standard output: ") + std::strerror(output.error()));
    status = kBadInput;
  }
  return status;
}

}  // namespace

int runReplay(const ReplayCommand& command) {
  ReplayedWidget widget;
  try {
    applySettings(command, widget);
  } catch (const InputError& error) {
    complain(error.what());
    return kBadUsage;
  }
  return playAll(command, widget);
}

}  // namespace wayfell
