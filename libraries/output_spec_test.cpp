#include <gtest/gtest.h>

#include "core/guard.h"
#include "libraries/library_test_case.h"
#include "libraries/output_screen.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

// Elements of case1 facing the volumes given, each with Outdoor on its front.
void Volumes(LibraryCase& c, const std::vector<std::string>& volumes) {
  std::vector<testing::Element> elements;
  for (const auto& v : volumes) elements.push_back({{8, v}});
  c.Elements(elements);
}

TEST(Out_put, RowsFollowTheVolumesOfTheElements) {
  LibraryCase c(false);
  Volumes(c, {"1", "3"});
  // Volume 2 is gone since the last save; 3 is new. The file flags are read
  // by their absolute value.
  c.Put("case1/OUTPUT.INP",
        "2\r\n1\r\n-1 \r\n1\t-1\t0\t-1\t0\t0\t0\t0\t\r\n2\t-1\t-1\t-1\t-1\t-1\t-1\t-1\t\r\n");
  Out_put screen(c.fake.session);
  screen.Load();
  ASSERT_EQ(screen.volumes(), (std::vector<std::string>{"1", "3"}));
  EXPECT_EQ(screen.row(1).Label3.caption + screen.row(1).Check3D1.caption, "33");
  EXPECT_EQ(screen.row(0).Quantity[0].value + screen.row(0).Quantity[2].value, 2);
  EXPECT_EQ(screen.row(1).Check3D1.value, 0);
  EXPECT_EQ(screen.Check3D8.value + screen.Check3D9.value, 2);
  EXPECT_TRUE(screen.Frame2.enabled && screen.Frame3.enabled && screen.Frame4.enabled);
  EXPECT_FALSE(screen.dirty());
  screen.row(1).Quantity[5].value = 1;
  screen.QuantityClick();
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("case1/OUTPUT.INP"),
            "2\r\n-1 \r\n-1 \r\n1\t-1\t0\t-1\t0\t0\t0\t0\t\r\n3\t0\t0\t0\t0\t0\t-1\t0\t\r\n");
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "-----X\r\n");
}

TEST(Out_put, TheBlocksFollowTheOutputTypeAndTheTwoFileBoxes) {
  LibraryCase c(false);
  Volumes(c, {"1"});
  Out_put screen(c.fake.session);
  screen.Load();
  const struct {
    std::function<void()> act;
    bool outputs, comfort, files;
  } steps[] = {
      {[] {}, false, false, false},
      {[&] { screen.OptionClick(2); }, true, true, true},
      {[&] { screen.Check3D8.value = 0, screen.VolLoadClick(); }, false, true, true},
      {[&] { screen.Check3D9.value = 0, screen.SurfTmpClick(); }, false, false, true},
      {[&] { screen.Check3D8.value = 1, screen.VolLoadClick(); }, true, false, true},
      {[&] { screen.OptionClick(1); }, false, false, false},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(screen.Frame2.enabled, step.outputs);
    EXPECT_EQ(screen.row(0).Quantity[3].enabled, step.outputs);
    EXPECT_EQ(screen.Label4.fore_color, step.outputs ? kDefaultColor : Rgb(128, 128, 128));
    EXPECT_EQ(screen.row(0).Label3.fore_color, screen.Label4.fore_color);
    EXPECT_EQ(screen.Frame3.enabled, step.comfort);
    EXPECT_EQ(screen.row(0).Check3D1.enabled, step.comfort);
    EXPECT_EQ(screen.Label1.fore_color, step.comfort ? kDefaultColor : Rgb(128, 128, 128));
    EXPECT_EQ(screen.Check3D8.enabled && screen.Frame4.enabled, step.files);
  }
  // The boxes keep their values, greyed, and are written.
  screen.Ok();
  EXPECT_EQ(c.Bytes("case1/OUTPUT.INP"), "1\r\n-1 \r\n 0 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n");
}

TEST(Out_put, OneComfortVolumeAtMost) {
  LibraryCase c(false);
  Volumes(c, {"1", "2"});
  const std::string two =
      "2\r\n 0 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t-1\t\r\n2\t0\t0\t0\t0\t0\t0\t-1\t\r\n";
  c.Put("case1/OUTPUT.INP", two);
  Out_put screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "------\r\n");
  screen.Ok();
  EXPECT_FALSE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.Said(), "Message|Only one volume can be selected for comfort calculations ");
  EXPECT_EQ(c.Style(), mb::kExclamation);
  EXPECT_EQ(c.Bytes("case1/OUTPUT.INP"), two);
  // A click on a comfort volume marks every module at once, saved or not.
  screen.ComfortClick(1);
  EXPECT_EQ(screen.row(0).Check3D1.value, 0);
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "XXXXXX\r\n");
  c.fake.dialogs.answers = {Answer::kYes};
  screen.Cancel();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rOutput");
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("case1/OUTPUT.INP"),
            "2\r\n 0 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n2\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
}

TEST(Out_put, NoVolumesOrADamagedFile) {
  const std::array<std::string, 3> rows[] = {
      {"0", "", "There are no volumes"},
      {"1", "0\r\n 0 \r\n", "OUTPUT.INP, line 3"},
      {"1", "3\r\n 0 \r\n 0 \r\n", "OUTPUT.INP, line 1"},
  };
  for (const auto& [volume, bytes, message] : rows) {
    LibraryCase c(false);
    Volumes(c, {volume});
    if (!bytes.empty()) c.Put("case1/OUTPUT.INP", bytes);
    Out_put screen(c.fake.session);
    RunGuarded(c.fake.dialogs, [&screen] { screen.Load(); });
    ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
    EXPECT_NE(c.fake.dialogs.Last().text.find(message), std::string::npos);
  }
  // Rows are found by the number of their volume.
  LibraryCase c(false);
  c.Put("case1/OUTPUT.INP", "2 \r\n-1 \r\n 0 \r\n 2\t-1\t0\t0\t0\t0\t0\t-1\r\n\r\n5\t0\r\n");
  std::optional<OutputSpec> spec = ReadOutputSpec(c.fake.ws());
  ASSERT_TRUE(spec && spec->rows.size() == 2 && spec->RowOf(2) && !spec->RowOf(1));
  EXPECT_EQ(spec->head[0] + "|" + spec->RowOf(2)->flags[kComfortFlag], "2 |-1");
}

}  // namespace
}  // namespace zelmo
