#include "hosts/replay/RecordingChoice.h"

#include <cstddef>
#include <filesystem>
#include <utility>

#include "hosts/replay/Demo.h"
#include "hosts/replay/SettingChanges.h"
#include "hosts/text/TextWidth.h"

namespace wayfell {
namespace {

constexpr std::size_t kLongestInput = std::size_t{1} << 30U;  // bytes, where it is held in memory

}  // namespace

std::string RecordingChoice::name() const {
  if (demo) return "the demo";
  return file == "-" ? "standard input" : file;
}

std::string RecordingChoice::title() const {
  if (demo) return "a walk nobody took";
  if (file == "-") return "from standard input";
  return printable(std::filesystem::path(file).filename().string());
}

void FirstSettings::writeTo(ReplayedWidget& widget) const {
  for (const std::string& text : suite) widget.apply(event::WriteSuite{settingOfText(text)});
  for (const std::string& text : local) {
    event::WriteLocal write{settingOfText(text)};
    makeAddressDate(write.settings);
    widget.apply(write);
  }
}

ChosenRecording::ChosenRecording(const RecordingChoice& choice, Slow slow) {
  ByteSource bytes;
  if (choice.demo) {
    bytes = demoBytes();
  } else {
    file_.emplace(choice.file);
    bytes = bytesOfFile(file_->descriptor());
  }
  if (file_ && slow == Slow::readAll && !file_->isOnDisk()) {
    text_ = InputBytes(std::move(bytes)).readAll(kLongestInput);
    bytes = bytesOfText(text_);
  }
  recording_ = openRecording(InputBytes(std::move(bytes)));
}

}  // namespace wayfell
