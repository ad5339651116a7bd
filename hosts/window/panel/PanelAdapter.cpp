#include "hosts/window/panel/PanelAdapter.h"

#include <QQmlEngine>
#include <utility>

namespace wayfell {

PanelAdapter::PanelAdapter(Scene& scene, QObject* parent) : QObject(parent), scene_(scene) {
  for (const auto& named : scene.interface().views()) {
    auto* outlet = new PanelOutlet(*named.view, this);
    watched_[named.view.get()].outlet = outlet;
    outlets_.insert(QString::fromUtf8(named.name.data(), std::ssize(named.name)),
                    QVariant::fromValue(outlet));
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
  takeSegments();
  takeLines();
}

void PanelAdapter::takeOutlets() {
  for (Watched* watched : std::exchange(changed_, {})) {
    watched->changed = false;
    if (const auto animation = std::exchange(watched->animation, std::nullopt)) {
      watched->outlet->take(*animation);
    } else {
      watched->outlet->take();
    }
  }
}

void PanelAdapter::takeLayout() {
  const double height = scene_.interface().preferredContentSize().height;
  const bool onScreen = scene_.onScreen();
  if (height == preferredHeight_ && onScreen == onScreen_) return;
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

void addPanelImports(QQmlEngine& engine) { engine.addImportPath(QStringLiteral("qrc:/qt/qml")); }

}  // namespace wayfell
