#include "site/site_screen.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

constexpr const char* kClimateText =
    " X1 Stockholm hourly weather\r\n"
    "Latitude: 59.35\r\n"
    "Longitude: 18.07\r\n"
    "Time meridian: 15\r\n"
    "1:st day: 1995.01.01\r\n"
    "Last day: 1995.12.31\r\n";

struct SiteCase {
  SiteCase() {
    ws().CasePath = dir / "case1";
    ws().SystemPath = dir.path();
    CreateFolder(ws().CasePath);
    CreateFolder(dir / "Climate");
    WriteBytes(JoinPath(ws().CasePath, "THERMAL.INP"), "------\r\n");
    WriteBytes(climate, kClimateText);
  }
  Workspace& ws() { return fake.ws(); }
  // A climate file whose whole path has `length` characters.
  std::string ClimateOfLength(size_t length, const std::string& text = kClimateText) {
    std::string folder = dir / "Climate";
    std::string path = JoinPath(folder, std::string(length - folder.size() - 5, 'k') + ".cli");
    WriteBytes(path, text);
    return path;
  }
  void WriteSiteFile(const std::string& first_line, const std::string& path,
                     const std::string& tail = "0\r\n0\r\n-1000\r\n") {
    WriteBytes(JoinPath(ws().CasePath, "SITE.INP"),
               first_line + "\r\n18.07\r\n15\r\n0\r\n" + path +
                   "\r\n1995\r\n1\r\n1\r\n1995\r\n12\r\n31\r\n" + tail);
  }
  std::string SiteBytes() { return ReadBytes(JoinPath(ws().CasePath, "SITE.INP")); }

  testing::FakeSession fake;
  testing::TempDir dir;
  std::string climate = dir / "Climate/Sthlm.CLI";
};

TEST(SiteScreen, MissingFileGivesTheEmptyDefaults) {
  SiteCase c;
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.caption, "Site / Period / Climate");
  EXPECT_EQ(site.Latitude.text, "");
  EXPECT_EQ(site.Rotation.text, "0");
  EXPECT_EQ(site.T_T.text, " ");
  EXPECT_EQ(site.Option1.value + site.Option3.value, 2);
  EXPECT_EQ(site.Wind.value, 0);
  EXPECT_FALSE(site.Terrain.visible);
  EXPECT_FALSE(site.Windlabel.visible);
  EXPECT_FALSE(site.dirty());
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
  // The lists start in the program tree's climate folder.
  EXPECT_EQ(site.folder_lists().folder(), c.dir / "Climate");
  EXPECT_EQ(site.File1.items, std::vector<std::string>{"Sthlm.CLI"});
}

TEST(SiteScreen, LoadsTheFileAndFollowsTheWindMark) {
  SiteCase c;
  c.WriteSiteFile("59.35\t 1\t 2\t", c.climate, "1\r\n1\r\n-5.5\r\n");
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.Latitude.text, "59.35");
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.T_T.text, "-5.5");
  EXPECT_EQ(site.Option2.value, 1);
  EXPECT_EQ(site.Option4.value, 1);
  EXPECT_EQ(site.Option5[2].value, 1);
  EXPECT_EQ(site.Wind.value, 1);
  EXPECT_TRUE(site.Wind.visible);
  EXPECT_TRUE(site.Terrain.visible);
  EXPECT_TRUE(site.Winddata.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is used in HVAC-calculations");
  EXPECT_EQ(site.Winddata.fore_color, Rgb(0, 0, 0));
  EXPECT_EQ(site.File1.SelectedItem(), "Sthlm.CLI");
  EXPECT_FALSE(site.dirty());

  // Unchecking the wind hides the terrain; OK writes the screen back.
  site.Wind.value = 0;
  site.WindClicked();
  EXPECT_FALSE(site.Terrain.visible);
  site.Ok();
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes(), "59.35\t 0\t 2\t\r\n18.07\r\n15\r\n0\r\n" + c.climate +
                               "\r\n1995\r\n1\r\n1\r\n1995\r\n12\r\n31\r\n1\r\n1\r\n-5.5\r\n");
  EXPECT_EQ(ReadBytes(JoinPath(c.ws().CasePath, "THERMAL.INP")), "----XX\r\n");
}

