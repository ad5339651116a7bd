// One row of the panel as interface files see it.
#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <string>

#include "hosts/panel/PanelReading.h"

namespace wayfell {

class ShownRow : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The panel has them.")
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString caption READ caption NOTIFY changed)
  Q_PROPERTY(QString value READ value NOTIFY changed)
  Q_PROPERTY(bool bold READ bold NOTIFY changed)
  Q_PROPERTY(bool centered READ centered NOTIFY changed)
  /// Points that the widget itself has set, or else 0.
  Q_PROPERTY(double fontSize READ fontSize NOTIFY changed)
  /// What it says is old or not known yet.
  Q_PROPERTY(bool dim READ dim NOTIFY changed)
  Q_PROPERTY(QString spoken READ spoken NOTIFY changed)

 public:
  using QObject::QObject;

  /// What is said is for those who hear the panel.
  void take(const PanelReading::Row& row, std::string said);

  bool shown() const { return row_.shown; }
  QString caption() const { return QString::fromStdString(row_.caption); }
  QString value() const { return QString::fromStdString(row_.value); }
  bool bold() const { return row_.bold; }
  bool centered() const { return row_.centered; }
  double fontSize() const { return row_.fontSize; }
  bool dim() const { return row_.dim; }
  QString spoken() const { return QString::fromStdString(said_); }

 signals:
  void changed();

 private:
  PanelReading::Row row_;
  std::string said_;
};

}  // namespace wayfell
