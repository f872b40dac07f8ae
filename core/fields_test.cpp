#include "core/fields.h"

#include <gtest/gtest.h>

#include <clocale>

#include "core/numbers.h"
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

TEST(NumberRule, ReadsUpToTheFirstForeignCharacter) {
  const std::pair<const char*, double> cases[] = {{"12abc", 12},
                                                  {"abc", 0},
                                                  {"", 0},
                                                  {"  -3.5x", -3.5},
                                                  {"1,5", 1},
                                                  {".5", 0.5},
                                                  {"1e3", 1000},
                                                  {"2E-2", 0.02},
                                                  {"7e", 7},
                                                  {"+7", 7},
                                                  {"-012", -12},
                                                  {"3.", 3},
                                                  {"1234567890123456", 1234567890123456.0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  // Whole numbers are cut towards zero and held where a step more cannot
  // overflow, whatever a damaged file holds.
  const std::pair<const char*, int> whole[] = {
      {"-7.9", -7}, {"999999999", 999999999}, {"1e300", 1000000000}, {"-1e300", -1000000000}};
  for (const auto& [text, value] : whole) EXPECT_EQ(ValInt(text), value) << text;
}

TEST(NumberToText, SignColumnForm) {
  const std::pair<double, const char*> cases[] = {
      {0.01, " .01"}, {500, " 500"},       {-1, "-1"},
      {-180, "-180"}, {999999, " 999999"}, {-0.5, "-.5"},
      {0, " 0"},      {1.5, " 1.5"},       {12345678, " 1.234568E+07"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumText(value), text) << value;
}

TEST(FormatFixed, MaskWidthAndPoint) {
  EXPECT_EQ(FormatFixed("5", 0, 4), "  5.");
  EXPECT_EQ(FormatFixed("2.5", 0, 3), " 3.");
  EXPECT_EQ(FormatFixed("1.005", 2, 6), "  1.01");
  EXPECT_EQ(FormatFixed("-0.004", 2, 6), "  0.00");
  EXPECT_EQ(FormatFixed("-12.345", 1, 7), "  -12.3");
  EXPECT_EQ(FormatFixed(" 0.5 ", 3, 6), " 0.500");
  EXPECT_EQ(FormatFixed("abc", 2, 5), " 0.00");
  // A result longer than the width loses its right end.
  EXPECT_EQ(FormatFixed("123456", 2, 5), "12345");
}

TEST(FormatFixed, PointEvenWhereTheSystemWritesAComma) {
  const char* old = std::setlocale(LC_ALL, nullptr);
  std::string saved = old ? old : "C";
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8") && !std::setlocale(LC_NUMERIC, "sv_SE.UTF-8")) {
    GTEST_SKIP() << "no comma locale on this machine";
  }
  EXPECT_EQ(FormatFixed("1,5", 2, 5) + FormatFixed("1.5", 2, 5) + NumText(0.25), " 1.00 1.50 .25");
  EXPECT_EQ(Val("2.5"), 2.5);
  std::setlocale(LC_ALL, saved.c_str());
}

TEST(SignedNumberText, AcceptsPlainDecimalsOnly) {
  for (const char* good : {"12.5", "-3", "+.5", ".5", "0", "5."}) {
    EXPECT_TRUE(IsSignedNumberText(good)) << good;
  }
  for (const char* bad :
       {"", "-", ".", "+", "1-2", "1.2.3", "--1", "+-1", "1e3", " 1", "1 ", "1,5"}) {
    EXPECT_FALSE(IsSignedNumberText(bad)) << bad;
  }
}

TEST(RealNumberText, ExponentsNeedASignAndNoLeadingZero) {
  for (const char* good : {"1.5e-3", "+1e+2", "12", "-.5", "+1e-5", "3", "-1e-5", "1e+9"}) {
    EXPECT_TRUE(IsRealNumberText(good)) << good;
  }
  for (const char* bad : {"1e5", "1e-05", "1E-5", "", ".", "+", "1.", "1.2.3", "--1", "1-", "1e",
                          "1e-", "1 e-5", "a", "1-e+5", "123456789012"}) {
    EXPECT_FALSE(IsRealNumberText(bad)) << bad;
  }
}

}  // namespace
}  // namespace zelmo
