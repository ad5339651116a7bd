// All that the interface files know of the widget and of its scene.
//
// Nothing changes for a binding until refresh(), and then only what differs in what the panel
// means.
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
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QtQmlIntegration>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "hosts/panel/PanelReading.h"
#include "hosts/scene/Scene.h"
#include "hosts/scene/ViewWatch.h"
#include "hosts/window/panel/ShownRow.h"

class QQmlEngine;

namespace wayfell {

class PanelAdapter : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("It comes with a scene.")
  Q_PROPERTY(wayfell::ShownRow* compass READ compass CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* heading READ heading CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* position READ position CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* zone READ zone CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* altitude READ altitude CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* speed READ speed CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* waypointDistance READ waypointDistance CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* eta READ eta CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* trackTime READ trackTime CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* trackDistance READ trackDistance CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* address READ address CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* formats READ formats CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* open READ open CONSTANT)
  Q_PROPERTY(wayfell::ShownRow* layout READ layout CONSTANT)
  Q_PROPERTY(double preferredHeight READ preferredHeight NOTIFY layoutChanged)
  Q_PROPERTY(bool onScreen READ onScreen NOTIFY layoutChanged)
  Q_PROPERTY(bool compact READ compact NOTIFY layoutChanged)
  Q_PROPERTY(double openRadius READ openRadius NOTIFY layoutChanged)
  Q_PROPERTY(double layoutTurn READ layoutTurn NOTIFY layoutTurnChanged)
  Q_PROPERTY(int layoutTurnDuration READ layoutTurnDuration NOTIFY layoutTurnDurationChanged)
  Q_PROPERTY(QString tape READ tape NOTIFY tapeChanged)
  Q_PROPERTY(double tapeOffset READ tapeOffset NOTIFY tapeChanged)
  Q_PROPERTY(double tapeRadius READ tapeRadius NOTIFY tapeChanged)
  Q_PROPERTY(double tapeBorderWidth READ tapeBorderWidth NOTIFY tapeChanged)
  Q_PROPERTY(QColor tapeBorderColor READ tapeBorderColor NOTIFY tapeChanged)
  Q_PROPERTY(bool markShown READ markShown NOTIFY tapeChanged)
  Q_PROPERTY(QStringList positionLines READ positionLines NOTIFY positionChanged)
  Q_PROPERTY(bool linesAreNamed READ linesAreNamed NOTIFY positionChanged)
  Q_PROPERTY(double northTurn READ northTurn NOTIFY compassChanged)
  Q_PROPERTY(double waypointTurn READ waypointTurn NOTIFY compassChanged)
  Q_PROPERTY(bool waypointKnown READ waypointKnown NOTIFY compassChanged)
  Q_PROPERTY(bool northDim READ northDim NOTIFY compassChanged)
  Q_PROPERTY(bool waypointDim READ waypointDim NOTIFY compassChanged)
  Q_PROPERTY(QString northLetter READ northLetter CONSTANT)
  Q_PROPERTY(int compassTurnDuration READ compassTurnDuration NOTIFY compassTurnDurationChanged)
  Q_PROPERTY(QStringList formatTitles READ formatTitles NOTIFY formatsChanged)
  Q_PROPERTY(QStringList spokenFormats READ spokenFormats NOTIFY formatsChanged)
  Q_PROPERTY(int format READ format NOTIFY formatsChanged)
  Q_PROPERTY(QColor chosenTitleColor READ chosenTitleColor NOTIFY formatsChanged)
  Q_PROPERTY(QString copyWords READ copyWords CONSTANT)
  Q_PROPERTY(bool live READ live NOTIFY linesChanged)
  Q_PROPERTY(QString badge READ badge NOTIFY linesChanged)
  Q_PROPERTY(QString title READ title NOTIFY linesChanged)
  Q_PROPERTY(QString state READ state NOTIFY linesChanged)
  Q_PROPERTY(QString warning READ warning NOTIFY linesChanged)
  Q_PROPERTY(QString note READ note NOTIFY linesChanged)
  Q_PROPERTY(QString credit READ credit NOTIFY linesChanged)
  Q_PROPERTY(QString message READ message NOTIFY linesChanged)
  Q_PROPERTY(QString fault READ fault NOTIFY linesChanged)

 public:
  /// The only observer of the scene's views. The scene must live on.
  explicit PanelAdapter(Scene& scene, QObject* parent = nullptr);

  /// Takes over what has changed since the last time.
  void refresh();
  /// Something that the user should hear of, until the next news or request.
  void tell(const QString& news);
  /// What the user asks for of the scene.
  void act(const PanelRequest& request);

  Q_INVOKABLE void pickFormat(int format) { act({PanelAction::pickFormat, format}); }
  /// Picks the format so many after the present one, if there is one.
  Q_INVOKABLE void pickNext(int step);
  Q_INVOKABLE void switchLayout() { act({PanelAction::switchLayout}); }
  Q_INVOKABLE void openApp() { act({PanelAction::openApp}); }
  /// Puts the position's text on the clipboard, or what is copied instead of it, and tells so for
  /// a while.
  Q_INVOKABLE void copyPosition();
  /// Lets those who hear the panel know at once what an item, an alert message, now says.
  Q_INVOKABLE void alert(QObject* item) const;
  /// None while there is no position.
  void setCopiedText(std::function<std::optional<std::string>()> text) {
    copiedText_ = std::move(text);
  }

