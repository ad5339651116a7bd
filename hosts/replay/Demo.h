// The recording that is built in: a walk and a drive that nobody made, written by
// data/make_demo.py.
#pragma once

#include "hosts/text/InputBytes.h"

namespace wayfell {

ByteSource demoBytes();

}  // namespace wayfell
