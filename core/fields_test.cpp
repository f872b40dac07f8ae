#include "core/fields.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"

namespace zelmo {
namespace {

TEST(FieldCutting, TabLinesLongDelimitersAndMissingOnes) {
  EXPECT_EQ(FieldBefore("abc", "\t") + FieldAfter("abc", "\t") + FieldAfter("", "\t"), "");
  EXPECT_EQ(FieldBefore("\tx", "\t") + "|" + FieldAfter("\tx", "\t"), "|x");
  // The last field of a TAB line has no TAB behind it.
  const std::string line = "a\tb\tc";
  EXPECT_EQ(NthFieldBefore(line, "\t", 1) + NthFieldBefore(line, "\t", 2), "ab");
  EXPECT_EQ(NthFieldBefore(line, "\t", 3) + "|" + NthFieldAfter(line, "\t", 2), "|c");
  EXPECT_EQ(NthFieldAfter(line, "\t", 3), "");
  EXPECT_EQ(FieldBetween("name - head - line", " - ", " - "), "head");
  EXPECT_EQ(FieldBefore("case1 - My - headline", " -"), "case1");
  EXPECT_EQ(FieldAfter("case1 - My - headline", " - "), "My - headline");
  // Case matters.
  EXPECT_EQ(FieldBefore("abXcd", "x") + "|" + FieldBefore("abXcd", "X"), "|ab");
}

TEST(SmallValues, DigitsAndCase) {
  EXPECT_FALSE(IsDigitsOnly(""));
  EXPECT_TRUE(IsDigitsOrEmpty(""));
  EXPECT_TRUE(IsDigitsOnly("0123"));
  EXPECT_FALSE(IsDigitsOnly("12 "));
  EXPECT_FALSE(IsDigitsOrEmpty("-1"));
  EXPECT_EQ(ToLower("ABC\xC5"), "abc\xE5");  // Å to å
  EXPECT_EQ(ToUpper("abc\xE5"), "ABC\xC5");
}

TEST(PadField, AlignsCutsCentresAndTellsTheDeveloperOfAnotherMode) {
  EXPECT_EQ(PadField("ab", 5, "V"), "ab   ");
  EXPECT_EQ(PadField("ab", 5, "h"), "   ab");
  EXPECT_EQ(PadField("abcdef", 3, "H"), "abc");
  // Centring: half the blanks, rounded half to even, behind the text.
  EXPECT_EQ(PadField("ab", 3, "C"), " ab");      // 1 blank: 0.5 rounds to 0 behind
  EXPECT_EQ(PadField("ab", 5, "C"), " ab  ");    // 3 blanks: 1.5 rounds to 2 behind
  EXPECT_EQ(PadField("ab", 7, "c"), "   ab  ");  // 5 blanks: 2.5 rounds to 2 behind
  EXPECT_EQ(PadField("ab", 6, "C"), "  ab  ");
  testing::FakeDialogs dialogs;
  EXPECT_EQ(PadField("ab", 4, "X", &dialogs), "ab");
  EXPECT_EQ(dialogs.messages, (std::vector<testing::ShownMessage>{{"Ange V,H eller C ", 0, ""}}));
}

}  // namespace
}  // namespace zelmo
