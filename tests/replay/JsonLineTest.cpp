#include "hosts/replay/JsonLine.h"

#include <gtest/gtest.h>
