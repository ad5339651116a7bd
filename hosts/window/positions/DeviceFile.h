// A serial port, a pipe or another file that is read as it comes, for those of Qt that want a
// device. Qt's own files do not tell when there is something to read.
#pragma once

#include <termios.h>

#include <QByteArray>
#include <QIODevice>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

class DeviceFile : public QIODevice {
 public:
  using Failed = std::function<void(const std::string& reason)>;

  /// Calls back, and returns none, when it cannot be opened; calls back later when it ends or
  /// fails. A terminal, as serial ports are, is set to pass on bytes as they are.
  static std::unique_ptr<DeviceFile> open(IoRunLoop& loop, const std::string& path,
                                          const Failed& failed);
  ~DeviceFile() override;

  bool isSequential() const override { return true; }
  qint64 bytesAvailable() const override { return buffer_.size() + QIODevice::bytesAvailable(); }
  bool canReadLine() const override { return buffer_.contains('\n') || QIODevice::canReadLine(); }

 protected:
  qint64 readData(char* data, qint64 size) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  DeviceFile(IoRunLoop& loop, int descriptor, Failed failed);
  void takeAvailable();
  void makeRaw();

  IoRunLoop& loop_;
  int descriptor_;
  Failed failed_;
  IoRunLoop::WatchId watch_ = 0;
  std::optional<termios> before_;
  QByteArray buffer_;
};

}  // namespace wayfell
