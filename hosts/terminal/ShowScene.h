// Shows a scene on the terminal.
#pragma once

#include <optional>
#include <string>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/scene/Scene.h"

namespace wayfell {

/// Until the user quits or a signal ends it, which is then returned. The note is told until the
/// first key.
std::optional<int> showScene(EventLoop& loop, Scene& scene, const std::optional<std::string>& note);

/// The panel as text, once, on standard output, and the line below it. The caption stands in the
/// frame on the right. Returns the status to exit with.
int printPanel(const WidgetInterface& interface, const std::string& caption,
               const std::string& below);

}  // namespace wayfell
