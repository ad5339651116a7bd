#include "hosts/window/panel/PanelAdapter.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlEngine>
#include <algorithm>
#include <cmath>
#include <utility>

#include "hosts/panel/Spoken.h"
#include "hosts/window/panel/CanvasPainter.h"
#include "hosts/window/panel/DrawnView.h"
#include "hosts/window/panel/ShapeItem.h"
#include "hosts/window/panel/ShorterWay.h"
#include "hosts/window/panel/TapeItem.h"

namespace wayfell {
namespace {

constexpr double kSmallTurn = 15;  // degrees
constexpr int kTurnMilliseconds = 200;

}  // namespace

PanelAdapter::PanelAdapter(Scene& scene, QObject* parent) : QObject(parent), scene_(scene) {
  for (const auto& named : scene.interface().views()) {
    auto* outlet = new PanelOutlet(scene.interface(), named.name, this);
    watched_[named.view.get()].outlet = outlet;
    outlets_.insert(outlet->objectName(), QVariant::fromValue(outlet));
  }
  observeViews(this);
  refresh();
}

PanelAdapter::~PanelAdapter() { observeViews(nullptr); }

void PanelAdapter::observeViews(UIViewObserver* observer) const {
  for (const auto& named : scene_.interface().views()) named.view->setObserver(observer);
}

void PanelAdapter::viewDidChange(UIView& view) {
  Watched& watched = watched_.at(&view);
  if (!std::exchange(watched.changed, true)) changed_.push_back(&watched);
}

void PanelAdapter::viewDidAnimate(UIView& view, const UIViewAnimation& animation) {
  viewDidChange(view);
  watched_.at(&view).animation = animation;
}

void PanelAdapter::refresh() {
  takeOutlets();
  takeLayout();
  takeTapeOffset();
  takeCompass();
  takeSegments();
  takeLines();
}

void PanelAdapter::takeOutlets() {
  for (Watched* watched : std::exchange(changed_, {})) {
    watched->changed = false;
    const auto animation = std::exchange(watched->animation, std::nullopt);
    watched->outlet->tellChanged(animation ? animation->duration : 0);
  }
}

void PanelAdapter::takeLayout() {
  const double height = scene_.interface().preferredContentSize().height;
  const bool onScreen = scene_.onScreen();
  const bool compact = scene_.interface().view("trackDataView").hidden();
  if (height == preferredHeight_ && onScreen == onScreen_ && compact == compact_) return;
  compact_ = compact;
  preferredHeight_ = height;
  onScreen_ = onScreen;
  emit layoutChanged();
}

void PanelAdapter::takeTapeOffset() {
  const double offset = scene_.interface().leftConstraint().constant().value_or(0);
  if (offset == tapeOffset_) return;
  tapeOffset_ = offset;
  emit tapeOffsetChanged();
}

void PanelAdapter::takeCompass() {
  const auto& arrow = scene_.interface().compassRotatingView().arrow();
  if (!arrow) return;
  const double needle = turnedByShorterWay(needleTurn_, -arrow->heading);
  const double turn = turnedByShorterWay(arrowTurn_, arrow->bearing - arrow->heading);
  if (needle == needleTurn_ && turn == arrowTurn_) return;
  const double greater = std::max(std::abs(needle - needleTurn_), std::abs(turn - arrowTurn_));
  compassTurnDuration_ = greater < kSmallTurn ? 0 : kTurnMilliseconds;
  emit compassTurnDurationChanged();
  needleTurn_ = needle;
  arrowTurn_ = turn;
  emit compassChanged();
}

QColor PanelAdapter::selectedTitleColor() const {
  return colorOf(UISegmentedControl::selectedTitleColor());
}

QString PanelAdapter::copyWords() const { return QString::fromStdString(spokenCopy()); }

void PanelAdapter::takeSegments() {
  const UISegmentedControl& control = scene_.interface().coordinateControl();
  QStringList titles;
  for (std::size_t i = 0; i < control.numberOfSegments(); ++i) {
    titles.append(QString::fromStdString(control.titleForSegmentAtIndex(i)));
  }
  if (titles == segmentTitles_ && control.selectedSegmentIndex() == selectedSegment_) return;
  segmentTitles_ = titles;
  selectedSegment_ = control.selectedSegmentIndex();
  emit segmentsChanged();
}

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
  if (!fault_.isEmpty()) return QStringLiteral("Stopped: ") + fault_;
  return news_;
}

void PanelAdapter::tell(const QString& news) {
  if (news == news_) return;
  news_ = news;
  emit linesChanged();
}

void PanelAdapter::touch() {
  scene_.catchUp();
  tell({});
}

void PanelAdapter::tap(const QString& outlet) {
  touch();
  if (scene_.onScreen()) scene_.tap(outlet.toStdString());
  refresh();
}

void PanelAdapter::pick(int segment) {
  touch();
  if (scene_.onScreen()) scene_.pickSegment(segment);
  refresh();
}

void PanelAdapter::pickNext(int step) {
  const int segment = selectedSegment_ + step;
  if (segment >= 0 && segment < segmentTitles_.size()) pick(segment);
}

QStringList PanelAdapter::spokenSegments() const {
  QStringList spoken;
  for (int i = 0; i < segmentTitles_.size(); ++i) {
    spoken.append(QString::fromStdString(spokenFormat(i)));
  }
  return spoken;
}

bool PanelAdapter::press(const QString& key) {
  bool isNumber = false;
  const int segment = key.toInt(&isNumber);
  if (isNumber && segment >= 0 && segment < segmentTitles_.size()) {
    pick(segment);
  } else if (key == QStringLiteral("t")) {
    tap(QStringLiteral("toggleViewButton"));
  } else if (key == QStringLiteral("o")) {
    tap(compact_ ? QStringLiteral("openMiniLabel") : QStringLiteral("openLabel"));
  } else {
    return false;
  }
  return true;
}

void PanelAdapter::copyPosition() {
  const auto position =
      copiedText_
          ? copiedText_()
          : std::optional<std::string>(scene_.interface().label("userCoordinateLabel").text());
  if (!position || position->empty()) return;
  const QString text = QString::fromStdString(*position);
  QGuiApplication::clipboard()->setText(text);
  tell(QStringLiteral("Copied: ") + text);
  emit copied();
}

void addPanelImports(QQmlEngine& engine) {
  constexpr const char* kModule = "Wayfell.Items";
  qmlRegisterType<DrawnView>(kModule, 1, 0, "DrawnView");
  qmlRegisterType<TapeItem>(kModule, 1, 0, "Tape");
  qmlRegisterType<ShapeItem>(kModule, 1, 0, "Shape");
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

}  // namespace wayfell
