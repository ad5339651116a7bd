// The widget on a live source.
#pragma once

#include <memory>

#include "hosts/live/LiveHost.h"
#include "hosts/live/LiveScene.h"
#include "hosts/window/Stage.h"

namespace wayfell {

class LiveStage : public Stage {
 public:
  LiveStage(QtRunLoop& loop, std::unique_ptr<LocationSource> source, SourceStatus status,
            const Warn& warn)
      : source_(std::move(source)), host_(loop, *source_, warn), scene_(host_, std::move(status)) {}

  Scene& scene() override { return scene_; }
  std::optional<CLLocation> fix() const override { return scene_.controller().currentLocation; }

 private:
  std::unique_ptr<LocationSource> source_;
  LiveHost host_;
  LiveScene scene_;
};

}  // namespace wayfell
