// The desktop's location service and its compass, on a system bus of the test's own.
#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QThread>
#include <limits>

#include "hosts/loop/qt/QtRunLoop.h"
#include "hosts/window/positions/GeoclueFeed.h"
#include "hosts/window/positions/QtPositionSource.h"
#include "support/Folder.h"
#include "support/Locations.h"

struct SecondsAndMicroseconds {
  qulonglong seconds = 0;
  qulonglong microseconds = 0;
};
Q_DECLARE_METATYPE(SecondsAndMicroseconds)
QDBusArgument& operator<<(QDBusArgument& argument, const SecondsAndMicroseconds& time) {
  argument.beginStructure();
  argument << time.seconds << time.microseconds;
  argument.endStructure();
  return argument;
}
const QDBusArgument& operator>>(const QDBusArgument& argument, SecondsAndMicroseconds& time) {
  argument.beginStructure();
  argument >> time.seconds >> time.microseconds;
  argument.endStructure();
  return argument;
}

namespace wayfell {
namespace {

constexpr RetryDelays kQuickly = {.first = 0.02, .longest = 0.08};
constexpr double kUnknownAltitude = -std::numeric_limits<double>::max();  // as GeoClue says it

// Answers as GeoClue and iio-sensor-proxy do, in a thread of its own, as Qt waits for some answers.
class Desktop : public QDBusVirtualObject {
 public:
  static inline const QString kGeoclue = "org.freedesktop.GeoClue2";
  static inline const QString kSensors = "net.hadess.SensorProxy";

  explicit Desktop(const QString& address)
      : bus_(QDBusConnection::connectToBus(address, "desktop")) {
    qDBusRegisterMetaType<SecondsAndMicroseconds>();
    properties_["HasCompass"] = true;
    properties_["CompassHeading"] = 0.0;
    moveToThread(&thread_);
    thread_.start();
    perform([this] { bus_.registerVirtualObject("/", this, QDBusConnection::SubPath); });
  }
  ~Desktop() override {
    QDBusConnection::disconnectFromBus("desktop");
    thread_.quit();
    thread_.wait();
  }

  void come(const QString& service) {
    perform([&] { bus_.registerService(service); });
  }
  void go(const QString& service) {
    perform([&] { bus_.unregisterService(service); });
  }
  void refuse(bool refuses) {
    perform([&] { refuses_ = refuses; });
  }
  void locate(const QVariantMap& values) {
    perform([&] {
      for (const auto& [name, value] : values.asKeyValueRange()) properties_[name] = value;
      QDBusMessage signal =
          QDBusMessage::createSignal(kClient, kGeoclue + ".Client", "LocationUpdated");
      signal << QVariant::fromValue(QDBusObjectPath("/")) << location();
      bus_.send(signal);
    });
  }
  void turn(double heading) {
    perform([&] {
      properties_["CompassHeading"] = heading;
      QDBusMessage signal =
          QDBusMessage::createSignal("/net/hadess/SensorProxy/Compass",
                                     "org.freedesktop.DBus.Properties", "PropertiesChanged");
      signal << kSensors + ".Compass" << QVariantMap{{"CompassHeading", heading}} << QStringList();
      bus_.send(signal);
    });
  }
  bool isStarted() {
    bool isStarted = false;
    perform([&] { isStarted = isStarted_; });
    return isStarted;
  }
  bool isCompassClaimed() {
    bool isClaimed = false;
    perform([&] { isClaimed = isCompassClaimed_; });
    return isClaimed;
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    const QString member = message.member();
    if (refuses_ && (member == "GetClient" || member == "Start")) {
      return bus.send(message.createErrorReply(QDBusError::AccessDenied, "no agent"));
    }
    if (member == "Start" || member == "Stop") isStarted_ = member == "Start";
    if (member.endsWith("Compass")) isCompassClaimed_ = member == "ClaimCompass";
    if (member == "GetClient") {
      return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(kClient))));
    }
    if (member == "GetAll") return bus.send(message.createReply(properties_));
    if (member != "Get") return bus.send(message.createReply());
    const QVariant value = properties_.value(message.arguments().value(1).toString(), location());
    return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
  }

 private:
  static inline const QString kClient = "/org/freedesktop/GeoClue2/Client/1";

  void perform(const std::function<void()>& action) {
    QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
  }
  QVariant location() const {
    return QVariant::fromValue(
        QDBusObjectPath(properties_.contains("Latitude") ? kClient + "/Location/1" : "/"));
  }

  QDBusConnection bus_;
  QThread thread_;
  QVariantMap properties_;
  bool refuses_ = false;
  bool isStarted_ = false;
  bool isCompassClaimed_ = false;
};

