#include "hosts/window/positions/GeoclueFeed.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <utility>

#include "platform/NSBundle.h"

namespace wayfell {
namespace {

const QString kService = QStringLiteral("org.freedesktop.GeoClue2");
constexpr int kLongestAnswer = 1000;  // milliseconds

}  // namespace

bool geoclueIsThere() {
  const QDBusConnection bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return false;
  if (bus.interface()->isServiceRegistered(kService)) return true;
  const QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListActivatableNames"));
  const QDBusMessage answer = bus.call(question, QDBus::Block, kLongestAnswer);
  return answer.type() == QDBusMessage::ReplyMessage &&
         answer.arguments().value(0).toStringList().contains(kService);
}

GeoclueFeed::GeoclueFeed(IoRunLoop& loop, const RetryDelays& delays)
    : loop_(loop), delay_(delays) {}

void GeoclueFeed::open() {
  delay_.succeeded();
  trouble_ = textKey("waiting for GeoClue");
  begin();
}

void GeoclueFeed::close() {
  end();
  if (timer_) loop_.cancelTimer(*std::exchange(timer_, std::nullopt));
  trouble_ = "";
  denied_ = false;
}

void GeoclueFeed::begin() {
  attempt_ = std::make_shared<bool>(true);
  // Without the service the plug-in would report its troubles to a log only.
  if (!geoclueIsThere()) return fail(textKey("there is no GeoClue"));
  source_.reset(QGeoPositionInfoSource::createSource(
      QStringLiteral("geoclue2"),
      {{QStringLiteral("desktopId"), QStringLiteral("org.wayfell.Widget")}}, nullptr));
  if (!source_) return fail(textKey("Qt's plug-in for GeoClue is not installed"));
  QObject::connect(source_.get(), &QGeoPositionInfoSource::positionUpdated, source_.get(),
                   [this](const QGeoPositionInfo& position) { takePosition(position); });
  QObject::connect(source_.get(), &QGeoPositionInfoSource::errorOccurred, source_.get(),
                   [this](QGeoPositionInfoSource::Error error) { takeError(error); });
  watcher_ = std::make_unique<QDBusServiceWatcher>(kService, QDBusConnection::systemBus(),
                                                   QDBusServiceWatcher::WatchForUnregistration);
  QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceUnregistered, watcher_.get(),
                   [this] { fail(textKey("there is no GeoClue")); });
  source_->startUpdates();
}

void GeoclueFeed::end() {
  attempt_.reset();
  source_.reset();
  watcher_.reset();
}

std::string GeoclueFeed::trouble() const {
  return trouble_.empty() ? "" : std::string(localized(trouble_));
}

CLAuthorizationStatus GeoclueFeed::authorization() const {
  return denied_ ? CLAuthorizationStatus::denied : CLAuthorizationStatus::authorizedWhenInUse;
}

// GeoClue estimates the accuracy of each. What comes without is the last position of an earlier
// run, with which the plug-in begins.
void GeoclueFeed::takePosition(const QGeoPositionInfo& position) {
  if (!position.hasAttribute(QGeoPositionInfo::HorizontalAccuracy)) return;
  trouble_ = "";
  denied_ = false;
  delay_.succeeded();
  if (onPosition) onPosition(position);
}

void GeoclueFeed::takeError(QGeoPositionInfoSource::Error error) {
  switch (error) {
    case QGeoPositionInfoSource::AccessError:
      denied_ = true;
      fail(textKey("GeoClue refuses: see the desktop's privacy settings"));
      break;
    case QGeoPositionInfoSource::UpdateTimeoutError:
      trouble_ = textKey("no fix");
      break;
    case QGeoPositionInfoSource::NoError:
      break;
    case QGeoPositionInfoSource::ClosedError:
    case QGeoPositionInfoSource::UnknownSourceError:
      fail(textKey("GeoClue has failed"));
      break;
  }
}

// Who reports a failure is still at work, and is about to be ended.
void GeoclueFeed::fail(std::string_view trouble) {
  trouble_ = trouble;
  loop_.perform([this, attempt = std::weak_ptr(attempt_)] {
    if (attempt.expired()) return;
    end();
    timer_ = loop_.scheduleTimer(delay_.afterFailure(), false, [this] {
      timer_.reset();
      begin();
    });
  });
}

}  // namespace wayfell