TEST(SiteScreen, AClimateFileWithoutWindClearsAndHidesTheWindBox) {
  SiteCase c;
  std::string calm = c.dir / "Climate/Calm.cli";
  WriteBytes(calm, std::string(" X0") + (kClimateText + 3));
  c.WriteSiteFile("59.35\t 1\t 3\t", calm);
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.Wind.value, 0);
  EXPECT_FALSE(site.Wind.visible);
  EXPECT_FALSE(site.Terrain.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is not used in HVAC-calculations");
  EXPECT_EQ(site.Winddata.fore_color, Rgb(250, 0, 0));
  EXPECT_EQ(site.T_T.text, " ");
  site.Latitude.text = "59.4";
  site.Latitude.on_change();
  site.Ok();
  EXPECT_EQ(c.SiteBytes().substr(0, 13), "59.4\t 0\t 3\t\r\n");
  EXPECT_NE(c.SiteBytes().find("\r\n0\r\n0\r\n-1000\r\n"), std::string::npos);

  // A path that cannot be opened hides the message line.
  site.Climate.text = c.dir / "nowhere.cli";
  site.Climate.on_change();
  EXPECT_FALSE(site.Windlabel.visible);
  EXPECT_FALSE(site.Winddata.visible);
}

TEST(SiteScreen, AMissingOrDamagedFileOnLoad) {
  SiteCase c;
  std::string gone = c.dir / "gone.cli";
  c.WriteSiteFile("59.35\t 0\t 0\t", gone);
  Site site(c.fake.session);
  site.Load();
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, " No climatic data file found : " + gone);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Site");

  WriteBytes(JoinPath(c.ws().CasePath, "SITE.INP"), "59.35\t 0\t 0\t\r\n18\r\n");
  Site cut(c.fake.session);
  EXPECT_THROW(cut.Load(), FileError);
}

TEST(SiteScreen, ChoosingAFileReadsPositionAndPeriod) {
  SiteCase c;
  Site site(c.fake.session);
  site.Load();
  site.File1.list_index = 0;
  site.File1.on_click();
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.Latitude.text, "59.35");
  EXPECT_EQ(site.Longitude.text, "18.07");
  EXPECT_EQ(site.Timem.text, "15");
  EXPECT_EQ(site.FDYear.text + site.FDMonth.text + site.FDDay.text, "19950101");
  EXPECT_EQ(site.LDYear.text + site.LDMonth.text + site.LDDay.text, "19951231");
  EXPECT_TRUE(site.Wind.visible);
  EXPECT_TRUE(site.dirty());
  EXPECT_TRUE(site.CheckSite());
  // A second click on the same file reads it again over what was typed.
  site.Latitude.text = "10";
  site.FDDay.text = "5";
  site.File1.on_click();
  EXPECT_EQ(site.Latitude.text + "|" + site.FDDay.text, "59.35|01");
  // A file gone since the list was filled is refused and changes nothing.
  WriteBytes(c.dir / "Climate/Gone.CLI", kClimateText);
  site.folder_lists().Refresh();
  site.File1.list_index = 0;
  ASSERT_EQ(site.File1.SelectedItem(), "Gone.CLI");
  DeleteFile(c.dir / "Climate/Gone.CLI");
  EXPECT_THROW(site.File1.on_click(), FileError);
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.File1.items, std::vector<std::string>{"Sthlm.CLI"});
}

