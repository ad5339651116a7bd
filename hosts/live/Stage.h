// A scene, and all that it stands on.
#pragma once

#include <optional>
#include <string>

#include "hosts/replay/Player.h"
#include "hosts/scene/Scene.h"
#include "platform/CLLocation.h"

namespace wayfell {

class Stage {
 public:
  virtual ~Stage() = default;
  virtual Scene& scene() = 0;
  /// The fix that the panel shows.
  virtual std::optional<CLLocation> fix() const = 0;
  /// What plays a recording; null where it is live.
  virtual Player* player() { return nullptr; }
  /// Has the scene tell the user something. Only live ones have something to tell later on.
  virtual void tell(const std::string& /*news*/) {}
  /// What keeps it from going on, and where that is.
  virtual std::optional<std::string> fault() const { return std::nullopt; }
};

}  // namespace wayfell
