#include "core/fields.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"

namespace zelmo {
namespace {

TEST(FieldCutting, TabLinesAndMissingDelimiters) {
  EXPECT_EQ(FieldBefore("abc", "\t"), "");
  EXPECT_EQ(FieldAfter("abc", "\t"), "");
  EXPECT_EQ(FieldBefore("\tx", "\t"), "");
  EXPECT_EQ(FieldAfter("\tx", "\t"), "x");
  EXPECT_EQ(FieldAfter("", "\t"), "");
  // The last field of a TAB line has no TAB behind it.
  const std::string line = "a\tb\tc";
  EXPECT_EQ(NthFieldBefore(line, "\t", 1), "a");
  EXPECT_EQ(NthFieldBefore(line, "\t", 2), "b");
  EXPECT_EQ(NthFieldBefore(line, "\t", 3), "");
  EXPECT_EQ(NthFieldAfter(line, "\t", 2), "c");
  EXPECT_EQ(NthFieldAfter(line, "\t", 3), "");
  EXPECT_EQ(FieldBetween("name - head - line", " - ", " - "), "head");
}

TEST(FieldCutting, LongDelimitersAndCaseMatters) {
  EXPECT_EQ(FieldBefore("case1 - My - headline", " -"), "case1");
  EXPECT_EQ(FieldAfter("case1 - My - headline", " - "), "My - headline");
  EXPECT_EQ(FieldBefore("abXcd", "x"), "");
  EXPECT_EQ(FieldBefore("abXcd", "X"), "ab");
}

TEST(SmallValues, DigitsAndCase) {
  EXPECT_FALSE(IsDigitsOnly(""));
  EXPECT_TRUE(IsDigitsOrEmpty(""));
  EXPECT_TRUE(IsDigitsOnly("0123"));
  EXPECT_FALSE(IsDigitsOnly("12 "));
  EXPECT_FALSE(IsDigitsOrEmpty("-1"));
  EXPECT_EQ(ToLower("ABC\xC5"), "abc\xE5");  // Å to å
  EXPECT_EQ(ToUpper("abc\xE5"), "ABC\xC5");
  EXPECT_EQ(MaxInt(-3, 2), 2);
  EXPECT_EQ(MinInt(-3, 2), -3);
  std::string a = "a", b = "b";
  SwapText(a, b);
  EXPECT_EQ(a + b, "ba");
}

TEST(PadField, AlignsCutsAndCentres) {
  EXPECT_EQ(PadField("ab", 5, "V"), "ab   ");
  EXPECT_EQ(PadField("ab", 5, "h"), "   ab");
  EXPECT_EQ(PadField("abcdef", 3, "H"), "abc");
  // Centring: half the blanks, rounded half to even, behind the text.
  EXPECT_EQ(PadField("ab", 3, "C"), " ab");      // 1 blank: 0.5 rounds to 0 behind
  EXPECT_EQ(PadField("ab", 5, "C"), " ab  ");    // 3 blanks: 1.5 rounds to 2 behind
  EXPECT_EQ(PadField("ab", 7, "c"), "   ab  ");  // 5 blanks: 2.5 rounds to 2 behind
  EXPECT_EQ(PadField("ab", 6, "C"), "  ab  ");
}

TEST(PadField, OtherModeTellsTheDeveloper) {
  testing::FakeDialogs dialogs;
  EXPECT_EQ(PadField("ab", 4, "X", &dialogs), "ab");
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.Last().text, "Ange V,H eller C ");
  EXPECT_EQ(dialogs.Last().title, "");
}

}  // namespace
}  // namespace zelmo
