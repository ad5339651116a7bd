// Which of several receivers is listened to: the first that has something to say, until it is
// given up or has been silent for two ticks. Two at once would have the position jump to and fro.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wayfell {

/// A receiver that has said nothing for more ticks than these is silent.
inline constexpr int kSilentTicks = 2;

class FollowedDevice {
 public:
  /// Whether what this receiver says is to be taken. One whose report names none is "".
  bool takes(std::string_view device) {
    if (!path_) path_ = device;
    if (*path_ != device) return false;
    silentTicks_ = 0;
    return true;
  }
  bool isFollowed(std::string_view device) const { return path_ == device; }
  bool isFollowing() const { return path_.has_value(); }
  void giveUp() { path_.reset(); }
  void tick() {
    if (++silentTicks_ > kSilentTicks) giveUp();
  }

 private:
  std::optional<std::string> path_;
  int silentTicks_ = 0;
};

}  // namespace wayfell
