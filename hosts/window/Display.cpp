#include "hosts/window/Display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace wayfell {
namespace {

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

bool waylandAnswers() {
  const std::string name = variable("WAYLAND_DISPLAY");
  if (name.empty()) return false;
  const std::string path = (std::filesystem::path(variable("XDG_RUNTIME_DIR")) / name).string();
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path.data(), path.size());
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return false;
  const bool connected =
      connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(descriptor);
  return connected;
}

std::shared_ptr<void> connectToX() {
  if (variable("DISPLAY").empty()) return nullptr;
  std::shared_ptr<xcb_connection_t> connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
  return xcb_connection_has_error(connection.get()) == 0 ? connection : nullptr;
}

}  // namespace

std::shared_ptr<void> connectToDisplay() {
  if (!variable("QT_QPA_PLATFORM").empty() || waylandAnswers()) return std::make_shared<int>();
  return connectToX();
}

}  // namespace wayfell
