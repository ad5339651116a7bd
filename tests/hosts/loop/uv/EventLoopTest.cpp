#include "hosts/loop/uv/EventLoop.h"

#include "contracts/IoRunLoopContract.h"

namespace wayfell {

INSTANTIATE_TYPED_TEST_SUITE_P(Terminal, IoRunLoops, EventLoop);

}  // namespace wayfell
