#include "hosts/replay/RecordingChoice.h"

#include <cstddef>
#include <filesystem>
#include <utility>

#include "hosts/replay/Demo.h"
#include "hosts/replay/OtherFormats.h"
#include "hosts/settings/KnownSettings.h"
#include "hosts/text/InputError.h"
#include "hosts/text/TextWidth.h"
#include "hosts/text/Utf8.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr std::size_t kLongestInput = std::size_t{1} << 30U;  // bytes, where it is held in memory

}  // namespace

std::string RecordingChoice::name() const {
  if (demo) return "the demo";
  return file == "-" ? "standard input" : file;
}

std::string RecordingChoice::title() const {
  if (demo) return std::string(localized("a walk nobody took"));
  if (file == "-") return std::string(localized("from standard input"));
  return printable(std::filesystem::path(file).filename().string());
}

event::Settings settingOfText(std::string_view text) {
  if (!isUtf8(text)) throw InputError("not UTF-8");
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0) {
    throw InputError('"' + std::string(text) + "\" is not KEY=VALUE");
  }
  event::Settings settings;
  const std::string_view key = text.substr(0, equals);
  settings.emplace(key, valueUnder(key, text.substr(equals + 1)));
  return settings;
}

void makeAddressDate(event::Settings& settings) {
  const auto date = settings.find("addressDate");
  if (date == settings.end() || !date->second) return;
  const PropertyValue::Storage& stored = date->second->storage();
  if (std::holds_alternative<double>(stored) || std::holds_alternative<std::int64_t>(stored)) {
    date->second = PropertyValue(NSDate{date->second->doubleValue()});
  }
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
  if (choice.demo) {
    recording_ = openRecording(InputBytes(demoBytes()));
    return;
  }
  file_.emplace(choice.file);
  recording_ = openRecording(file_->isOnDisk()       ? InputBytes(bytesOfFile(file_->descriptor()))
                             : slow == Slow::readAll ? all()
                                                     : untilSignal());
}

InputBytes ChosenRecording::all() {
  InputBytes input(bytesOfFile(file_->descriptor()));
  refuseOtherFiles(input.peek(kToldBy));
  text_ = input.readAll(kLongestInput);
  return InputBytes(bytesOfText(text_));
}

InputBytes ChosenRecording::untilSignal() {
  slow_.emplace(file_->descriptor());
  slow_->onWait = [this] {
    if (onWait) onWait();
  };
  return InputBytes([this](char* buffer, std::size_t size) { return slow_->read(buffer, size); });
}

}  // namespace wayfell
