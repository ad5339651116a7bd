// What `auto` shows while the source that it prefers is missing: something else until that is
// there, and then that, without a restart. Whoever shows the scene goes on with the same one, which
// has another panel from then on.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "hosts/live/SourceChoice.h"
#include "hosts/live/Stage.h"

namespace wayfell {

class AutoStage : public Stage {
 public:
  using Open = std::function<std::unique_ptr<Stage>()>;

  /// Shows `instead` until the preferred kind is there, and then what `open` gives, which is asked
  /// for when the other is gone. The loop must live on.
  AutoStage(HostRunLoop& loop, LiveKind preferred, std::unique_ptr<Stage> instead, Open open);
  ~AutoStage() override;

  Scene& scene() override;
  std::optional<CLLocation> fix() const override { return shown_->fix(); }
  Player* player() override { return shown_->player(); }
  void tell(const std::string& news) override { shown_->tell(news); }
  std::optional<std::string> fault() const override { return shown_->fault(); }

 private:
  class ShownScene;

  void changeOver();

  LiveKind preferred_;
  Open open_;
  std::unique_ptr<Stage> shown_;
  std::unique_ptr<ShownScene> scene_;
  std::shared_ptr<void> wait_;  // null once the preferred source is shown
};

}  // namespace wayfell
