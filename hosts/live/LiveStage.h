// The widget on a live source.
#pragma once

#include <utility>

#include "hosts/live/LiveHost.h"
#include "hosts/live/LiveScene.h"
#include "hosts/live/SourceChoice.h"
#include "hosts/live/Stage.h"

namespace wayfell {

class LiveStage : public Stage {
 public:
  LiveStage(IoRunLoop& loop, LiveSource live, const Warn& warn)
      : source_(std::move(live.source)),
        host_(loop, *source_, warn),
        scene_(host_, std::move(live.status)) {}

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return scene_.controller().currentLocation; }
  void tell(const std::string& news) override { scene_.tell(news); }

 private:
  std::unique_ptr<LocationSource> source_;
  LiveHost host_;
  LiveScene scene_;
};

}  // namespace wayfell
