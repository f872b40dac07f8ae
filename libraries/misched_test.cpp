#include <gtest/gtest.h>

#include "core/guard.h"
#include "core/inpbox.h"
#include "libraries/library_test_case.h"
#include "libraries/misched_screen.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

const std::string kOff(24, '0');

// MISCHED.INP of the given months: (mode, hours) each.
std::string Lines(const std::vector<std::pair<std::string, std::string>>& months) {
  std::string bytes;
  for (size_t m = 0; m < months.size(); ++m) {
    bytes += std::to_string(m + 1) + "\t" + months[m].first + "\t" + months[m].second + "\r\n";
  }
  return bytes;
}

TEST(MISched, AMissingFileIsTwelveNightsAndSavesForTheLastTwoModules) {
  LibraryCase c(false);
  MISched screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(screen.MonthList.items.size(), 12u);
  EXPECT_EQ(screen.MonthList.list_index, 0);
  EXPECT_EQ(screen.Option3D1[0].value, 1);
  EXPECT_FALSE(screen.Check3D1[0].enabled || screen.Command3D5.enabled);
  EXPECT_TRUE(screen.Command3D3.enabled);
  c.fake.dialogs.answers = {Answer::kYes};
  screen.OptionClick(1);
  screen.Cancel();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rMi schedule");
  std::vector<std::pair<std::string, std::string>> months(12, {"0", kOff});
  months[0].first = "1";
  EXPECT_EQ(c.Bytes("case1/MISCHED.INP"), Lines(months));
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "----XX\r\n");
}

TEST(MISched, TheHoursStayThroughAChangeOfMode) {
  LibraryCase c(false);
  // A short mask shows its missing hours unchecked; the month field is not read.
  c.Put("case1/MISCHED.INP", "\r\n7\t2\t1001\r\n2\t1\t" + kOff + "\r\n");
  MISched screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(screen.Option3D1[2].value, 1);
  EXPECT_TRUE(screen.Check3D1[23].enabled);
  EXPECT_EQ(screen.Check3D1[0].value + screen.Check3D1[3].value + screen.Check3D1[23].value, 2);
  screen.Check3D1[23].value = 1;
  screen.HourClick(23);
  screen.OptionClick(0);
  EXPECT_FALSE(screen.Check3D1[23].enabled);
  EXPECT_EQ(screen.Check3D1[23].fore_color, Rgb(128, 128, 128));
  screen.OptionClick(2);
  EXPECT_EQ(screen.months()[0].mask, "100100000000000000000001");
  screen.MonthList.list_index = 1;
  screen.MonthClick();
  EXPECT_EQ(screen.Option3D1[1].value, 1);
  screen.OptionClick(2);
  screen.Fill();
  EXPECT_EQ(screen.months()[1].mask, std::string(24, '1'));
  screen.ClearHours();
  EXPECT_EQ(screen.months()[1].mask, kOff);
}

TEST(MISched, CopyMonth) {
  // The answer; one flag per month copied to (month 3 is the one shown); the
  // message.
  const std::array<std::string, 3> rows[] = {
      {"", "001000000000", ""},
      {"0", "111111111111", ""},
      {"12", "001000000001", ""},
      {" 2 ", "011000000000", ""},
      {"x", "001000000000", "Wrong Value "},
  };
  for (const auto& [answer, copied, message] : rows) {
    LibraryCase c(false);
    MISched screen(c.fake.session);
    screen.Load();
    screen.MonthList.list_index = 2;
    screen.MonthClick();
    screen.OptionClick(2);
    screen.Check3D1[5].value = 1;
    screen.HourClick(5);
    std::string prompt;
    const std::string reply = answer;
    c.fake.dialogs.screens["InpBox"] = [&](Form& form) {
      prompt = static_cast<InpBox&>(form).Label1.caption + "|" + form.caption;
      c.fake.ws().InpBoxResult = reply;
      form.Unload();
    };
    screen.CopyMonth();
    EXPECT_EQ(prompt, "Target month (0= all other) |Copy month");
    EXPECT_EQ(c.fake.ws().InpBoxMaxValue, 12);
    std::string expected, shown;
    for (int m = 0; m < 12; ++m) {
      expected += copied[m] == '1' ? "2 000001" + kOff.substr(6) + "\n" : "0 " + kOff + "\n";
      shown += screen.months()[m].mode + " " + screen.months()[m].mask + "\n";
    }
    EXPECT_EQ(shown, expected) << answer;
    EXPECT_EQ(c.Said(), (message.empty() ? "|" : "MESSAGE|") + message);
  }
}

TEST(MISched, ADamagedFileIsNamedWithItsLine) {
  const std::pair<std::string, std::string> rows[] = {
      {Lines(std::vector<std::pair<std::string, std::string>>(13, {"0", kOff})), "line 13"},
      {"1\t3\t" + kOff + "\r\n", "line 1"},
      {"1\r\n", "line 1"},
  };
  for (const auto& [bytes, where] : rows) {
    LibraryCase c(false);
    c.Put("case1/MISCHED.INP", bytes);
    MISched screen(c.fake.session);
    EXPECT_FALSE(RunGuarded(c.fake.dialogs, [&screen] { screen.Load(); }));
    EXPECT_NE(c.fake.dialogs.Last().text.find("MISCHED.INP, " + where), std::string::npos)
        << c.fake.dialogs.Last().text;
  }
}

}  // namespace
}  // namespace zelmo
