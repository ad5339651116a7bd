// The opener with an xdg-open of the test's own, which writes down how it was started.
#include "hosts/services/DesktopUrlOpener.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>

#include "hosts/loop/uv/EventLoop.h"
#include "hosts/panel/WidgetInterface.h"
#include "platform/SimulatedHost.h"
#include "support/Folder.h"
#include "support/LoopbackServer.h"

namespace wayfell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DesktopUrlOpenerTest : public testing::Test {
 protected:
  DesktopUrlOpenerTest() {
    setenv("PATH", (folder_.path().string() + ":" + path_).c_str(), 1);
    setenv("FOLDER", folder_.path().c_str(), 1);
  }
  ~DesktopUrlOpenerTest() override { setenv("PATH", path_.c_str(), 1); }

  /// What xdg-open does once it has written its arguments to the file "arguments".
  void install(const std::string& action) const {
    const auto program = folder_ / "xdg-open";
    putBytes(program,
             "#!/bin/sh\n"
             "echo \"$#\" >\"$FOLDER/arguments\"\n"
             "printf %s \"$1\" >>\"$FOLDER/arguments\"\n" +
                 action + '\n');
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  }
  std::string contentsOf(const char* name) const { return bytesOf(folder_ / name); }

  /// Looks at the condition every few milliseconds.
  void runUntilSo(const std::function<bool()>& condition) {
    const auto timer = loop_.scheduleTimer(0.005, true, [] {});
    runUntil(loop_, condition);
    loop_.cancelTimer(timer);
  }
  /// Until this process has no children, running or to be waited for.
  void runUntilAllAreReaped() {
    runUntilSo([] {
      siginfo_t end = {};
      return waitid(P_ALL, 0, &end, WEXITED | WNOHANG | WNOWAIT) != 0;
    });
  }

  SimulatedHost host_;
  Folder folder_;
  std::string path_ = std::getenv("PATH");
  EventLoop loop_;
  std::vector<std::string> warnings_;
  DesktopUrlOpener opener_{loop_, [this](const std::string& text) { warnings_.push_back(text); }};
};

TEST_F(DesktopUrlOpenerTest, TheHandlerHasNothingOfThisProcess) {
  install(
      "cd /proc/$$/fd\n"
      "streams=$(readlink 0 1 2)\n"
      "echo \"$streams\" >\"$FOLDER/streams\"\n"
      "for one in *; do\n"
      "  [ \"$(readlink \"$one\")\" = \"$FOLDER/secret\" ] && touch \"$FOLDER/leak\"\n"
      "done\n"
      "cut -d' ' -f 6 </proc/$$/stat >\"$FOLDER/session\"\n"
      "kill -PIPE $$");
  const int secret = open((folder_ / "secret").c_str(), O_RDWR | O_CREAT, 0600);
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  sigset_t pipe;
  sigset_t mask;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  sigprocmask(SIG_BLOCK, &pipe, &mask);
  EXPECT_TRUE(opener_.openURL(NSURL::URLWithString("wayfell://x")));
  sigprocmask(SIG_SETMASK, &mask, nullptr);
  std::signal(SIGPIPE, before);
  runUntilAllAreReaped();
  close(secret);
  EXPECT_EQ(contentsOf("streams"), "/dev/null\n/dev/null\n/dev/null\n");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "leak"));
  EXPECT_NE(std::stoi(contentsOf("session")), getsid(0));
  // Neither ignored nor held back.
  EXPECT_THAT(warnings_, ElementsAre(HasSubstr("ended by signal " + std::to_string(SIGPIPE))));
}

