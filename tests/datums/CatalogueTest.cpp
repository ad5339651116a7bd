#include "datums/Catalogue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "platform/NSString.h"

namespace wayfell {
namespace {

// CRC-32 as zip files have it (reflected polynomial 0xEDB88320).
std::uint32_t crc32(const std::string& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

// Python's zlib gives the same checksum of the published lists: a line an entry, its fields parted
// by bars.
TEST(Catalogue, IsThePublishedOne) {
  std::set<std::string_view> names;
  std::string list;
  for (const CatalogueDatum& row : kDatums) {
    names.insert(row.name);
    list += stringWithFormat("%@|%@|%@|%@|%@\n", row.name, row.ellipsoid, shortestText(row.dx),
                             shortestText(row.dy), shortestText(row.dz));
  }
  EXPECT_EQ(names.size(), 229U);
  for (const CatalogueEllipsoid& row : kEllipsoids) {
    list += stringWithFormat("%@|%@|%@\n", row.name, shortestText(row.axis),
                             shortestText(row.inverseFlattening));
  }
  EXPECT_EQ(crc32(list), 0x4F6649ECU);
}

}  // namespace
}  // namespace wayfell
