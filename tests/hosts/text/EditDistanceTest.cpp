#include "hosts/text/EditDistance.h"

#include <gtest/gtest.h>

namespace wayfell {
namespace {

// Counted by hand; the third and the last are the textbooks' examples.
TEST(EditDistance, CountsSwapsAsOne) {
  struct Case {
    const char* one;
    const char* other;
    std::size_t distance;
  };
  const Case cases[] = {{"", "", 0},          {"", "abc", 3},          {"kitten", "sitting", 3},
                        {"tday", "today", 1}, {"mertic", "metric", 1}, {"abcd", "badc", 2},
                        {"ca", "abc", 3}};
  for (const Case& c : cases) {
    EXPECT_EQ(editDistance(c.one, c.other), c.distance) << c.one;
    EXPECT_EQ(editDistance(c.other, c.one), c.distance) << c.one;
  }
}

}  // namespace
}  // namespace wayfell
