#include "hosts/loop/qt/QtRunLoop.h"

#include "contracts/IoRunLoopContract.h"

namespace wayfell {

INSTANTIATE_TYPED_TEST_SUITE_P(Window, IoRunLoops, QtRunLoop);

}  // namespace wayfell
