#include "hosts/services/DesktopUrlOpener.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <string>
#include <system_error>
#include <utility>

#include "hosts/text/Characters.h"
#include "platform/NSBundle.h"

namespace wayfell {
namespace {

constexpr const char* kOpener = "xdg-open";

// Without one an address reads as the name of a file, or as an option.
bool hasScheme(const std::string& url) {
  const std::size_t colon = url.find(':');
  return isLetter(url.front()) && colon != std::string::npos && colon < url.find_first_of("/?#");
}

// Starts xdg-open on /dev/null, with no descriptor of ours, every signal as it is by default, and
// in a session of its own, so that the end of the terminal is not its end. An error number; 0 once
// it runs.
int start(std::string url, pid_t& process) {
  posix_spawn_file_actions_t actions{};
  posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
  }
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

  posix_spawnattr_t attributes{};
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigfillset(&signals);
  posix_spawnattr_setsigdefault(&attributes, &signals);

  std::string name = kOpener;
  const std::array<char*, 3> arguments = {name.data(), url.data(), nullptr};
  const int error =
      posix_spawnp(&process, kOpener, &actions, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

std::string whyNotStarted(int error, const std::string& url) {
  if (error == ENOENT) {
    return localizedStringWithFormat(
        "nothing opens %@: install xdg-open, which is in the package xdg-utils", url);
  }
  return localizedStringWithFormat("%@ is not opened: xdg-open cannot be started (%@)", url,
                                   std::system_category().message(error));
}

std::string whyNotOpened(const siginfo_t& end, const std::string& url) {
  if (end.si_code != CLD_EXITED) {
    return localizedStringWithFormat("%@ is not opened: xdg-open was ended by signal %d", url,
                                     end.si_status);
  }
  constexpr int kNoTool = 3;  // statuses of xdg-open(1)
  constexpr int kActionFailed = 4;
  if (end.si_status == kNoTool || end.si_status == kActionFailed) {
    return localizedStringWithFormat(
        "nothing opens %@: install the containing app, or register a handler for %@", url,
        url.substr(0, url.find(':')) + "://");
  }
  return localizedStringWithFormat("%@ is not opened: xdg-open ended with status %d", url,
                                   end.si_status);
}

}  // namespace

DesktopUrlOpener::DesktopUrlOpener(IoRunLoop& loop, Warn warn)
    : loop_(loop), warn_(std::move(warn)) {}

DesktopUrlOpener::~DesktopUrlOpener() {
  for (const Opening& opening : openings_) forget(opening);
}

bool DesktopUrlOpener::openURL(const std::optional<NSURL>& url) {
  if (!url || !hasScheme(url->absoluteString())) return false;
  pid_t process = 0;
  if (const int error = start(url->absoluteString(), process); error != 0) {
    warn_(whyNotStarted(error, url->absoluteString()));
    return false;
  }
  follow(process, url->absoluteString());
  return true;
}

void DesktopUrlOpener::follow(pid_t process, const std::string& url) {
  // The header with the function for it is not for C++ in Debian 12.
  const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
  if (descriptor < 0) return;  // how it ends is not told then
  const auto opening = openings_.insert(openings_.end(), Opening{process, descriptor, url});
  opening->watch = loop_.watch(descriptor, {.readable = true},
                               [this, opening](IoRunLoop::Readiness /*ready*/) { end(opening); });
}

void DesktopUrlOpener::end(Openings::iterator opening) {
  siginfo_t end = {};
  const int result = waitid(P_PID, static_cast<id_t>(opening->process), &end, WEXITED | WNOHANG);
  const std::string url = opening->url;
  forget(*opening);
  openings_.erase(opening);
  // Whoever else has reaped it knows how it ended.
  if (result != 0 || (end.si_code == CLD_EXITED && end.si_status == 0)) return;
  warn_(whyNotOpened(end, url));
}

void DesktopUrlOpener::forget(const Opening& opening) {
  loop_.unwatch(opening.watch);
  close(opening.descriptor);
}

}  // namespace wayfell
