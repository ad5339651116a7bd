#include "hosts/window/positions/GeoclueFeed.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

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

void GeoclueFeed::open() {
  denied_ = false;
  trouble_ = textKey("waiting for GeoClue");
  // Without the service the plug-in would report its troubles to a log only.
  if (!geoclueIsThere()) {
    trouble_ = textKey("there is no GeoClue");
    return;
  }
  source_.reset(QGeoPositionInfoSource::createSource(
      QStringLiteral("geoclue2"),
      {{QStringLiteral("desktopId"), QStringLiteral("org.wayfell.Widget")}}, nullptr));
  if (!source_) {
    trouble_ = textKey("Qt's plug-in for GeoClue is not installed");
    return;
  }
  QObject::connect(source_.get(), &QGeoPositionInfoSource::positionUpdated, source_.get(),
                   [this](const QGeoPositionInfo& position) {
                     trouble_ = "";
                     if (onPosition) onPosition(position);
                   });
  QObject::connect(source_.get(), &QGeoPositionInfoSource::errorOccurred, source_.get(),
                   [this](QGeoPositionInfoSource::Error error) { fail(error); });
  source_->startUpdates();
}

void GeoclueFeed::close() {
  source_.reset();
  trouble_ = "";
}

std::string GeoclueFeed::trouble() const {
  return trouble_.empty() ? "" : std::string(localized(trouble_));
}

CLAuthorizationStatus GeoclueFeed::authorization() const {
  return denied_ ? CLAuthorizationStatus::denied : CLAuthorizationStatus::authorizedWhenInUse;
}

void GeoclueFeed::fail(QGeoPositionInfoSource::Error error) {
  switch (error) {
    case QGeoPositionInfoSource::AccessError:
      denied_ = true;
      trouble_ = textKey("GeoClue refuses: see the desktop's privacy settings");
      break;
    case QGeoPositionInfoSource::UpdateTimeoutError:
      trouble_ = textKey("no fix");
      break;
    case QGeoPositionInfoSource::NoError:
      break;
    case QGeoPositionInfoSource::ClosedError:
    case QGeoPositionInfoSource::UnknownSourceError:
      trouble_ = textKey("GeoClue has failed");
      break;
  }
}

}  // namespace wayfell
