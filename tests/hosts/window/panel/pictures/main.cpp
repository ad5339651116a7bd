// Draws the panel as it is on the demo's fifth minute, for the documents: window_pictures FOLDER
#include <QDir>
#include <QGuiApplication>
#include <iostream>

#include "ShownPanel.h"
#include "hosts/replay/Demo.h"
#include "hosts/replay/Player.h"
#include "hosts/replay/Recording.h"

namespace {

constexpr double kMinutes = 5;
constexpr int kMgrs = 3;

bool save(wayfell::ShownPanel& panel, const QDir& folder, const QString& name) {
  return panel.draw().save(folder.filePath(name + QStringLiteral(".png")));
}

bool drawAll(const QDir& folder) {
  wayfell::ReplayedWidget widget;
  const auto recording = wayfell::openRecording(wayfell::InputBytes(wayfell::demoBytes()));
  wayfell::Player player(*recording, widget);
  player.advanceTo(player.now() + kMinutes * 60);
  wayfell::ShownPanel panel(widget);
  panel.style().setReducedMotion(true);  // nothing is to be seen midway
  bool saved = true;
  for (const char* layout : {"expanded", "compact"}) {
    for (const auto& [theme, name] : {std::pair{wayfell::PanelStyle::dark, "dark"},
                                      std::pair{wayfell::PanelStyle::light, "light"},
                                      std::pair{wayfell::PanelStyle::sunlight, "sunlight"}}) {
      panel.style().setTheme(theme);
      saved = save(panel, folder, QStringLiteral("window-%1-%2").arg(layout, name)) && saved;
    }
    panel.adapter().switchLayout();
  }
  panel.style().setTheme(wayfell::PanelStyle::light);
  panel.scene().fresh = {.fix = false, .heading = false};
  saved = save(panel, folder, QStringLiteral("window-old")) && saved;
  panel.scene().fresh = {};
  panel.resize(wayfell::PanelStyle::kNarrowest);
  panel.adapter().pickFormat(kMgrs);
  return save(panel, folder, QStringLiteral("window-narrow")) && saved;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  const QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::cerr << "usage: window_pictures FOLDER\n";
    return 2;
  }
  if (drawAll(QDir(QString::fromLocal8Bit(argv[1])))) return 0;
  std::cerr << "the pictures cannot be written to " << argv[1] << '\n';
  return 1;
}
