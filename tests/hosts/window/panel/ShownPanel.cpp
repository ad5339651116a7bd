#include "ShownPanel.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <stdexcept>

namespace wayfell {

ShownPanel::ShownPanel(ReplayedWidget& widget, double width, const char* file)
    : scene_(widget), adapter_(scene_) {
  addPanelImports(engine_);
  QQmlComponent component(&engine_,
                          QUrl(QStringLiteral("qrc:/qt/qml/Wayfell/Panel/%1.qml").arg(file)));
  QObject* made = component.createWithInitialProperties(
      {{"panel", QVariant::fromValue(&adapter_)}, {"look", QVariant::fromValue(&style_)}});
  root_.reset(qobject_cast<QQuickItem*>(made));
  if (!root_) throw std::runtime_error(component.errorString().toStdString());
  root_->setParentItem(window_.contentItem());
  root_->setFocus(true);
  window_.setColor(Qt::transparent);
  resize(width);
  window_.show();
}

void ShownPanel::resize(double width) {
  root_->setWidth(width);
  window_.resize(static_cast<int>(width), static_cast<int>(root_->height()));
}

QList<QQuickItem*> ShownPanel::items() const {
  QList<QQuickItem*> all = {root_.get()};
  for (qsizetype i = 0; i < all.size(); ++i) all.append(all[i]->childItems());
  return all;
}

QQuickItem& ShownPanel::item(const QString& name) const {
  QQuickItem* found = nullptr;
  for (QQuickItem* item : items()) {
    if (item->objectName() != name) continue;
    if (found) throw std::out_of_range("several items " + name.toStdString());
    found = item;
  }
  if (!found) throw std::out_of_range("no item " + name.toStdString());
  return *found;
}

QImage ShownPanel::draw() {
  adapter_.refresh();
  window_.resize(window_.width(), static_cast<int>(root_->height()));
  QCoreApplication::processEvents();
  return window_.grabWindow();
}

}  // namespace wayfell
