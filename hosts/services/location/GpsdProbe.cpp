#include "hosts/services/location/GpsdProbe.h"

#include "hosts/services/location/GpsdLink.h"

namespace wayfell {

bool gpsdAnswers(HostRunLoop& loop, const GpsdAddress& address, double longest) {
  bool answers = false;
  GpsdLink link(loop, address, {},
                {.statusChanged =
                     [&] {
                       if (link.status() == GpsdLink::Status::waiting) loop.stop();
                     },
                 .lineCame =
                     [&](std::string_view /*line*/) {
                       answers = true;
                       loop.stop();
                     },
                 .ticked = [] {}});
  const RunLoop::TimerId end = loop.scheduleTimer(longest, false, [&loop] { loop.stop(); });
  link.open();
  loop.run();
  loop.cancelTimer(end);
  return answers;
}

}  // namespace wayfell
