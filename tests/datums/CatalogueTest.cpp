#include "datums/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
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

// Rows that a tidy mind would mend; stored settings hold them as they are. Numbered from 1.
TEST(Catalogue, OddRowsStay) {
  const struct {
    std::size_t row;
    const char* name;
    const char* ellipsoid;
  } cases[] = {
      {1, "WGS 1984---Global Definition", "WGS 84"},
      {26, "Arc 1960---Taanzania", "Clarke 1880"},
      {50, "Deception Island---Deception Island; Antarctia", "Clarke 1880"},
      {78, "Herat North---Afghanistan", "+International 1924"},
      {79, "Hermannskogel Datum---Croatia -Serbia  Bosnia-Herzegovina", "Bessel 1841 (Namibia)"},
      {88, "Indian 1960---Vietnam (Near 16\xC3\xB8N)", "Everest (India 1830)"},
      {180, "S-42 (Pulkovo 1942)---Czechoslavakia", "Krassovsky 1940"},
      {226, "CGCS2000---China", "Krassovsky 1940"},
      {227, "Magna Sirgas---Columbia", "GRS 80"},
  };
  for (const auto& odd : cases) {
    EXPECT_EQ(kDatums[odd.row - 1].name, odd.name);
    EXPECT_EQ(kDatums[odd.row - 1].ellipsoid, odd.ellipsoid) << odd.name;
  }
}

TEST(Catalogue, OnlyHeratNorthHasNoEllipsoid) {
  for (const CatalogueDatum& row : kDatums) {
    const bool known = std::any_of(kEllipsoids.begin(), kEllipsoids.end(),
                                   [&](const auto& entry) { return entry.name == row.ellipsoid; });
    EXPECT_EQ(known, row.name != "Herat North---Afghanistan") << row.name;
  }
}

}  // namespace
}  // namespace wayfell