  ShownRow* compass() { return &row(PanelRow::compass); }
  ShownRow* heading() { return &row(PanelRow::heading); }
  ShownRow* position() { return &row(PanelRow::position); }
  ShownRow* zone() { return &row(PanelRow::zone); }
  ShownRow* altitude() { return &row(PanelRow::altitude); }
  ShownRow* speed() { return &row(PanelRow::speed); }
  ShownRow* waypointDistance() { return &row(PanelRow::waypointDistance); }
  ShownRow* eta() { return &row(PanelRow::eta); }
  ShownRow* trackTime() { return &row(PanelRow::trackTime); }
  ShownRow* trackDistance() { return &row(PanelRow::trackDistance); }
  ShownRow* address() { return &row(PanelRow::address); }
  ShownRow* formats() { return &row(PanelRow::formats); }
  ShownRow* open() { return &row(PanelRow::open); }
  ShownRow* layout() { return &row(PanelRow::layout); }
  ShownRow& row(PanelRow row) { return rows_.at(static_cast<std::size_t>(row)); }

  double preferredHeight() const { return reading_.height; }
  bool onScreen() const { return onScreen_; }
  bool compact() const { return reading_.compact; }
  double openRadius() const { return reading_.openPlate.cornerRadius; }
  double layoutTurn() const { return reading_.layoutTurn; }
  /// Milliseconds that the last turn takes to be seen; 0 for at once.
  int layoutTurnDuration() const { return layoutTurnDuration_; }

  QString tape() const { return QString::fromStdString(reading_.tape); }
  double tapeOffset() const { return reading_.tapeOffset; }
  double tapeRadius() const { return reading_.tapeFrame.cornerRadius; }
  double tapeBorderWidth() const { return reading_.tapeFrame.borderWidth; }
  QColor tapeBorderColor() const;
  bool markShown() const { return reading_.markShown; }
  /// The position as it stands: two coordinates, or a reference broken between its parts.
  QStringList positionLines() const;
  /// Whether each line of the position's caption names the one of the position beside it.
  bool linesAreNamed() const { return reading_.captionNamesLines; }
  /// Degrees, clockwise from up, of north and of the waypoint. They go on beyond a full turn, so
  /// that from one to the next is always the shorter way.
  double northTurn() const { return northTurn_; }
  double waypointTurn() const { return waypointTurn_; }
  bool waypointKnown() const { return reading_.waypoint.has_value(); }
  /// Whether that is old, or not known yet.
  bool northDim() const { return reading_.northDim; }
  bool waypointDim() const { return reading_.waypointDim; }
  /// What stands for north on the dial.
  QString northLetter() const;
  /// Milliseconds that the last turn takes to be seen; 0 for a small one, which is every second's.
  int compassTurnDuration() const { return compassTurnDuration_; }

  QStringList formatTitles() const;
  /// The titles are short; these are for those who hear them.
  QStringList spokenFormats() const;
  int format() const { return reading_.format; }
  QColor chosenTitleColor() const;
  /// What copyPosition does, for those who hear it.
  QString copyWords() const;

  /// The host's own lines, as Scene has them.
  /// Whether what is shown is where the user is.
  bool live() const { return lines_.kind == Scene::Kind::live; }
  QString badge() const { return QString::fromStdString(badgeText(lines_.kind)); }
  QString title() const { return QString::fromStdString(lines_.title); }
  QString state() const { return QString::fromStdString(lines_.state); }
  QString warning() const { return QString::fromStdString(lines_.warning); }
  QString note() const { return QString::fromStdString(lines_.note); }
  QString credit() const { return QString::fromStdString(lines_.credit); }
  /// The fault, or else the news until the next request.
  QString message() const;
  const QString& fault() const { return fault_; }

  CornerView& corner() const { return scene_.interface().views().cornerView; }

 signals:
  void layoutChanged();
  void layoutTurnDurationChanged();
  void layoutTurnChanged();
  void tapeChanged();
  void positionChanged();
  void compassTurnDurationChanged();
  void compassChanged();
  void formatsChanged();
  void linesChanged();

 private:
  void takePanel();
  void turnCompass();
  void takeLines();

  Scene& scene_;
  ViewWatch watch_;
  std::function<std::optional<std::string>()> copiedText_;
  QTimer confirmation_;  // while it is told what has been copied
  QString confirmed_;
  std::array<ShownRow, kPanelRows> rows_;
  Freshness fresh_;
  PanelReading reading_;

  bool onScreen_ = false;
  int layoutTurnDuration_ = 0;
  double northTurn_ = 0;
  double waypointTurn_ = 0;
  int compassTurnDuration_ = 0;
  Scene::Lines lines_;
  QString news_;
  QString fault_;
};

/// Lets the engine's interface files import Wayfell.Panel.
void addPanelImports(QQmlEngine& engine);

}  // namespace wayfell
