// A live host whose files are in a folder of the test's, and a source that reports what the test
// says.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hosts/live/LiveHost.h"
#include "hosts/live/SourceChoice.h"
#include "hosts/loop/uv/EventLoop.h"
#include "platform/SimulatedHost.h"
#include "support/Folder.h"

namespace wayfell {

class Live : public testing::Test {
 protected:
  Live() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
      setenv(name, folder.path().c_str(), 1);
    }
    setenv("LC_ALL", "C", 1);
  }

  /// On the equator, with no speed.
  static CLLocation fixAt(double longitude, double course = -1) {
    return {{0, longitude}, 100, 5, 5, -1, course, systemClock().now()};
  }
  SourceStatus status() {
    return {[] { return "what the test says"; }, [this] { return trouble; },
            [this] { return hasCompass; }};
  }

  Folder folder;
  EventLoop loop;
  std::string trouble;
  bool hasCompass = false;
  std::vector<std::string> warnings;
  Warn warn = [this](const std::string& sentence) { warnings.push_back(sentence); };
};

}  // namespace wayfell
