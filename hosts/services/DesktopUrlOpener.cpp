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

namespace wayfell {
namespace {

constexpr const char* kOpener = "xdg-open";
constexpr double kLookSeconds = 1;

// Without one an address reads as the name of a file, or as an option.
bool hasScheme(const std::string& url) {
  const std::size_t colon = url.find(':');
  return isLetter(url.front()) && colon != std::string::npos && colon < url.find_first_of("/?#");
}

// How the opener is started: on /dev/null, with no descriptor of ours, every signal as it is by
// default, and in a session of its own, so that the end of the terminal is not its end.
class Start {
 public:
  Start() {
    posix_spawn_file_actions_init(&actions_);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
    }
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);

    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
  }
  ~Start() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }
  Start(const Start&) = delete;
  Start& operator=(const Start&) = delete;

  /// An error number; 0 once the program runs.
  int run(std::string url, pid_t& process) const {
    std::string name = kOpener;
    const std::array<char*, 3> arguments = {name.data(), url.data(), nullptr};
    return posix_spawnp(&process, kOpener, &actions_, &attributes_, arguments.data(), environ);
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

std::string outcome(const siginfo_t& end) {
  if (end.si_code != CLD_EXITED) return "it was ended by signal " + std::to_string(end.si_status);
  switch (end.si_status) {  // xdg-open(1)
    case 3:
      return "a program that it needs is not installed";
    case 4:
      return "no program opened the app's address";
    default:
      return "it ended with status " + std::to_string(end.si_status);
  }
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
  if (const int error = Start().run(url->absoluteString(), process); error != 0) {
    std::string sentence = kOpener;
    sentence += ": it cannot be started (" + std::system_category().message(error) +
                "), so the app does not open";
    if (error == ENOENT) sentence += "; it is in the package xdg-utils";
    warn_(sentence);
    return false;
  }
  follow(process);
  return true;
}

void DesktopUrlOpener::follow(pid_t process) {
  const auto opening = openings_.insert(openings_.end(), Opening{process});
  const auto lookAgain = [this, opening] { look(opening); };
  // The header with the function for it is not for C++ in Debian 12.
  opening->descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
  if (opening->descriptor >= 0) {
    opening->watch = loop_.watch(opening->descriptor, {.readable = true},
                                 [lookAgain](IoRunLoop::Readiness /*ready*/) { lookAgain(); });
  } else {
    opening->timer = loop_.scheduleTimer(kLookSeconds, true, lookAgain);
  }
}

void DesktopUrlOpener::look(Openings::iterator opening) {
  siginfo_t end = {};
  const int result = waitid(P_PID, static_cast<id_t>(opening->process), &end, WEXITED | WNOHANG);
  if (result == 0 && end.si_pid == 0) return;  // it still runs
  forget(*opening);
  openings_.erase(opening);
  // Whoever else has reaped it knows how it ended.
  if (result != 0 || (end.si_code == CLD_EXITED && end.si_status == 0)) return;
  warn_(std::string(kOpener) + ": " + outcome(end) + ", so the app did not open");
}

void DesktopUrlOpener::forget(const Opening& opening) {
  loop_.cancelTimer(opening.timer);
  if (opening.descriptor < 0) return;
  loop_.unwatch(opening.watch);
  close(opening.descriptor);
}

}  // namespace wayfell
