// A whole widget on a simulated host, as the tests hold it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/panel/WidgetInterface.h"
#include "platform/SimulatedHost.h"
#include "widget/TodayViewController.h"

namespace wayfell {

struct Widget {
  void appear() {
    controller->viewDidLoad();
    controller->viewWillAppear(false);
  }

  /// Delivers one fix, now.
  void fix(double latitude, double longitude, double altitude = 0, double horizontalAccuracy = 5,
           double verticalAccuracy = 5, double course = -1) {
    host.location.deliver({CLLocation{{latitude, longitude},
                                      altitude,
                                      horizontalAccuracy,
                                      verticalAccuracy,
                                      -1,
                                      course,
                                      NSDate::date()}});
  }

  template <class View>
  static std::optional<std::string> text(const Outlet<View>& outlet) {
    return outlet.lock()->text();
  }
  template <class View>
  static bool hidden(const Outlet<View>& outlet) {
    return outlet.lock()->hidden();
  }

  SimulatedHost host;
  std::shared_ptr<TodayViewController> controller = std::make_shared<TodayViewController>();
  WidgetInterface interface { controller };
};

}  // namespace wayfell