TEST(SiteScreen, CheckGathersEveryFaultAndFocusesTheFirst) {
  SiteCase c;
  Site site(c.fake.session);
  site.Load();
  site.Latitude.text = "91";
  site.Rotation.text = "-360";
  site.FDYear.text = "2000";
  site.FDMonth.text = "13";
  site.FDDay.text = "0";
  site.LDYear.text = "1999";
  site.LDMonth.text = "12";
  site.LDDay.text = "31";
  site.Climate.text = c.ClimateOfLength(61);
  site.T_T.text = "abc";
  site.Longitude.text = "";
  site.Timem.text = "181";
  EXPECT_FALSE(site.CheckSite());
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Site / Period / Climate - Check");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Latitude must be a value (-90 -  90)\r"
            "Month must be a value ( 1 -  12)\r"
            "Day must be a value ( 1 -  31)\r"
            "Last date must be greater than First date\r"
            "File does not exist, or length > 60 characters long, or have spaces in it\r"
            "Temperatur must be a value (-70 -  70)\r"
            "Longitude must be a value (-180 -  180)\r"
            "Time meridian must be a value (-180 -  180)\r");
  EXPECT_EQ(site.focus, "Latitude");
  EXPECT_EQ(site.Latitude.sel_length, 2);

  // The date order alone puts the focus on the first year.
  site.Latitude.text = "90";
  site.FDMonth.text = "1";
  site.FDDay.text = "1";
  site.Climate.text = c.ClimateOfLength(60);
  site.T_T.text = "70";
  site.Longitude.text = "-180";
  site.Timem.text = "180";
  c.fake.dialogs.Clear();
  EXPECT_FALSE(site.CheckSite());
  EXPECT_EQ(c.fake.dialogs.Last().text, "Last date must be greater than First date\r");
  EXPECT_EQ(site.focus, "FDYear");

  // Equal dates pass, and the day's bound ignores the month.
  site.FDYear.text = "1999";
  site.FDMonth.text = "2";
  site.FDDay.text = "31";
  site.LDMonth.text = "2";
  EXPECT_TRUE(site.CheckSite());
  site.Rotation.text = "360.5";
  site.FDYear.text = "1900";
  site.FDDay.text = "1";
  c.fake.dialogs.Clear();
  EXPECT_FALSE(site.CheckSite());
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Rotation must be a value (-360 -  360)\rYear must be a value ( 1901 -  2099)\r");
  EXPECT_EQ(site.focus, "Rotation");
  site.Rotation.text = "0";
  site.FDYear.text = "1999";

  // A blank in the path fails even when the file is there.
  std::string blank = c.dir / "Climate/With blank.cli";
  WriteBytes(blank, kClimateText);
  site.Climate.text = blank;
  site.Option4.value = 1;
  site.T_T.text = " ";
  c.fake.dialogs.Clear();
  EXPECT_FALSE(site.CheckSite());
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "File does not exist, or length > 60 characters long, or have spaces in it\r"
            "No outdoor temparture set !\r");
  EXPECT_EQ(site.focus, "Climate");
}

TEST(SiteScreen, CancelAsksAboutChangesAndGeneralParametersOpens) {
  SiteCase c;
  c.WriteSiteFile("59.35\t 0\t 0\t", c.climate);
  const std::string loaded = c.SiteBytes();
  Site site(c.fake.session);
  site.Load();
  // OK with nothing changed writes the same bytes and leaves the modules be.
  site.Ok();
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes(), loaded);
  EXPECT_EQ(ReadBytes(JoinPath(c.ws().CasePath, "THERMAL.INP")), "------\r\n");
  site.unloaded = false;
  site.Cancel();  // nothing changed: closes without a question
  EXPECT_TRUE(site.unloaded);
  EXPECT_TRUE(c.fake.dialogs.messages.empty());

  site.unloaded = false;
  site.Latitude.text = "99";
  site.Latitude.on_change();
  c.fake.dialogs.answers = {Answer::kCancel, Answer::kYes, Answer::kOk, Answer::kNo};
  site.Cancel();
  EXPECT_FALSE(site.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rSite");
  site.Cancel();  // Yes, but the check refuses: stays
  EXPECT_FALSE(site.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Site / Period / Climate - Check");
  site.Cancel();  // No: closes and writes nothing
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes().substr(0, 6), "59.35\t");

  site.Command4.on_click();
  EXPECT_EQ(c.fake.dialogs.shown_forms, std::vector<std::string>{"GenPars"});
  site.Command3.on_click();
  ASSERT_EQ(c.fake.desktop.help_calls.size(), 1u);
  EXPECT_NE(c.fake.desktop.help_calls[0].first.find("ZELMO_e.chm"), std::string::npos);
}

}  // namespace
}  // namespace zelmo
