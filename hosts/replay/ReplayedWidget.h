// The whole widget on a simulated host: its controller, its interface, and the events that act on
// them. Only one may exist at a time, as it is the host of its thread.
#pragma once

#include <memory>

#include "hosts/panel/WidgetInterface.h"
#include "hosts/replay/Event.h"
#include "platform/SimulatedHost.h"
#include "widget/TodayViewController.h"

namespace wayfell {

class ReplayedWidget {
 public:
  /// Lets the action happen now. The controller loads before the first one other than
  /// WriteSuite, WriteLocal, Authorize, FollowCourse and AnswerLookups, and also appears before
  /// it, unless it is Appear. Show does nothing more.
  void apply(const Action& action);
  /// Loads the controller, and lets it appear, unless it has been loaded.
  void start();
  bool loaded() const { return loaded_; }

  SimulatedHost& host() { return host_; }
  const SimulatedHost& host() const { return host_; }
  TodayViewController& controller() const { return *controller_; }
  const WidgetInterface& interface() const { return *interface_; }

 private:
  void load();

  SimulatedHost host_;
  std::shared_ptr<TodayViewController> controller_ = std::make_shared<TodayViewController>();
  std::unique_ptr<WidgetInterface> interface_ = std::make_unique<WidgetInterface>(controller_);
  bool loaded_ = false;
};

}  // namespace wayfell
