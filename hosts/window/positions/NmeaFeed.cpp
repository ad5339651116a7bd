#include "hosts/window/positions/NmeaFeed.h"

#include <QTcpSocket>
#include <utility>

#include "hosts/services/location/FixQuality.h"
#include "hosts/window/positions/DeviceFile.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// Qt takes twice this times the dilution of precision for the accuracy.
constexpr double kRangeError = kMetresPerDilution / 2;

bool isRecent(const std::optional<std::chrono::steady_clock::time_point>& when) {
  return when && std::chrono::steady_clock::now() - *when < kLongestSilence;
}

}  // namespace

NmeaFeed::NmeaFeed(IoRunLoop& loop, std::string receiver, OpenDevice openDevice,
                   const RetryDelays& delays)
    : loop_(loop),
      receiver_(std::move(receiver)),
      openDevice_(std::move(openDevice)),
      delay_(delays) {}

NmeaFeed::~NmeaFeed() { close(); }

void NmeaFeed::open() {
  delay_.succeeded();
  failure_.clear();
  begin();
}

void NmeaFeed::close() {
  end();
  if (timer_) loop_.cancelTimer(*std::exchange(timer_, std::nullopt));
}

void NmeaFeed::begin() {
  attempt_ = std::make_shared<bool>(true);
  // Not at once: whoever reports a failure is still at work, and is about to be ended.
  const Failed failed = [this, attempt = std::weak_ptr(attempt_)](const std::string& reason) {
    loop_.perform([this, attempt, reason] {
      if (!attempt.expired()) fail(reason);
    });
  };
  device_ = openDevice_(failed);
  if (!device_) return;
  QObject::connect(device_.get(), &QIODevice::readyRead, device_.get(),
                   [this] { lastBytes_ = Clock::now(); });
  reader_ = std::make_unique<NmeaReader>();
  reader_->setUserEquivalentRangeError(kRangeError);
  reader_->setDevice(device_.get());
  QObject::connect(reader_.get(), &QGeoPositionInfoSource::positionUpdated, reader_.get(),
                   [this](const QGeoPositionInfo& position) {
                     lastPosition_ = Clock::now();
                     delay_.succeeded();
                     failure_.clear();
                     if (onPosition) onPosition(reader_->asSaid(position));
                   });
  reader_->startUpdates();
}

void NmeaFeed::fail(const std::string& reason) {
  end();
  failure_ = reason;
  timer_ = loop_.scheduleTimer(delay_.afterFailure(), false, [this] {
    timer_.reset();
    begin();
  });
}

void NmeaFeed::end() {
  attempt_.reset();
  reader_.reset();
  device_.reset();
  lastBytes_.reset();
  lastPosition_.reset();
}

std::string NmeaFeed::name() const {
  // Translators: a receiver's protocol, and where it is.
  return localizedStringWithFormat("NMEA from %@", receiver_);
}

std::string NmeaFeed::trouble() const {
  if (timer_ || (attempt_ && !failure_.empty())) {
    return localizedStringWithFormat("no contact: %@", localized(failure_));
  }
  if (!attempt_ || isRecent(lastPosition_)) return "";
  return std::string(isRecent(lastBytes_) ? localized("no fix") : localized("receiver silent"));
}

std::unique_ptr<NmeaFeed> nmeaFromServer(IoRunLoop& loop, const std::string& host,
                                         std::uint16_t port, const RetryDelays& delays) {
  const auto open = [host, port](const NmeaFeed::Failed& failed) {
    auto socket = std::make_unique<QTcpSocket>();
    QTcpSocket* const each = socket.get();
    // A connection that is closed by the other side ends with an error too.
    QObject::connect(each, &QAbstractSocket::errorOccurred, each,
                     [each, failed] { failed(each->errorString().toStdString()); });
    each->connectToHost(QString::fromStdString(host), port, QIODevice::ReadOnly);
    return socket;
  };
  return std::make_unique<NmeaFeed>(loop, host + ":" + std::to_string(port), open, delays);
}

std::unique_ptr<NmeaFeed> nmeaFromDevice(IoRunLoop& loop, const std::string& path,
                                         const RetryDelays& delays) {
  const auto open = [&loop, path](const NmeaFeed::Failed& failed) {
    return DeviceFile::open(loop, path, failed);
  };
  return std::make_unique<NmeaFeed>(loop, path, open, delays);
}

}  // namespace wayfell
