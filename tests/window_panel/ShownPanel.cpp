#include "ShownPanel.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <stdexcept>

namespace wayfell {

ShownPanel::ShownPanel(ReplayedWidget& widget, double width) : scene_(widget), adapter_(scene_) {
  addPanelImports(engine_);
  QQmlComponent component(&engine_, QUrl(QStringLiteral("qrc:/qt/qml/Wayfell/Panel/Panel.qml")));
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

QQuickItem& ShownPanel::item(const QString& name) const {
  const auto found = root_->findChildren<QQuickItem*>(name);
  if (found.size() != 1) {
    throw std::out_of_range(std::to_string(found.size()) + " items " + name.toStdString());
  }
  return *found.front();
}

QImage ShownPanel::draw(double scale) {
  adapter_.refresh();
  window_.resize(window_.width(), static_cast<int>(root_->height()));
  QCoreApplication::processEvents();
  static_cast<void>(scale);
  return window_.grabWindow();
}

}  // namespace wayfell
