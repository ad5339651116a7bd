// What files of addresses hold. CSV as RFC 4180 has it; GeoJSON as RFC 7946 does.
#include "hosts/services/addresses/AddressFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/text/InputError.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

// "lat lon|number|street|city|region" or "line: what is wrong" of every row.
std::string readAll(const std::string& content) {
  const auto file = openAddressFile(InputBytes(bytesOfText(content)));
  std::string all;
  AddressRow row;
  for (;;) {
    try {
      if (!file->next(row)) return all;
      all += shortestText(row.latitude) + ' ' + shortestText(row.longitude) + '|' + row.number +
             '|' + row.street + '|' + row.city + '|' + row.region + '\n';
    } catch (const std::invalid_argument& error) {
      all += std::to_string(file->line()) + ": " + error.what() + '\n';
    }
  }
}

TEST(AddressFileTest, ReadsRows) {
  struct Case {
    const char* what;
    std::string content;
    std::string rows;
  };
  const Case cases[] = {
      {"OpenAddresses",
       "LON,LAT,NUMBER,STREET,UNIT,CITY,DISTRICT,REGION,POSTCODE,ID,HASH\n"
       "-76.5,38.25,1745,T Street,,Washington,,DC,20020,,9c1e\n",
       "38.25 -76.5|1745|T Street|Washington|DC\n"},
      {"any order and case, mark, CRLF, no last line end",
       "\xEF\xBB\xBFstreet, Lat ,lon,Number\r\nElm,1,2,3\r\n\r\nOak,4,5,6",
       "1 2|3|Elm||\n4 5|6|Oak||\n"},
      {"quotes, commas, line breaks within",
       "LON,LAT,STREET,CITY\n1,2,\"Elm, \"\"old\"\"\",\"New\r\nTown\"\n\"3\",\"4\",,\"\"\n",
       "2 1||Elm, \"old\"|New Town|\n4 3||||\n"},
      {"a quotation mark within", "LON,LAT,STREET\n1,2,Elm 5\" N\n", "2 1||Elm 5\" N||\n"},
      {"blank parts and many blanks", "LON,LAT,STREET,CITY\n1,2,  Elm \t Road ,   \n",
       "2 1||Elm Road||\n"},
      {"the district where there is no city", "LON,LAT,CITY,DISTRICT\n1,2,,Upper\n1,2,Low,Upper\n",
       "2 1|||Upper|\n2 1|||Low|\n"},
      {"a short row", "LON,LAT,STREET,CITY\n1,2,Elm\n", "2 1||Elm||\n"},
      {"bad rows, and the lines they begin in",
       "LON,LAT,STREET\n1,2,\"a\nb\"\nx,2,c\n1,,c\n181,2,c\n1,-90.5,c\n1,2,\xff\nnan,2,c\n1\n1,2,"
       "d\n",
       "2 1||a b||\n4: LON: \"x\" is no number\n5: LAT: \"\" is no number\n"
       "6: longitude 181 is beyond 180\n7: latitude -90.5 is beyond -90\n8: STREET: not UTF-8\n"
       "9: LON: \"nan\" is no number\n10: LAT: \"\" is no number\n2 1||d||\n"},
      {"a part that is too long", "LON,LAT,CITY\n1,2," + std::string(257, 'a') + "\n",
       "2: CITY: longer than 256 bytes\n"},
      {"GeoJSON",
       R"({"type":"Feature","properties":{"hash":"e1","number":"12a","street":"Elm","unit":"","city":)"
       R"("Ulm","district":"","region":"BW"},"geometry":{"type":"Point","coordinates":[10,48.5]}})"
       "\n\n"
       R"({"type":"Feature","properties":{"number":100000,"street":null,"district":"Up"},)"
       R"("geometry":{"type":"Point","coordinates":[1,2,300]}})"
       "\r\n",
       "48.5 10|12a|Elm|Ulm|BW\n2 1|100000||Up|\n"},
      {"what is no Feature with a Point",
       R"({"type":"Feature","properties":{},"geometry":null})"
       "\n"
       R"({"type":"Feature","geometry":{"type":"LineString","coordinates":[[1,2],[3,4]]}})"
       "\n[1]\n"
       R"({"type":"Feature","geometry":{"type":"Point","coordinates":[1,91]}})",
       "1: no Point with [longitude, latitude]\n2: no Point with [longitude, latitude]\n"
       "3: not a Feature\n4: latitude 91 is beyond 90\n"},
  };
  for (const Case& c : cases) {
    std::string rows = readAll(c.content);
    EXPECT_EQ(rows, c.rows) << c.what;
  }
}

TEST(AddressFileTest, SaysWhereALineIsNotJson) {
  EXPECT_THAT(readAll("{]"), testing::StartsWith("1: not JSON at column 2"));
}

TEST(AddressFileTest, RefusesFiles) {
  struct Case {
    std::string content;
    std::string complaint;
  };
  const Case cases[] = {
      {"", "empty"},
      {"\n\n", "empty"},
      {"NUMBER,STREET\n1,a\n", "line 1: no column LON"},
      {"LON,STREET\n1,a\n", "line 1: no column LAT"},
      {"\x1f\x8b\x08...", "compressed"},
      {"PK\x03\x04...", "compressed"},
      {"{\n  \"type\": \"FeatureCollection\",\n  \"features\": [\n    {\"type\": \"Feature\"",
       "a GeoJSON FeatureCollection, not a Feature a line: jq -c '.features[]'"},
      {"LON,LAT,STREET\n1,2,a\n3,4,\"b\n5,6,c\n", "line 3: a quotation mark is never closed"},
      {"LON,LAT\n1," + std::string(2000000, '2'), "line 2: longer than 1 MiB"},
      {"LON,LAT\n1,2" + std::string(2000000, ','), "line 2: longer than 1 MiB"},
  };
  for (const Case& c : cases) {
    try {
      readAll(c.content);
      ADD_FAILURE() << c.complaint;
    } catch (const InputError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr(c.complaint));
    }
  }
}

}  // namespace
}  // namespace wayfell
