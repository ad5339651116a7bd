#include "hosts/terminal/ShowScene.h"

#include <csignal>

#include "hosts/terminal/LivePanel.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/PanelText.h"
#include "hosts/terminal/Terminal.h"

namespace wayfell {

std::optional<int> showScene(EventLoop& loop, Scene& scene,
                             const std::optional<std::string>& note) {
  std::optional<int> endedBy;
  // Before the terminal, whose library would otherwise watch for some of them itself.
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    loop.onSignal(signal, [&loop, &endedBy, signal] {
      endedBy = signal;
      loop.stop();
    });
  }
  Terminal terminal;
  LivePanel panel(loop, terminal, scene);
  if (note) panel.tell(*note);
  panel.run();
  return endedBy;
}

int printPanel(const WidgetInterface& interface, const std::string& caption,
               const std::string& below) {
  Output output;
  for (const std::string& line : panelText(interface, caption)) output.line(line);
  output.line(below);
  return output.finish(kDone);
}

}  // namespace wayfell
