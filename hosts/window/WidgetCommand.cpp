#include "hosts/window/WidgetCommand.h"

#include <unistd.h>
#include <QFontInfo>

#include <QGuiApplication>
#include <QLocale>
#include <QLoggingCategory>
#include <filesystem>
#include <utility>

#include "hosts/commandline/ExitStatus.h"
#include "hosts/commandline/StandardError.h"
#include "hosts/places/PositionText.h"
#include "hosts/services/stores/StorePaths.h"
#include "hosts/services/stores/Stores.h"
#include "hosts/services/texts/UserTexts.h"
#include "hosts/text/InputError.h"
#include "hosts/window/DesktopMotion.h"
#include "hosts/window/Display.h"
#include "hosts/window/RunningWindows.h"
#include "hosts/window/Signals.h"

namespace wayfell {
namespace {

// Drawing without a graphics driver shows the first picture in a third of the time, and takes half
// of the memory. Qt's own variables have the last word.
class DrawingWithoutDriver {
 public:
  DrawingWithoutDriver() {
    for (const char* variable : {"QT_QUICK_BACKEND", "QMLSCENE_DEVICE", "QSG_RHI_BACKEND"}) {
      if (qEnvironmentVariableIsSet(variable)) return;
    }
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    // On Wayland Qt would load the driver all the same, and there is no other way to say so. It
    // then warns that it finds none of that name.
    if (qEnvironmentVariableIsSet(kWaylandDriver)) return;
    qputenv(kWaylandDriver, "none");
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
    isSet_ = true;
  }
  /// There is a window, and the programs that are started from now on are to choose for themselves.
  void windowIsShown() {
    if (std::exchange(isSet_, false)) qunsetenv(kWaylandDriver);
  }

 private:
  static constexpr const char* kWaylandDriver = "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION";
  bool isSet_ = false;
};

// The desktop's letters, compared with what they usually are.
double desktopFontScale() {
  constexpr double kUsualPixels = 15;
  return QFontInfo(QGuiApplication::font()).pixelSize() / kUsualPixels;
}

// As the texts are: in a language without a catalogue they are English.
bool readsRightToLeft() {
  for (const std::string& language : userLanguages()) {
    const std::string known = language.substr(0, language.find_first_of("_@"));
    if (!std::filesystem::exists(catalogueFolder() / known)) continue;
    return QLocale(QString::fromStdString(language)).textDirection() == Qt::RightToLeft;
  }
  return false;
}

// Tells of what happens before there is a window as soon as there is one. What is repeated is on
// standard error once.
class Notices {
 public:
  void warn(const std::string& sentence) {
    if (std::exchange(last_, sentence) != sentence) complain(sentence);
    if (panel_) panel_->tell(QString::fromStdString(sentence));
  }
  void showOn(PanelAdapter& panel) {
    panel_ = &panel;
    if (!last_.empty()) panel.tell(QString::fromStdString(last_));
  }
  void leave() { panel_ = nullptr; }

 private:
  PanelAdapter* panel_ = nullptr;
  std::string last_;
};

// What makes a window the same as another: what was asked for, of which settings.
QByteArray identityOf(const WidgetCommand& command) {
  std::string identity =
      command.words + localStoreFile().string() + '\n' + dataFolder().string() + '\n';
  const SourceChoice& source = command.source.source;
  if (source.kind == "replay") identity += std::filesystem::current_path().string();
  // Nobody has the same standard input.
  if (source.kind == "replay" && source.where == "-") identity += std::to_string(getpid());
  return QByteArray::fromStdString(identity);
}

void show(QtRunLoop& loop, Stage& stage, const WidgetCommand& command, WindowMemory& memory,
          Notices& notices, DrawingWithoutDriver& drawing, RunningWindows& windows) {
  PanelAdapter panel(stage.scene());
  if (command.copyFormat) {
    panel.setCopiedText([&stage, format = *command.copyFormat] {
      const auto fix = stage.fix();
      return fix ? positionText(fix->coordinate, format) : std::nullopt;
    });
  }
  PanelStyle style;
  style.setFontScale(command.fontScale.value_or(desktopFontScale()));
  style.setReducedMotion(command.still);
  const DesktopMotion motion(
      sessionBusIfAny(), [&](bool reduced) { style.setReducedMotion(command.still || reduced); });
  style.setRightToLeft(readsRightToLeft());
  Theme theme(style, memory, command.theme);
  WindowWishes wishes = command.window;
  wishes.others = windows.number();
  WidgetWindow window(loop, stage.scene(), panel, theme, memory, wishes);
  windows.onAsked([&](const QByteArray& token) { loop.guard([&] { window.comeToFront(token); }); });
  notices.showOn(panel);
  loop.onTurnEnd([&] {
    stage.scene().settle();
    panel.refresh();
  });
  const Signals ending(loop, [&](int) {
    window.close();
    loop.stop();
  });
  window.show();
  drawing.windowIsShown();
  loop.run();
  loop.onTurnEnd(nullptr);
  windows.onAsked(nullptr);
  notices.leave();
}

}  // namespace

int runWidget(const Sources& sources, const WidgetCommand& command) {
  const auto display = connectToDisplay();
  if (!display) {
    complain("no display answers; in a terminal, \"wayfell today\" shows the panel");
    return kBadInput;
  }
  DrawingWithoutDriver drawing;
  int argumentCount = 1;
  std::string name = "wayfell-widget";
  char* arguments[] = {name.data(), nullptr};
  const QGuiApplication application(argumentCount, arguments);
  QGuiApplication::setDesktopFileName(QStringLiteral("org.wayfell.Widget"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Wayfell"));

  RunningWindows windows(identityOf(command));
  if (windows.hasSame()) {
    complain("it is running already, and its window has been told to come to the front");
    return kDone;
  }
  QtRunLoop loop;
  Notices notices;
  const Warn warn = [&notices](const std::string& sentence) { notices.warn(sentence); };
  Stores stores([&loop] { return loop.turn(); }, warn);
  WindowMemory memory(stores.standardDefaults());
  const OpenedSource opened = openSource(loop, sources, command.source, warn);
  if (opened.missing) warn(*opened.missing);
  if (opened.note) warn(*opened.note);
  show(loop, *opened.stage, command, memory, notices, drawing, windows);
  if (const auto fault = opened.stage->fault()) throw InputError(*fault);
  return kDone;
}

}  // namespace wayfell
