#include "hosts/window/panel/PanelOutlet.h"

#include <cmath>

#include "hosts/panel/Spoken.h"
#include "hosts/window/panel/CanvasPainter.h"
#include "platform/UnitFactors.h"

namespace wayfell {

PanelOutlet::PanelOutlet(const WidgetInterface& interface, std::string_view name, QObject* parent)
    : QObject(parent), interface_(interface), name_(name), view_(interface.view(name)) {
  setObjectName(QString::fromUtf8(name.data(), std::ssize(name)));
}

QString PanelOutlet::text() const {
  return label() ? QString::fromStdString(label()->text().value_or("")) : QString();
}

QString PanelOutlet::lines() const {
  return text().replace(QStringLiteral(", "), QStringLiteral("\n"));
}

QString PanelOutlet::spoken() const {
  return QString::fromStdString(spokenText(interface_, name_));
}

bool PanelOutlet::bold() const { return label() != nullptr && label()->font().bold; }

bool PanelOutlet::centered() const {
  return label() != nullptr && label()->textAlignment() == NSTextAlignment::center;
}

QColor PanelOutlet::borderColor() const { return colorOf(view_.layer().borderColor); }

double PanelOutlet::rotation() const { return view_.transform().rotation * kDegreesPerRadian; }

void PanelOutlet::tellChanged(double turnSeconds) {
  // How long it takes before where to: what turns begins as soon as it hears where to.
  turnDuration_ = static_cast<int>(std::lround(turnSeconds * 1000));
  emit turnDurationChanged();
  emit changed();
}

}  // namespace wayfell
