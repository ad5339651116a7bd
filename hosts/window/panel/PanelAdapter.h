// All that the interface files know of the widget and of its scene.
//
// The views are found by the names of their outlets: `panel.outlets.altitudeLabel.text`. Nothing
// changes for a binding until refresh(), and then only what has changed in the views.
//
// To show the panel in an item of some window:
//
//   PanelAdapter adapter(scene);
//   PanelStyle style;
//   addPanelImports(engine);
//   // in an interface file: import Wayfell.Panel
//   //   Panel { panel: adapter; look: style; width: 359 }       its height follows
//   //   HostLine { panel: adapter; look: style; width: 359 }    its height is its implicit one
//   adapter.refresh();  // at the end of each turn of the loop
#pragma once

#include <QColor>
#include <QObject>
#include <QQmlPropertyMap>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/scene/Scene.h"
#include "hosts/window/panel/PanelOutlet.h"

class QQmlEngine;

namespace wayfell {

class PanelAdapter : public QObject, private UIViewObserver {
  Q_OBJECT
  Q_PROPERTY(QQmlPropertyMap* outlets READ outlets CONSTANT)
  Q_PROPERTY(double preferredHeight READ preferredHeight NOTIFY layoutChanged)
  Q_PROPERTY(bool onScreen READ onScreen NOTIFY layoutChanged)
  Q_PROPERTY(bool compact READ compact NOTIFY layoutChanged)
  Q_PROPERTY(double tapeOffset READ tapeOffset NOTIFY tapeOffsetChanged)
  Q_PROPERTY(double needleTurn READ needleTurn NOTIFY compassChanged)
  Q_PROPERTY(double arrowTurn READ arrowTurn NOTIFY compassChanged)
  Q_PROPERTY(int compassTurnDuration READ compassTurnDuration NOTIFY compassTurnDurationChanged)
  Q_PROPERTY(QStringList segmentTitles READ segmentTitles NOTIFY segmentsChanged)
  Q_PROPERTY(QStringList spokenSegments READ spokenSegments NOTIFY segmentsChanged)
  Q_PROPERTY(int selectedSegment READ selectedSegment NOTIFY segmentsChanged)
  Q_PROPERTY(QColor selectedTitleColor READ selectedTitleColor NOTIFY segmentsChanged)
  Q_PROPERTY(QString copyWords READ copyWords CONSTANT)
  Q_PROPERTY(QString badge READ badge NOTIFY linesChanged)
  Q_PROPERTY(QString title READ title NOTIFY linesChanged)
  Q_PROPERTY(QString state READ state NOTIFY linesChanged)
  Q_PROPERTY(QString warning READ warning NOTIFY linesChanged)
  Q_PROPERTY(QString credit READ credit NOTIFY linesChanged)
  Q_PROPERTY(QString message READ message NOTIFY linesChanged)
  Q_PROPERTY(QString fault READ fault NOTIFY linesChanged)

 public:
  /// The only observer of the scene's views. The scene must live on.
  explicit PanelAdapter(Scene& scene, QObject* parent = nullptr);
  ~PanelAdapter() override;
  PanelAdapter(const PanelAdapter&) = delete;
  PanelAdapter& operator=(const PanelAdapter&) = delete;

  /// Takes over what has changed since the last time.
  void refresh();
  /// Something that the user should hear of, until the next news or touch.
  void tell(const QString& news);

  /// A touch as the user's; what is not on the screen cannot be touched.
  Q_INVOKABLE void tap(const QString& outlet);
  Q_INVOKABLE void pick(int segment);
  /// Picks the segment so many after the selected one, if there is one.
  Q_INVOKABLE void pickNext(int step);

  /// Whether the key is one of the panel's, and then does what it stands for: a digit picks that
  /// format, "t" switches the layout, "o" opens the app.
  Q_INVOKABLE bool press(const QString& key);
  /// Puts the position's text on the clipboard, or what is copied instead of it.
  Q_INVOKABLE void copyPosition();
  /// None while there is no position.
  void setCopiedText(std::function<std::optional<std::string>()> text) {
    copiedText_ = std::move(text);
  }

  QQmlPropertyMap* outlets() { return &outlets_; }
  /// Points: 78 compact, 286 expanded.
  double preferredHeight() const { return preferredHeight_; }
  bool onScreen() const { return onScreen_; }
  bool compact() const { return compact_; }
  /// How far the tape stands to the right of its frame's left edge, in points.
  double tapeOffset() const { return tapeOffset_; }
  /// Degrees, clockwise from up, of north and of the waypoint. They go on beyond a full turn, so
  /// that from one to the next is always the shorter way.
  double needleTurn() const { return needleTurn_; }
  double arrowTurn() const { return arrowTurn_; }
  /// Milliseconds that the last turn takes to be seen; 0 for a small one, which is every second's.
  int compassTurnDuration() const { return compassTurnDuration_; }
  const QStringList& segmentTitles() const { return segmentTitles_; }
  /// The titles are short; these are for those who hear them.
  QStringList spokenSegments() const;
  /// None is selected by a number that no segment has.
  int selectedSegment() const { return selectedSegment_; }
  QColor selectedTitleColor() const;
  /// What copyPosition does, for those who hear it.
  QString copyWords() const;

  /// The host's own lines, as Scene has them.
  QString badge() const { return QString::fromStdString(lines_.badge); }
  QString title() const { return QString::fromStdString(lines_.title); }
  QString state() const { return QString::fromStdString(lines_.state); }
  QString warning() const { return QString::fromStdString(lines_.warning); }
  QString credit() const { return QString::fromStdString(lines_.credit); }
  /// The fault, or else the news until the next touch.
  QString message() const;
  const QString& fault() const { return fault_; }

 signals:
  void layoutChanged();
  void tapeOffsetChanged();
  void compassTurnDurationChanged();
  void compassChanged();
  void segmentsChanged();
  void linesChanged();
  /// The position is on the clipboard, and what is told says so.
  void copied();

 private:
  struct Watched {
    PanelOutlet* outlet = nullptr;
    bool changed = false;
    std::optional<UIViewAnimation> animation;
  };

  void viewDidChange(UIView& view) override;
  void viewDidAnimate(UIView& view, const UIViewAnimation& animation) override;
  void observeViews(UIViewObserver* observer) const;
  void touch();

  void takeOutlets();
  void takeLayout();
  void takeTapeOffset();
  void takeCompass();
  void takeSegments();
  void takeLines();

  Scene& scene_;
  std::function<std::optional<std::string>()> copiedText_;
  QQmlPropertyMap outlets_;
  std::unordered_map<const UIView*, Watched> watched_;
  std::vector<Watched*> changed_;

  double preferredHeight_ = 0;
  bool onScreen_ = false;
  bool compact_ = false;
  double tapeOffset_ = 0;
  double needleTurn_ = 0;
  double arrowTurn_ = 0;
  int compassTurnDuration_ = 0;
  QStringList segmentTitles_;
  int selectedSegment_ = UISegmentedControl::kNoSegment;
  Scene::Lines lines_;
  QString news_;
  QString fault_;
};

/// Lets the engine's interface files import Wayfell.Panel.
void addPanelImports(QQmlEngine& engine);

}  // namespace wayfell
