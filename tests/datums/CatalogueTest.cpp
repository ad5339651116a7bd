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

// The checksums below were taken with Python's zlib over the published list: a line an entry, its
// fields parted by bars.

TEST(Catalogue, DatumsAreThePublishedOnes) {
  std::set<std::string_view> names;
  std::string list;
  for (const CatalogueDatum& row : kDatums) {
    names.insert(row.name);
    list += stringWithFormat("%@|%@|%@|%@|%@\n", row.name, row.ellipsoid, shortestText(row.dx),
                             shortestText(row.dy), shortestText(row.dz));
  }
  EXPECT_EQ(names.size(), 229U);
  EXPECT_EQ(crc32(list), 0xC537F95AU);
}

TEST(Catalogue, EllipsoidsAreThePublishedOnes) {
  std::string list;
  for (const CatalogueEllipsoid& row : kEllipsoids) {
    list += stringWithFormat("%@|%@|%@\n", row.name, shortestText(row.axis),
                             shortestText(row.inverseFlattening));
  }
  EXPECT_EQ(crc32(list), 0x2141B5CFU);
}

}  // namespace
}  // namespace wayfell
