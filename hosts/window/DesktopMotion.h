// Whether the desktop asks programs not to move what they show.
//
// Its settings portal (org.freedesktop.portal.Settings, on the session's bus) tells, in one of
// three ways; the first is every desktop's, the others are what GNOME's and KDE's portals told
// before:
//
//   org.freedesktop.appearance    reduced-motion            1
//   org.gnome.desktop.interface   enable-animations         false
//   org.kde.kdeglobals.KDE        AnimationDurationFactor   0
//
// Qt tells nothing of it.
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QSet>
#include <functional>

namespace wayfell {

class DesktopMotion : public QObject {
  Q_OBJECT

 public:
  /// Tells at each change whether any of them asks for it; for the first time when the desktop has
  /// answered, and never where nobody does.
  DesktopMotion(QDBusConnection bus, std::function<void(bool reduced)> tell);

 private:
  void takeAnswer(QDBusPendingCallWatcher& call);
  void take(const QString& space, const QString& key, const QVariant& value);
  Q_SLOT void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  std::function<void(bool reduced)> tell_;
  QSet<QString> reducing_;  // the spaces whose setting asks for it
};

/// The session's bus; not connected where the environment names none, so that none is started.
QDBusConnection sessionBusIfAny();

}  // namespace wayfell
