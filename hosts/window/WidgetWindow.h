// The widget's window: a panel without a frame that is taken hold of anywhere.
//
// Pointer: what is a button or can be copied is the panel's; by everything else the window is
// moved, and by its left and right edge it is made wider. Its height is that of the panel, or of
// the list of keys in its place, and of the host's line.
#pragma once

#include <QPoint>
#include <QQuickView>
#include <optional>
#include <string>
#include <vector>

#include "hosts/loop/qt/QtRunLoop.h"
#include "hosts/scene/Scene.h"
#include "hosts/window/Theme.h"
#include "hosts/window/WindowMemory.h"
#include "hosts/window/WindowPlace.h"
#include "hosts/window/panel/PanelAdapter.h"

namespace wayfell {

struct WindowWishes {
  bool alwaysOnTop = false;
  bool opaque = false;
  /// Other windows of this program on the display, which are to stay visible. One that has stepped
  /// aside keeps no place for next time.
  int others = 0;
};

class WidgetWindow : public QQuickView {
  Q_OBJECT

 public:
  /// What is given must live on.
  WidgetWindow(QtRunLoop& loop, Scene& scene, PanelAdapter& panel, Theme& theme,
               WindowMemory& memory, const WindowWishes& wishes);
  ~WidgetWindow() override;
  WidgetWindow(const WidgetWindow&) = delete;
  WidgetWindow& operator=(const WidgetWindow&) = delete;

  /// Somebody has asked for it anew: all of it is to be seen, before other windows, as far as those
  /// who manage windows let it. The token is what Wayland asks for.
  void comeToFront(const QByteArray& activationToken);

 protected:
  bool event(QEvent* event) override;
  void exposeEvent(QExposeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Where the pointer went down, on the screen, and what it has hold of.
  struct Grip {
    QPoint start;
    QRect geometry;
    Qt::Edges edges;  // none to move the window
    bool held = false;
  };

  Q_SLOT void fitHeight();
  Q_SLOT void showPanel();
  Q_SLOT void actAsListed(int index);
  void loadContents();
  void takeKeptPlace();
  void followPlace();
  void followVisibility();
  void act(const PanelRequest& request);
  void showKeys();
  bool hideKeys();
  Qt::Edges edgesAt(const QPoint& point) const;
  bool takesByItself(QEvent& event);
  void grip(const QMouseEvent& press);
  void hold(QMouseEvent& move);
  void showEdge(const QMouseEvent& move);
  void keepSoon();
  void keep();

  QtRunLoop& loop_;
  Scene& scene_;
  PanelAdapter& panel_;
  Theme& theme_;
  WindowMemory& memory_;
  const bool keepsPlace_;
  WindowPlace place_;
  std::optional<QPoint> at_;  // its corner, as last heard of
  std::vector<QPoint> own_;   // corners that it has moved to by itself, in the last moments
  std::optional<Grip> grip_;
  std::optional<RunLoop::TimerId> keeping_;
  std::vector<PanelAction> listed_;  // whose keys the list tells
  bool wasSeen_ = false;
  bool hiddenWithWindow_ = false;
};

}  // namespace wayfell
