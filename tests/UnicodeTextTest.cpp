#include "foundation/UnicodeText.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace foundation
