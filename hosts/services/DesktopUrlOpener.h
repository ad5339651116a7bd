// Opens addresses with the program that the desktop has for them, by way of xdg-open.
#pragma once

#include <sys/types.h>

#include <list>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/Warn.h"

namespace wayfell {

class DesktopUrlOpener : public UrlOpener {
 public:
  /// The loop outlives the opener.
  DesktopUrlOpener(IoRunLoop& loop, Warn warn);
  /// Openings still under way go on by themselves.
  ~DesktopUrlOpener() override;
  DesktopUrlOpener(const DesktopUrlOpener&) = delete;
  DesktopUrlOpener& operator=(const DesktopUrlOpener&) = delete;

  /// Returns at once. True when xdg-open has been started, in a session of its own, with the URL as
  /// its one argument; no shell sees it. What becomes of that is not waited for: a failure is
  /// warned of when it shows, with the URL and what to do. No URL, or one without a scheme, opens
  /// nothing.
  bool openURL(const std::optional<NSURL>& url) override;

 private:
  // One xdg-open that has not ended, and the descriptor of its process, which tells when it does.
  struct Opening {
    pid_t process = 0;
    int descriptor = -1;
    std::string url;
    IoRunLoop::WatchId watch = 0;
  };
  using Openings = std::list<Opening>;

  void follow(pid_t process, const std::string& url);
  void end(Openings::iterator opening);
  void forget(const Opening& opening);

  IoRunLoop& loop_;
  Warn warn_;
  Openings openings_;
};

}  // namespace wayfell
