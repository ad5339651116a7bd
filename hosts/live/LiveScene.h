// The widget on live services, as a host shows it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "hosts/live/LiveHost.h"
#include "hosts/panel/WidgetInterface.h"
#include "hosts/scene/Scene.h"
#include "widget/TodayViewController.h"

namespace wayfell {

/// What the source of positions and headings says of itself.
struct SourceStatus {
  /// Which it is: "gpsd at localhost:2947".
  std::function<std::string()> name;
  /// Why it delivers no fixes, in a few words; empty while it does.
  std::function<std::string()> trouble;
  /// Whether headings are coming.
  std::function<bool()> deliversHeadings;
};

/// Each appearance is that of a fresh widget, which is handed the last fix: a controller that has
/// disappeared once gets no more headings, and keeps the timers of all its appearances.
class LiveScene : public Scene {
 public:
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  /// Lets the widget appear on the host, which must outlive this.
  LiveScene(LiveHost& host, SourceStatus source, Now now = std::chrono::steady_clock::now);

  const WidgetInterface& interface() const override { return *interface_; }
  TodayViewController& controller() const { return *controller_; }
  bool onScreen() const override { return onScreen_; }
  Lines lines() const override;
  Freshness freshness() const override;
  std::optional<std::string> fault() const override { return std::nullopt; }
  std::optional<std::string> takeNews() override;
  std::span<const PanelAction> actions() const override { return kLiveActions; }
  void settle() override;
  void catchUp() override { settle(); }

  /// Something that the user should hear of.
  void tell(std::string news) { news_ = std::move(news); }

 protected:
  void letAppear() override;
  void letDisappear() override;
  void actItself(const PanelRequest& request) override;

 private:
  /// Where headings come from: the compass while it delivers, or what the user chose.
  enum class HeadingChoice { whatIsThere, compass, course };
  bool followsCourse() const;
  void followCourseOrCompass();
  void handOverLastFix();
  std::string headingState() const;
  /// Seconds since the fix that is shown came; none before the first. By that, as the machine's
  /// clock may be wrong, or the receiver's.
  std::optional<double> fixAge() const;

  LiveHost& host_;
  SourceStatus source_;
  Now now_;
  std::shared_ptr<TodayViewController> controller_;
  std::optional<WidgetInterface> interface_;
  bool onScreen_ = false;
  HeadingChoice headingChoice_ = HeadingChoice::whatIsThere;
  std::optional<std::string> news_;
  std::optional<CLLocation> lastFix_;
  std::chrono::steady_clock::time_point lastFixCame_;
};

}  // namespace wayfell