// For all tests of this program: Qt asks for the bus's address once.
class OwnBus : public testing::Environment {
 public:
  static inline QString address;
  void SetUp() override {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    daemon_.waitForReadyRead();
    address = daemon_.readLine().trimmed();
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toLatin1());
    qputenv("XDG_DATA_HOME", folder_.path().c_str());  // the plug-in keeps its last position there
  }
  void TearDown() override {
    daemon_.kill();
    daemon_.waitForFinished();
  }

 private:
  QProcess daemon_;
  Folder folder_;
};
const testing::Environment* const kOwnBus = testing::AddGlobalTestEnvironment(new OwnBus);

// 2021-01-02T03:04:05.25Z, 631249445.25 s after the reference date (GNU date).
QVariantMap position(double latitude, double accuracy = 12) {
  return {{"Latitude", latitude},
          {"Longitude", 8.5},
          {"Accuracy", accuracy},
          {"Altitude", 408.0},
          {"Speed", 1.5},
          {"Heading", 270.0},
          {"Timestamp", QVariant::fromValue(SecondsAndMicroseconds{1609556645, 250000})}};
}

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    host.source = &source;
    manager->delegate = received;
  }
  ~DesktopTest() override { manager.reset(); }

  void runUntilTrouble(const std::string& trouble) {
    runUntil(loop, [&] { return source.feed().trouble() == trouble; });
  }
  void runUntilStarted() {
    runUntil(loop, [this] { return desktop.isStarted(); });
  }
  CLLocation locate(const QVariantMap& values) {
    const std::size_t before = received->fixes.size();
    desktop.locate(values);
    runUntil(loop, [&] { return received->fixes.size() > before; });
    return received->fixes.back();
  }

  Desktop desktop{OwnBus::address};
  QtRunLoop loop;
  LocationHost host;
  QtPositionSource source{loop, host.loop, std::make_unique<GeoclueFeed>(loop, kQuickly)};
  std::shared_ptr<Received> received = std::make_shared<Received>();
  std::unique_ptr<CLLocationManager> manager = std::make_unique<CLLocationManager>();
};

TEST_F(DesktopTest, TellsPositionsAsLongAsTheyAreAskedFor) {
  desktop.come(Desktop::kGeoclue);
  manager->startUpdatingLocation();
  EXPECT_EQ(source.feed().trouble(), "waiting for GeoClue");
  runUntilStarted();
  EXPECT_EQ(locate(position(47.5)),
            (CLLocation{{47.5, 8.5}, 408, 12, 5, 1.5, 270, {631249445.25}}));
  EXPECT_EQ(source.feed().trouble(), "");
  // A city, found by the machine's address: no altitude, no speed, and no course.
  QVariantMap city = position(47.4, 25000);
  city["Speed"] = city["Heading"] = -1.0;
  city["Altitude"] = kUnknownAltitude;
  EXPECT_EQ(locate(city), (CLLocation{{47.4, 8.5}, 408, 25000, -1, -1, -1, {631249445.25}}));
  // The plug-in takes 0 for a satellite's.
  EXPECT_EQ(locate(position(47.3, 0)).horizontalAccuracy, 5);
  manager->stopUpdatingLocation();
  EXPECT_EQ(source.feed().trouble(), "");

  // Asked again, it begins with the position of before, which is no news.
  received->fixes.clear();
  desktop.refuse(true);
  manager->startUpdatingLocation();
  runUntilTrouble("GeoClue refuses: see the desktop's privacy settings");
  EXPECT_TRUE(received->fixes.empty());
}

TEST_F(DesktopTest, IsAskedAgainWhereItIsMissingOrRefuses) {
  manager->startUpdatingLocation();
  runUntilTrouble("there is no GeoClue");
  desktop.refuse(true);
  desktop.come(Desktop::kGeoclue);
  runUntilTrouble("GeoClue refuses: see the desktop's privacy settings");
  EXPECT_EQ(source.authorizationStatus(), CLAuthorizationStatus::denied);
  desktop.refuse(false);  // an agent has come, or the user allows it
  runUntilStarted();
  EXPECT_EQ(locate(position(1)).coordinate.latitude, 1);
  EXPECT_EQ(source.authorizationStatus(), CLAuthorizationStatus::authorizedWhenInUse);
  desktop.go(Desktop::kGeoclue);
  runUntilTrouble("there is no GeoClue");
  desktop.come(Desktop::kGeoclue);
  runUntil(loop, [this] { return received->fixes.size() == 2; });  // its last one
  EXPECT_EQ(locate(position(3)).coordinate.latitude, 3);
}

TEST_F(DesktopTest, HasACompass) {
  desktop.come(Desktop::kSensors);
  manager->startUpdatingHeading();
  runUntil(loop, [this] { return desktop.isCompassClaimed(); });
  desktop.turn(87.5);
  const CLHeading magnetic = {-1, 87.5, 5};
  runUntil(loop,
           [&] { return !received->headings.empty() && received->headings.back() == magnetic; });
  EXPECT_TRUE(source.deliversHeadings());
  manager->stopUpdatingHeading();
  runUntil(loop, [this] { return !desktop.isCompassClaimed(); });
}

}  // namespace
}  // namespace wayfell
