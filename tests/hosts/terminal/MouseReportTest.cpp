#include "hosts/terminal/MouseReport.h"

#include <gtest/gtest.h>

#include <string>

namespace wayfell {
namespace {

using Form = MouseReport::Form;

struct Report {
  Form form;
  std::string bytes;
  std::optional<Click> click;
};

// As xterm's "Control Sequences" describes them under "Mouse Tracking".
TEST(MouseReport, IsAClickForAPressOfTheLeftButton) {
  for (const Report& report : {
           Report{Form::sgr, "0;1;1M", Click{0, 0}}, Report{Form::sgr, "0;300;41M", Click{40, 299}},
           Report{Form::sgr, "20;7;5M", Click{4, 6}},   // with Shift and Control
           Report{Form::sgr, "0;7;5m", std::nullopt},   // a release
           Report{Form::sgr, "2;7;5M", std::nullopt},   // the right button
           Report{Form::sgr, "32;7;5M", std::nullopt},  // a motion
           Report{Form::sgr, "64;7;5M", std::nullopt},  // the wheel
           Report{Form::sgr, "0;0;0M", std::nullopt}, Report{Form::sgr, "0;7M", std::nullopt},
           Report{Form::sgr, "0;7;5;1M", std::nullopt}, Report{Form::sgr, "q", std::nullopt},
           Report{Form::sgr, "0;99999999999999999999;5M", Click{4, 99998}},
           Report{Form::x10, " !!", Click{0, 0}}, Report{Form::x10, " '%", Click{4, 6}},
           Report{Form::x10, "#'%", std::nullopt},  // a release
           Report{Form::x10, "`'%", std::nullopt},  // the wheel
       }) {
    MouseReport taken(report.form);
    for (std::size_t i = 0; i < report.bytes.size(); ++i) {
      EXPECT_EQ(taken.take(report.bytes[i]), i + 1 == report.bytes.size()) << report.bytes;
    }
    EXPECT_EQ(taken.click(), report.click) << report.bytes;
  }
}

}  // namespace
}  // namespace wayfell