TEST_F(DesktopUrlOpenerTest, SaysWhyTheAppDidNotOpen) {
  struct Case {
    const char* action;
    const char* reason;
  };
  const char* const noHandler =
      "nothing opens wayfell://x: install the containing app, or register a handler for wayfell://";
  // The statuses are those of xdg-open(1).
  for (const Case& c :
       {Case{"exit 3", noHandler}, Case{"exit 4", noHandler},
        Case{"exit 77", "wayfell://x is not opened: xdg-open ended with status 77"},
        Case{"kill -9 $$", "wayfell://x is not opened: xdg-open was ended by signal 9"}}) {
    install(c.action);
    EXPECT_TRUE(opener_.openURL(NSURL::URLWithString("wayfell://x")));
    EXPECT_THAT(warnings_, IsEmpty());
    runUntilAllAreReaped();
    EXPECT_THAT(warnings_, ElementsAre(c.reason));
    warnings_.clear();
  }
  setenv("PATH", "/nowhere", 1);
  EXPECT_FALSE(opener_.openURL(NSURL::URLWithString("wayfell://x")));
  EXPECT_THAT(warnings_, ElementsAre(HasSubstr("xdg-utils")));
}

TEST_F(DesktopUrlOpenerTest, WithoutAnAddressNothingOpens) {
  install("");
  EXPECT_FALSE(opener_.openURL(std::nullopt));
  // xdg-open would take these for an option and for files.
  for (const char* text : {"--help", "/etc/passwd", "a/b:c", "?x:y", ":x"}) {
    EXPECT_FALSE(opener_.openURL(NSURL::URLWithString(text))) << text;
  }
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(DesktopUrlOpenerTest, AHandlerThatHangsHoldsNothingUp) {
  install("echo $$ >\"$FOLDER/pid\"\nmv \"$FOLDER/pid\" \"$FOLDER/hangs\"\nexec sleep 600");
  {
    DesktopUrlOpener opener(loop_, [](const std::string&) { ADD_FAILURE(); });
    EXPECT_TRUE(opener.openURL(NSURL::URLWithString("wayfell://x")));
    runUntilSo([this] { return std::filesystem::exists(folder_ / "hangs"); });
  }
  const pid_t handler = std::stoi(contentsOf("hangs"));
  EXPECT_EQ(kill(handler, SIGKILL), 0);  // it had been left alone
  waitpid(handler, nullptr, 0);
}

// --- The whole way from an address that was looked up --------------------------------------------

class OpeningHost : public SimulatedHost {
 public:
  explicit OpeningHost(UrlOpener& opener) : opener_(opener) {}
  UrlOpener& urlOpener() override { return opener_; }

 private:
  UrlOpener& opener_;
};

TEST_F(DesktopUrlOpenerTest, NoPlaceNameRunsAnything) {
  install("");
  struct Case {
    std::string address;
    const char* url;  // null where nothing opens
  };
  const Case cases[] = {
      {"$(touch canary)", "wayfell://$(touch_canary)/0.000000/0.000000"},
      {"a;touch canary;&touch canary", "wayfell://a;touch_canary;&touch_canary/0.000000/0.000000"},
      {"%20 %7E", "wayfell://%20_%7E/0.000000/0.000000"},
      {"`touch canary`", nullptr},
      {"a\ntouch canary\n", nullptr},
      {"a > canary", nullptr},
      {std::string("a\0b", 3), nullptr},
  };
  OpeningHost host(opener_);
  const auto controller = std::make_shared<TodayViewController>();
  const WidgetInterface interface(controller);
  controller->viewDidLoad();
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  for (const Case& c : cases) {
    SCOPED_TRACE(c.address);
    std::filesystem::remove(folder_ / "arguments");
    interface.views().addressLabel.setText(c.address);
    controller->openAppWithCoordinate();
    runUntilAllAreReaped();
    EXPECT_EQ(contentsOf("arguments"), c.url ? std::string("1\n") + c.url : "");
    EXPECT_FALSE(std::filesystem::exists("canary"));
  }
  std::filesystem::current_path(here);
  EXPECT_THAT(warnings_, IsEmpty());
}

}  // namespace
}  // namespace wayfell
