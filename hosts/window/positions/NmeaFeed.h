// NMEA 0183, as receivers speak it, over TCP or from a device file. The connection is kept up: what
// is not there, or hangs up, is tried again (RetryDelay), soon once a position has come.
#pragma once

#include <QIODevice>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/RetryDelay.h"
#include "hosts/window/positions/NmeaReader.h"
#include "hosts/window/positions/PositionFeed.h"

namespace wayfell {

class NmeaFeed : public PositionFeed {
 public:
  using Failed = std::function<void(const std::string& reason)>;
  /// Begins to open a device, which calls back once it has failed, now or later.
  using OpenDevice = std::function<std::unique_ptr<QIODevice>(const Failed& failed)>;

  /// The receiver as people write it: "/dev/ttyUSB0".
  NmeaFeed(IoRunLoop& loop, std::string receiver, OpenDevice openDevice,
           const RetryDelays& delays = {});
  ~NmeaFeed() override;

  void open() override;
  void close() override;
  std::string name() const override;
  std::string trouble() const override;

 private:
  using Clock = std::chrono::steady_clock;

  void begin();
  void fail(const std::string& reason);
  void end();

  IoRunLoop& loop_;
  const std::string receiver_;
  const OpenDevice openDevice_;
  RetryDelay delay_;
  std::shared_ptr<bool> attempt_;  // outlived by what its device may still report
  std::unique_ptr<QIODevice> device_;
  std::unique_ptr<NmeaReader> reader_;
  std::optional<RunLoop::TimerId> timer_;
  std::string failure_;
  std::optional<Clock::time_point> lastBytes_;
  std::optional<Clock::time_point> lastPosition_;
};

/// The host may be a name or an address.
std::unique_ptr<NmeaFeed> nmeaFromServer(IoRunLoop& loop, const std::string& host,
                                         std::uint16_t port, const RetryDelays& delays = {});
/// A serial port is used at the speed that it is set to, and given back as it was. A file, as
/// written by one who listens to a receiver, is read to its end.
std::unique_ptr<NmeaFeed> nmeaFromDevice(IoRunLoop& loop, const std::string& path,
                                         const RetryDelays& delays = {});

}  // namespace wayfell
