#include "site/site_screen.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::ShownMessage;
using testing::Strings;
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
  std::string ClimateOfLength(size_t length) {
    std::string folder = dir / "Climate";
    std::string path = JoinPath(folder, std::string(length - folder.size() - 5, 'k') + ".cli");
    WriteBytes(path, kClimateText);
    return path;
  }
  void WriteSiteFile(const std::string& first_line, const std::string& path,
                     const std::string& tail = "0\r\n0\r\n-1000\r\n") {
    WriteBytes(JoinPath(ws().CasePath, "SITE.INP"),
               first_line + "\r\n18.07\r\n15\r\n0\r\n" + path +
                   "\r\n1995\r\n1\r\n1\r\n1995\r\n12\r\n31\r\n" + tail);
  }
  std::string SiteBytes() { return ReadBytes(JoinPath(ws().CasePath, "SITE.INP")); }
  std::string Thermal() { return ReadBytes(JoinPath(ws().CasePath, "THERMAL.INP")); }

  testing::FakeSession fake;
  testing::TempDir dir;
  std::string climate = dir / "Climate/Sthlm.CLI";
};

TEST(SiteScreen, MissingFileGivesTheEmptyDefaults) {
  SiteCase c;
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.caption, "Site / Period / Climate");
  EXPECT_EQ(site.Latitude.text + "|" + site.Rotation.text + "|" + site.T_T.text, "|0| ");
  EXPECT_EQ(site.Option1.value + site.Option3.value, 2);
  EXPECT_EQ(site.Wind.value, 0);
  EXPECT_FALSE(site.Terrain.visible || site.Windlabel.visible || site.dirty());
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
  // The lists start in the program tree's climate folder.
  EXPECT_EQ(site.folder_lists().folder(), c.dir / "Climate");
  EXPECT_EQ(site.File1.items, Strings{"Sthlm.CLI"});
}

TEST(SiteScreen, LoadsTheFileAndFollowsTheWindMark) {
  SiteCase c;
  c.WriteSiteFile("59.35\t 1\t 2\t", c.climate, "1\r\n1\r\n-5.5\r\n");
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.Latitude.text + "|" + site.T_T.text + "|" + site.File1.SelectedItem(),
            "59.35|-5.5|Sthlm.CLI");
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.Option2.value + site.Option4.value + site.Option5[2].value + site.Wind.value, 4);
  EXPECT_TRUE(site.Wind.visible && site.Terrain.visible && site.Winddata.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is used in HVAC-calculations");
  EXPECT_EQ(site.Winddata.fore_color, Rgb(0, 0, 0));
  EXPECT_FALSE(site.dirty());

  // Unchecking the wind hides the terrain; OK writes the screen back.
  testing::Act(site, {"Wind#0"});
  EXPECT_FALSE(site.Terrain.visible);
  testing::Act(site, {"Command1"});
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes(), "59.35\t 0\t 2\t\r\n18.07\r\n15\r\n0\r\n" + c.climate +
                               "\r\n1995\r\n1\r\n1\r\n1995\r\n12\r\n31\r\n1\r\n1\r\n-5.5\r\n");
  EXPECT_EQ(c.Thermal(), "----XX\r\n");
}

TEST(SiteScreen, AClimateFileWithoutWindClearsAndHidesTheWindBox) {
  SiteCase c;
  std::string calm = c.dir / "Climate/Calm.cli";
  WriteBytes(calm, std::string(" X0") + (kClimateText + 3));
  c.WriteSiteFile("59.35\t 1\t 3\t", calm);
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(site.Wind.value, 0);
  EXPECT_FALSE(site.Wind.visible || site.Terrain.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is not used in HVAC-calculations");
  EXPECT_EQ(site.Winddata.fore_color, Rgb(250, 0, 0));
  EXPECT_EQ(site.T_T.text, " ");
  testing::Act(site, {"Latitude=59.4", "Command1"});
  EXPECT_EQ(c.SiteBytes().substr(0, 13), "59.4\t 0\t 3\t\r\n");
  EXPECT_NE(c.SiteBytes().find("\r\n0\r\n0\r\n-1000\r\n"), std::string::npos);

  // A path that cannot be opened hides the message line.
  testing::Act(site, {"Climate=" + (c.dir / "nowhere.cli")});
  EXPECT_FALSE(site.Windlabel.visible || site.Winddata.visible);
}

TEST(SiteScreen, AMissingOrDamagedFileOnLoad) {
  SiteCase c;
  std::string gone = c.dir / "gone.cli";
  c.WriteSiteFile("59.35\t 0\t 0\t", gone);
  Site site(c.fake.session);
  site.Load();
  EXPECT_EQ(c.fake.dialogs.messages,
            (std::vector<ShownMessage>{
                {" No climatic data file found : " + gone, mb::kExclamation, "Site"}}));
  WriteBytes(JoinPath(c.ws().CasePath, "SITE.INP"), "59.35\t 0\t 0\t\r\n18\r\n");
  Site cut(c.fake.session);
  EXPECT_EQ(testing::FileErrorText([&cut] { cut.Load(); }),
            "Input past end of file\r" + JoinPath(c.ws().CasePath, "SITE.INP") + ", line 3");
}

TEST(SiteScreen, ChoosingAFileReadsPositionAndPeriod) {
  SiteCase c;
  Site site(c.fake.session);
  site.Load();
  testing::Act(site, {"File1#0"});
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.Latitude.text + "|" + site.Longitude.text + "|" + site.Timem.text,
            "59.35|18.07|15");
  EXPECT_EQ(site.FDYear.text + site.FDMonth.text + site.FDDay.text + "|" + site.LDYear.text +
                site.LDMonth.text + site.LDDay.text,
            "19950101|19951231");
  EXPECT_TRUE(site.Wind.visible && site.dirty() && site.CheckSite());
  // A second click on the same file reads it again over what was typed.
  testing::Act(site, {"Latitude=10", "FDDay=5", "File1"});
  EXPECT_EQ(site.Latitude.text + "|" + site.FDDay.text, "59.35|01");
  // A file gone since the list was filled is refused and changes nothing.
  WriteBytes(c.dir / "Climate/Gone.CLI", kClimateText);
  site.folder_lists().Refresh();
  site.File1.list_index = 0;
  ASSERT_EQ(site.File1.SelectedItem(), "Gone.CLI");
  DeleteFile(c.dir / "Climate/Gone.CLI");
  EXPECT_THROW(site.File1.on_click(), FileError);
  EXPECT_EQ(site.Climate.text, c.climate);
  EXPECT_EQ(site.File1.items, Strings{"Sthlm.CLI"});
}

