#include "hosts/window/DesktopMotion.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QFile>
#include <QMap>
#include <utility>

namespace wayfell {
namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");

struct Setting {
  const char* space;
  const char* key;
  double reduced;  // its value that asks for no motion
};

constexpr Setting kMotionSettings[] = {{"org.freedesktop.appearance", "reduced-motion", 1},
                                       {"org.gnome.desktop.interface", "enable-animations", 0},
                                       {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", 0}};

}  // namespace

DesktopMotion::DesktopMotion(QDBusConnection bus, std::function<void(bool reduced)> tell)
    : tell_(std::move(tell)) {
  if (!bus.isConnected()) return;
  qRegisterMetaType<QDBusVariant>();  // the bus looks up by its name what a slot takes
  bus.connect(kPortal, kPath, kSettings, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QString, QString, QDBusVariant)));
  QStringList spaces;
  for (const Setting& setting : kMotionSettings) spaces.append(QLatin1String(setting.space));
  QDBusMessage question =
      QDBusMessage::createMethodCall(kPortal, kPath, kSettings, QStringLiteral("ReadAll"));
  question << spaces;
  auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    takeAnswer(*call);
    call->deleteLater();
  });
}

void DesktopMotion::takeAnswer(QDBusPendingCallWatcher& call) {
  const QDBusMessage answer = call.reply();
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}") return;
  const auto spaces = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().constFirst());
  for (auto space = spaces.begin(); space != spaces.end(); ++space) {
    for (auto setting = space->begin(); setting != space->end(); ++setting) {
      take(space.key(), setting.key(), setting.value());
    }
  }
}

void DesktopMotion::settingChanged(const QString& space, const QString& key,
                                   const QDBusVariant& value) {
  take(space, key, value.variant());
}

void DesktopMotion::take(const QString& space, const QString& key, const QVariant& value) {
  for (const Setting& setting : kMotionSettings) {
    if (space != QLatin1String(setting.space) || key != QLatin1String(setting.key)) continue;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (isNumber && number == setting.reduced) {
      reducing_.insert(space);
    } else {
      reducing_.remove(space);
    }
    tell_(!reducing_.isEmpty());
  }
}

QDBusConnection sessionBusIfAny() {
  const bool isNamed = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
                       QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
  return isNamed ? QDBusConnection::sessionBus() : QDBusConnection(QStringLiteral("none"));
}

}  // namespace wayfell
