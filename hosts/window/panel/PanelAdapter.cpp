#include "hosts/window/panel/PanelAdapter.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QQmlEngine>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "hosts/panel/Spoken.h"
#include "hosts/window/panel/CornerItem.h"
#include "hosts/window/panel/DisplayedText.h"
#include "platform/NSBundle.h"

// Qt makes it of the types that are declared for interface files.
// NOLINTNEXTLINE(readability-identifier-naming)
extern void qml_register_types_Wayfell_Panel();

namespace wayfell {
namespace {

constexpr double kSmallTurn = 15;  // degrees
constexpr int kTurnMilliseconds = 200;
constexpr std::chrono::seconds kConfirmation{4};  // of a copy

// The angle, in degrees, that shows the direction and is at most half a turn away from the present
// one: from 350 to 10 it is 370. What is no direction leaves the present one.
double turnedByShorterWay(double present, double direction) {
  const double turn = std::remainder(direction - present, 360.0);
  return std::isfinite(turn) ? present + turn : present;
}

}  // namespace

PanelAdapter::PanelAdapter(Scene& scene, QObject* parent)
    : QObject(parent), scene_(scene), watch_(scene) {
  confirmation_.setSingleShot(true);
  connect(&confirmation_, &QTimer::timeout, this, [this] {
    if (news_ == confirmed_) tell({});
  });
  refresh();
}

void PanelAdapter::refresh() {
  const Freshness fresh = scene_.freshness();
  const bool changed = watch_.takeChanged();
  if (changed || fresh != fresh_) {
    fresh_ = fresh;
    takePanel();
  }
  if (onScreen_ != scene_.onScreen()) {
    onScreen_ = scene_.onScreen();
    emit layoutChanged();
  }
  takeLines();
}

void PanelAdapter::takePanel() {
  const PanelReading old = std::exchange(reading_, readPanel(scene_.interface(), fresh_));
  for (std::size_t i = 0; i < kPanelRows; ++i) {
    rows_[i].take(reading_.rows[i], spokenText(scene_.interface(), PanelRow{static_cast<int>(i)}));
  }
  if (reading_.compact != old.compact || reading_.height != old.height ||
      reading_.openPlate != old.openPlate) {
    emit layoutChanged();
  }
  const auto animation = watch_.takeAnimation();
  if (reading_.layoutTurn != old.layoutTurn) {
    // How long it takes before where to: what turns begins as soon as it hears where to.
    layoutTurnDuration_ =
        static_cast<int>(std::lround((animation ? animation->duration : 0) * 1000));
    emit layoutTurnDurationChanged();
    emit layoutTurnChanged();
  }
  if (reading_.tape != old.tape || reading_.tapeOffset != old.tapeOffset ||
      reading_.tapeFrame != old.tapeFrame || reading_.markShown != old.markShown) {
    emit tapeChanged();
  }
  if (reading_[PanelRow::position] != old[PanelRow::position]) emit positionChanged();
  if (reading_.north != old.north || reading_.waypoint != old.waypoint ||
      reading_.northDim != old.northDim || reading_.waypointDim != old.waypointDim) {
    turnCompass();
  }
  if (reading_.formats != old.formats || reading_.format != old.format) emit formatsChanged();
}

void PanelAdapter::turnCompass() {
  const double north = turnedByShorterWay(northTurn_, reading_.north);
  const double waypoint =
      turnedByShorterWay(waypointTurn_, reading_.waypoint.value_or(waypointTurn_));
  const double greater = std::max(std::abs(north - northTurn_), std::abs(waypoint - waypointTurn_));
  compassTurnDuration_ = greater < kSmallTurn ? 0 : kTurnMilliseconds;
  emit compassTurnDurationChanged();
  northTurn_ = north;
  waypointTurn_ = waypoint;
  emit compassChanged();
}

QColor PanelAdapter::tapeBorderColor() const { return colorOf(reading_.tapeFrame.borderColor); }

QStringList PanelAdapter::positionLines() const {
  const QString text = QString::fromStdString(reading_[PanelRow::position].value);
  return reading_.captionNamesLines ? text.split(u'\n') : inTwoLines(text);
}

QString PanelAdapter::northLetter() const {
  return QString::fromStdString(std::string(localized("N")));
}

QStringList PanelAdapter::formatTitles() const {
  QStringList titles;
  for (const std::string& title : reading_.formats) titles.append(QString::fromStdString(title));
  return titles;
}

QStringList PanelAdapter::spokenFormats() const {
  QStringList spoken;
  for (int i = 0; i < std::ssize(reading_.formats); ++i) {
    spoken.append(QString::fromStdString(spokenFormat(i)));
  }
  return spoken;
}

QColor PanelAdapter::chosenTitleColor() const {
  return colorOf(UISegmentedControl::selectedTitleColor());
}

QString PanelAdapter::copyWords() const { return QString::fromStdString(spokenCopy()); }

void PanelAdapter::takeLines() {
  Scene::Lines lines = scene_.lines();
  const QString fault = QString::fromStdString(scene_.fault().value_or(""));
  const auto news = scene_.takeNews();
  if (lines == lines_ && fault == fault_ && !news) return;
  lines_ = std::move(lines);
  fault_ = fault;
  if (news) news_ = QString::fromStdString(*news);
  emit linesChanged();
}

QString PanelAdapter::message() const {
  if (fault_.isEmpty()) return news_;
  return QString::fromStdString(localizedStringWithFormat("Stopped: %@", fault_.toStdString()));
}

void PanelAdapter::tell(const QString& news) {
  if (news == news_) return;
  news_ = news;
  emit linesChanged();
}

void PanelAdapter::act(const PanelRequest& request) {
  tell({});
  scene_.act(request);
  refresh();
}

void PanelAdapter::pickNext(int step) {
  const int format = reading_.format + step;
  if (format >= 0 && format < std::ssize(reading_.formats)) pickFormat(format);
}

void PanelAdapter::copyPosition() {
  const auto position =
      copiedText_
          ? copiedText_()
          : std::optional<std::string>(scene_.interface().views().userCoordinateLabel.text());
  if (!position || position->empty()) return;
  QGuiApplication::clipboard()->setText(QString::fromStdString(*position));
  confirmed_ = QString::fromStdString(localizedStringWithFormat("Copied: %@", *position));
  tell(confirmed_);
  confirmation_.start(kConfirmation);
}

// Where alerts are not told of by themselves, what comes into sight is.
void PanelAdapter::alert(QObject* item) const {
  for (const auto change : {QAccessible::Alert, QAccessible::ObjectShow}) {
    QAccessibleEvent event(item, change);
    QAccessible::updateAccessibility(&event);
  }
}

void addPanelImports(QQmlEngine& engine) {
  // Without this the linker would leave out the registration, which nothing else refers to.
  [[maybe_unused]] void (*volatile registration)() = &qml_register_types_Wayfell_Panel;
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

}  // namespace wayfell
