#include "hosts/commandline/FilledText.h"

#include <gtest/gtest.h>

namespace wayfell {
namespace {

TEST(FilledText, KeepsRowsAndFillsParagraphs) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"one two", "one two"},
      {"one two three", "one two\nthree"},             // "one two three" has 13 columns
      {"one\ntwo\nthree", "one two\nthree"},           // lines run on
      {"one\n\ntwo", "one\n\ntwo"},                    // paragraphs do not
      {"one:\n  two\n  six\n", "one:\n  two\n  six"},  // nor do rows
      {"  a  two six\n", "  a  two\n     six"},        // which go on below their last column
      {"  two six ten", "  two six\n  ten"},
      {"--longer-than-it", "--longer-than-it"},  // a name stays whole
      {"Größe 12 m", "Größe 12 m"},              // ten columns in twelve bytes
      {" \n", ""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(filledHelp(text, 10), expected);
}

}  // namespace
}  // namespace wayfell
