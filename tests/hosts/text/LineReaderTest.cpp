#include "hosts/text/LineReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace wayfell {
namespace {

TEST(LineReader, GivesTheSameLinesHoweverTheBytesArrive) {
  const std::string longest(LineReader::kLongestLine, 'x');
  const std::string text = "one\r\n\n \t\n" + longest + "\nlast";
  for (const std::size_t chunk : {std::size_t{1}, std::size_t{7}, text.size()}) {
    const auto source = [rest = std::string_view(text), chunk](char* buffer,
                                                               std::size_t size) mutable {
      const std::size_t count = rest.copy(buffer, std::min(size, chunk));
      rest.remove_prefix(count);
      return count;
    };
    LineReader lines{InputBytes(source)};
    EXPECT_EQ(lines.next(), "one");
    EXPECT_EQ(lines.number(), 1U);
    lines.putBack();
    EXPECT_EQ(lines.next(), "one");
    EXPECT_EQ(lines.next(), longest);
    EXPECT_EQ(lines.number(), 4U);
    EXPECT_EQ(lines.next(), "last");
    EXPECT_EQ(lines.next(), std::nullopt);
  }
}

}  // namespace
}  // namespace wayfell
