#include "hosts/window/Compositor.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace wayfell {
namespace {

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
  return {reply, &std::free};
}

// A compositing manager owns this selection, by the conventions of the freedesktop.org.
bool isComposed(xcb_connection_t* connection) {
  constexpr std::string_view kSelection = "_NET_WM_CM_S0";
  const auto atom = owned(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(kSelection.size()),
                      kSelection.data()),
      nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) return false;
  const auto owner = owned(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
  return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace

bool windowsAreComposed() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // Qt's platform for windows that nobody sees has this interface, too, but no connection.
  if (x11 && x11->connection()) return isComposed(x11->connection());
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

}  // namespace wayfell