// Each bound passes and just outside is refused; every fault is told at
// once, the first takes the focus with its text selected.
TEST(SiteScreen, CheckGathersEveryFaultAndFocusesTheFirst) {
  SiteCase c;
  const std::string sixty = c.ClimateOfLength(60), too_long = c.ClimateOfLength(61);
  const std::string blank = c.dir / "Climate/With blank.cli";
  WriteBytes(blank, kClimateText);
  // Equal dates pass, and the day's bound ignores the month.
  const Strings bounds = {"Latitude=90", "Longitude=-180", "Timem=180", "Rotation=-360",
                          "FDYear=1999", "FDMonth=2",      "FDDay=31",  "LDYear=1999",
                          "LDMonth=2",   "LDDay=31",       "T_T=70",    "Climate=" + sixty};
  const std::string file =
      "File does not exist, or length > 60 characters long, or have "
      "spaces in it\r";
  const std::pair<Strings, std::string> rows[] = {
      {{}, ""},
      {{"Latitude=91", "FDYear=2000", "FDMonth=13", "FDDay=0", "LDMonth=12", "Climate=" + too_long,
        "T_T=abc", "Longitude=", "Timem=181"},
       "Latitude must be a value (-90 -  90)\rMonth must be a value ( 1 -  12)\r"
       "Day must be a value ( 1 -  31)\rLast date must be greater than First date\r" +
           file +
           "Temperatur must be a value (-70 -  70)\rLongitude must be a value (-180 -  180)\r"
           "Time meridian must be a value (-180 -  180)\r"},
      {{"FDYear=2000", "FDMonth=1", "FDDay=1", "LDMonth=12"},
       "Last date must be greater than First date\r"},
      {{"Rotation=360.5", "FDYear=1900", "FDDay=1"},
       "Rotation must be a value (-360 -  360)\rYear must be a value ( 1901 -  2099)\r"},
      // A blank in the path fails even when the file is there.
      {{"Climate=" + blank, "Option4#1", "T_T= "}, file + "No outdoor temparture set !\r"}};
  const char* focus[] = {"", "Latitude", "FDYear", "Rotation", "Climate"};
  for (size_t i = 0; i < std::size(rows); ++i) {
    c.fake.dialogs.Clear();
    Site site(c.fake.session);
    site.Load();
    testing::Fill(site, bounds);
    testing::Fill(site, rows[i].first);
    EXPECT_EQ(site.CheckSite(), rows[i].second.empty());
    std::vector<ShownMessage> shown;
    if (!rows[i].second.empty()) {
      shown.push_back({rows[i].second, mb::kExclamation, "Site / Period / Climate - Check"});
    }
    EXPECT_EQ(c.fake.dialogs.messages, shown);
    EXPECT_EQ(site.focus, focus[i]);
    if (const Control* input = site.Find(focus[i])) {
      EXPECT_EQ(input->sel_length, static_cast<int>(input->text.size()));
    }
  }
}

TEST(SiteScreen, CancelAsksAboutChangesAndGeneralParametersOpens) {
  SiteCase c;
  c.WriteSiteFile("59.35\t 0\t 0\t", c.climate);
  const std::string loaded = c.SiteBytes();
  Site site(c.fake.session);
  site.Load();
  // OK with nothing changed writes the same bytes and leaves the modules be.
  testing::Act(site, {"Command1"});
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes(), loaded);
  EXPECT_EQ(c.Thermal(), "------\r\n");
  site.unloaded = false;
  testing::Act(site, {"Command2"});  // nothing changed: closes without a question
  EXPECT_TRUE(site.unloaded && c.fake.dialogs.messages.empty());

  site.unloaded = false;
  c.fake.dialogs.answers = {Answer::kCancel, Answer::kYes, Answer::kOk, Answer::kNo};
  testing::Act(site, {"Latitude=99", "Command2"});
  EXPECT_FALSE(site.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last(), (ShownMessage{"Do you want to save changes ?\r\rSite",
                                                 mb::kYesNoCancel + mb::kExclamation, "Save"}));
  site.Cancel();  // Yes, but the check refuses: stays
  EXPECT_FALSE(site.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Site / Period / Climate - Check");
  site.Cancel();  // No: closes and writes nothing
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(c.SiteBytes(), loaded);

  testing::Act(site, {"Command4", "Command3"});
  EXPECT_EQ(c.fake.dialogs.shown_forms, Strings{"GenPars"});
  ASSERT_EQ(c.fake.desktop.help_calls.size(), 1u);
  EXPECT_NE(c.fake.desktop.help_calls[0].first.find("ZELMO_e.chm"), std::string::npos);
}

}  // namespace
}  // namespace zelmo
