#include "foundation/UnicodeText.h"

#include <gtest/gtest.h>

#include <vector>

namespace foundation {
namespace {

TEST(UnicodeTextTest, TextsThatReadTheSameAreTheSameHoweverTheirAccentsAreWritten) {
  const std::string one = "Fl\u00f6te", two = "Flo\u0308te";
  ASSERT_NE(one, two);
  EXPECT_TRUE(isSameText(one, two));
  EXPECT_FALSE(isSameText(one, "Flote"));
  EXPECT_FALSE(isSameText(one, "fl\u00f6te"));
  EXPECT_EQ(uppercased(two), "FL\u00d6TE");
  EXPECT_EQ(lowercased("FLO\u0308TE"), "fl\u00f6te");
  EXPECT_EQ(uppercased("stra\u00dfe"), "STRASSE");
  EXPECT_TRUE(isSameText("\xff", "\xff"));
}

TEST(UnicodeTextTest, WhatIsNoCodePointIsToldAndShownAsOneMark) {
  struct Case {
    std::string text;
    bool isWellFormed;
    std::size_t codePoints;
    std::string forXml;
  };
  const std::string mark = "\uFFFD";
  const Case cases[] = {
      {"", true, 0, ""},
      {"a\u00f6\u20ac\U0001F3B9", true, 4, "a\u00f6\u20ac\U0001F3B9"},
      {mark, true, 1, mark},
      {"a\tb\n", true, 4, "a\tb\n"},
      {"a\x01\uFFFF", true, 3, "a" + mark + mark},
      {"\x80z", false, 2, mark + "z"},
      {"\xC0\xAF", false, 2, mark + mark},
      {"\xE0\x80\x80", false, 3, mark + mark + mark},             // longer than need be
      {"\xED\xA0\x80", false, 3, mark + mark + mark},             // half of a surrogate pair
      {"\xF4\x90\x80\x80", false, 4, mark + mark + mark + mark},  // past the last code point
      {"\xE2\x82z", false, 2, mark + "z"},                        // cut off
      {"z\xF0\x9F\x8E", false, 2, "z" + mark},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.text);
    EXPECT_EQ(isUtf8(test.text), test.isWellFormed);
    EXPECT_EQ(countCodePoints(test.text), test.codePoints);
    EXPECT_EQ(xmlText(test.text), test.forXml);
  }
}

TEST(UnicodeTextTest, MovesByWhatAReaderTakesForCharacters) {
  const std::vector<std::string> parts = {
      "a",
      "e\u0301",                     // with an accent
      "\u1100\u1161",                // Hangul as in the names of a Mac's files
      "\u0b95\u0bbf",                // Tamil
      "\u0995\u09be",                // Bengali
      "\U0001F469\u200D\U0001F467",  // a family
      "\U0001F1E9\U0001F1EA",        // a flag
      "\U0001F44D\U0001F3FD",        // a thumb with a skin tone
      "\xFF",
      "b",
      "\r\n",
      "\u06003",  // Arabic sign that spans a number
      "z"};
  std::string text;
  for (const std::string& part : parts) text += part;
  std::size_t place = 0;
  for (const std::string& part : parts) {
    EXPECT_EQ(nextCharacter(text, place), place + part.size()) << part;
    EXPECT_EQ(previousCharacter(text, place + part.size()), place) << part;
    place += part.size();
  }
  EXPECT_EQ(nextCharacter(text, place), place);
  EXPECT_EQ(previousCharacter(text, place + 5), place - 1);
  EXPECT_EQ(previousCharacter(text, 0), 0u);
}

}  // namespace
}  // namespace foundation
