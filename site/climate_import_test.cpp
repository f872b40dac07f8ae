// A weather file imported on the screen that moves climate files, then
// picked on the Site screen and saved, as a new user does it.
#include "site/climate_import.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "site/move_climatic_files.h"
#include "site/site_screen.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::ShownMessage;
using testing::Strings;
using testing::WriteBytes;

// An EPW of one day at Lund: two hours lack their dry-bulb temperature.
std::string LundEpw() {
  std::string text =
      "LOCATION,LUND,-,SWE,IWEC,026270,55.72,13.22,1.0,73.0\r\n"
      "DESIGN CONDITIONS,0\r\nTYPICAL/EXTREME PERIODS,0\r\nGROUND TEMPERATURES,0\r\n"
      "HOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0\r\nCOMMENTS 1,\r\nCOMMENTS 2,\r\n"
      "DATA PERIODS,1,1,Data,Sunday, 6/21,6/21\r\n";
  for (int hour = 1; hour <= 24; ++hour) {
    text += "2001,6,21," + std::to_string(hour) + ",60,flags," +
            (hour == 3 || hour == 4 ? "99.9" : "15.0") +
            ",9.0,70,101000,0,0,330,400,500,100,0,0,0,0,180,4.0,5,5,20,7620,9,999999999,0,0.1,"
            "0,88,0.2,999,99\r\n";
  }
  return text;
}

struct ImportCase {
  ImportCase() {
    fake.ws().SystemPath = dir / "Zelmo";
    fake.ws().LocalPath = dir / "Downloads";
    fake.ws().CasePath = dir / "case1";
    CreateFolder(dir / "Zelmo");
    CreateFolder(dir / "Downloads");
    CreateFolder(dir / "case1");
    WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
    WriteBytes(epw, LundEpw());
  }
  testing::FakeSession fake;
  testing::TempDir dir;
  std::string epw = dir / "Downloads/Lund.epw";
  std::string cli = dir / "Zelmo/Climate/Lund.CLI";
};

TEST(MoveClimaticFiles, ImportsAWeatherFileIntoTheClimateFolderAndListsIt) {
  ImportCase c;
  MoveClimaticFiles screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(screen.ImportEpw.caption, "&Import EPW...");
  // The choice is cancelled: nothing happens.
  screen.ImportEpw.on_click();
  ASSERT_EQ(c.fake.dialogs.file_choices.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.file_choices[0].filters, Strings{"*.epw"});
  EXPECT_FALSE(FolderExists(c.dir / "Zelmo/Climate"));

  c.fake.dialogs.files.push_back(c.epw);
  screen.ImportEpw.on_click();
  ASSERT_TRUE(FileCanOpen(c.cli));
  EXPECT_EQ(
      c.fake.dialogs.Last(),
      (ShownMessage{c.cli + ": 24 hours from 2001.06.21 to 2001.06.21\r"
                            "Latitude 55.72, longitude 13.22, time meridian 15, elevation 73 m\r"
                            "T_dry[C]: 2 hours without a value, the first 2001.06.21 hour 3\r",
                    mb::kInformation, "Import of weather file"}));
  EXPECT_EQ(screen.Selecteddirectory.caption, c.dir / "Zelmo/Climate");
  EXPECT_EQ(screen.File1.items, Strings{"Lund.CLI"});
  const std::string made = ReadBytes(c.cli);

  // Again: the file exists; No keeps it, Yes replaces it.
  WriteBytes(c.cli, "mine");
  c.fake.dialogs.files.push_back(c.epw);
  c.fake.dialogs.answers.push_back(Answer::kNo);
  screen.ImportEpw.on_click();
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"The climatic data file " + c.cli + " exists. Replace it?",
                          mb::kYesNo | mb::kQuestion, "Import of weather file"}));
  EXPECT_EQ(ReadBytes(c.cli), "mine");
  c.fake.dialogs.files.push_back(c.epw);
  c.fake.dialogs.answers.push_back(Answer::kYes);
  screen.ImportEpw.on_click();
  EXPECT_EQ(ReadBytes(c.cli), made);

  // A damaged weather file: its line is told and the old file stands.
  WriteBytes(c.epw, "Date,Time,Temperature\r\n");
  c.fake.dialogs.files.push_back(c.epw);
  c.fake.dialogs.answers.push_back(Answer::kYes);
  screen.ImportEpw.on_click();
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"This is no EnergyPlus weather file: its first line is no LOCATION "
                          "line\r" +
                              c.epw + ", line 1\rNo climatic data file is written.",
                          mb::kExclamation, "Error message"}));
  EXPECT_EQ(ReadBytes(c.cli), made);
}

TEST(MoveClimaticFiles, TheImportedFileIsPickedOnTheSiteScreenAndSaved) {
  ImportCase c;
  MoveClimaticFiles screen(c.fake.session);
  screen.Load();
  c.fake.dialogs.files.push_back(c.epw);
  screen.ImportEpw.on_click();

  Site site(c.fake.session);
  site.Load();
  ASSERT_TRUE(site.folder_lists().SetFolder(c.dir / "Zelmo/Climate"));
  testing::Act(site, {"File1#0"});
  EXPECT_EQ(site.Climate.text, c.cli);
  EXPECT_EQ(site.Latitude.text + "|" + site.Longitude.text + "|" + site.Timem.text,
            "55.72|13.22|15");
  EXPECT_EQ(site.FDYear.text + "." + site.FDMonth.text + "." + site.FDDay.text + "-" +
                site.LDYear.text + "." + site.LDMonth.text + "." + site.LDDay.text,
            "2001.06.21-2001.06.21");
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is used in HVAC-calculations");
  testing::Act(site, {"Command1"});
  EXPECT_TRUE(site.unloaded) << c.fake.dialogs.Last().text;
  EXPECT_EQ(ReadBytes(c.dir / "case1/SITE.INP"),
            "55.72\t 0\t 0\t\r\n13.22\r\n15\r\n0\r\n" + c.cli +
                "\r\n2001\r\n06\r\n21\r\n2001\r\n06\r\n21\r\n0\r\n0\r\n-1000\r\n");
}

}  // namespace
}  // namespace zelmo
