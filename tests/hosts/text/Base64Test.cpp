// The vectors are those of RFC 4648, section 10.
#include "hosts/text/Base64.h"

#include <gtest/gtest.h>

namespace wayfell {
namespace {

TEST(Base64, IsTheStandardOne) {
  const std::pair<std::string, std::string> vectors[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"}};
  for (const auto& [bytes, text] : vectors) {
    const PropertyValue::Data data(bytes.begin(), bytes.end());
    EXPECT_EQ(base64Of(data), text);
    EXPECT_EQ(dataOfBase64(text), data);
  }
  for (const char* bad : {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zm-v", "Zm9v\n"}) {
    EXPECT_FALSE(dataOfBase64(bad)) << bad;
  }
}

}  // namespace
}  // namespace wayfell
