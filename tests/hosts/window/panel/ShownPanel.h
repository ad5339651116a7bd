// The panel in a window that nobody sees, on a widget that does what the test says.
#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <memory>
#include <string>

#include "hosts/replay/ReplayedWidget.h"
#include "hosts/window/panel/PanelAdapter.h"
#include "hosts/window/panel/PanelStyle.h"

namespace wayfell {

/// A scene that stands still but for what is done to it.
class StillScene : public Scene {
 public:
  explicit StillScene(ReplayedWidget& widget) : widget_(widget) {}

  const WidgetInterface& interface() const override { return widget_.interface(); }
  bool onScreen() const override { return shown; }
  Freshness freshness() const override { return fresh; }
  Lines lines() const override { return said; }
  std::optional<std::string> fault() const override { return failed; }
  std::optional<std::string> takeNews() override { return std::exchange(news, std::nullopt); }
  std::span<const PanelAction> actions() const override { return {}; }

  bool shown = true;
  Freshness fresh;
  Lines said;
  std::optional<std::string> failed;
  std::optional<std::string> news;

 protected:
  void letAppear() override { shown = true; }
  void letDisappear() override { shown = false; }
  void actItself(const PanelRequest& /*request*/) override {}

 private:
  ReplayedWidget& widget_;
};

class ShownPanel {
 public:
  /// The root item of an interface file, "Panel" or "HostLine", on a widget that has been loaded.
  explicit ShownPanel(ReplayedWidget& widget, double width = 359, const char* file = "Panel");

  PanelAdapter& adapter() { return adapter_; }
  PanelStyle& style() { return style_; }
  StillScene& scene() { return scene_; }
  QQuickWindow& window() { return window_; }
  QQuickItem& root() { return *root_; }
  /// All items of the panel, those of repeaters too.
  QList<QQuickItem*> items() const;
  /// The item of that name; throws when there is none, or several.
  QQuickItem& item(const QString& name) const;

  void resize(double width);
  /// Takes over what has changed, and draws it.
  QImage draw();

 private:
  StillScene scene_;
  PanelAdapter adapter_;
  PanelStyle style_;
  QQmlEngine engine_;
  QQuickWindow window_;
  std::unique_ptr<QQuickItem> root_;
};

}  // namespace wayfell
