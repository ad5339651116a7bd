// What the desktop says of motion, on a bus of its own.
#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>

#include "hosts/window/DesktopMotion.h"

using Spaces = QMap<QString, QVariantMap>;
Q_DECLARE_METATYPE(Spaces)

namespace wayfell {

namespace {

// Answers as the desktop's portal does.
class Portal : public QDBusVirtualObject {
 public:
  explicit Portal(QDBusConnection bus) : bus_(std::move(bus)) {
    qDBusRegisterMetaType<Spaces>();
    bus_.registerVirtualObject(kPath, this);
    bus_.registerService("org.freedesktop.portal.Desktop");
  }

  Spaces settings;

  void change(const QString& space, const QString& key, const QVariant& value) {
    QDBusMessage signal =
        QDBusMessage::createSignal(kPath, "org.freedesktop.portal.Settings", "SettingChanged");
    signal << space << key << QVariant::fromValue(QDBusVariant(value));
    bus_.send(signal);
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    return message.member() == "ReadAll" &&
           bus.send(message.createReply(QVariant::fromValue(settings)));
  }

 private:
  static inline const QString kPath = "/org/freedesktop/portal/desktop";
  QDBusConnection bus_;
};

class DesktopMotionTest : public testing::Test {
 protected:
  DesktopMotionTest() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    daemon_.waitForReadyRead();
    address_ = daemon_.readLine().trimmed();
  }
  void TearDown() override {
    daemon_.kill();
    daemon_.waitForFinished();
  }
  QDBusConnection connection(const QString& name) const {
    return QDBusConnection::connectToBus(address_, name);
  }
  static bool comes(const std::optional<bool>& told, bool awaited) {
    QElapsedTimer since;
    since.start();
    while (told != awaited && since.elapsed() < 2000) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
    }
    return told == awaited;
  }

 private:
  QProcess daemon_;
  QString address_;
};

TEST_F(DesktopMotionTest, IsToldByEachDesktopInItsWay) {
  const QString gnome = "org.gnome.desktop.interface";
  const struct {
    QString space, key;
    QVariant reduced, full;
  } ways[] = {{"org.freedesktop.appearance", "reduced-motion", 1U, 0U},
              {gnome, "enable-animations", false, true},
              {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0", "0.5"}};
  ASSERT_TRUE(connection("portal").isConnected());
  Portal portal(connection("portal"));
  for (const auto& [space, key, reduced, full] : ways) {
    SCOPED_TRACE(space.toStdString());
    portal.settings = {{gnome, {{"cursor-size", 0}}}};
    portal.settings[space][key] = reduced;
    std::optional<bool> told;
    const DesktopMotion motion(connection("program"), [&](bool isReduced) { told = isReduced; });
    EXPECT_TRUE(comes(told, true));
    portal.change(space, "font-scale", full);  // which says nothing of motion
    portal.change(space, key, full);
    EXPECT_TRUE(comes(told, false));
  }
}

}  // namespace
}  // namespace wayfell
