#include "site/convert_v20.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::Exists;
using testing::ReadBytes;
using testing::ShownMessage;
using testing::Strings;
using testing::WriteBytes;

// A data folder with the project "old" and its cases; the screen is loaded
// and the project chosen as the user does it.
struct OldProject {
  OldProject() { fake.ws().LocalPath = dir / "Data"; }
  std::string Project(const std::string& name = "") { return dir / ("Data/old/" + name); }
  void Register(const std::string& cases) {
    WriteBytes(dir / "Data/PROJECTS.LIB", "old\told\r\n");
    WriteBytes(Project("CASES.LIB"), cases);
  }
  Cv12TOv20& Open() {
    screen.Load();
    screen.EP.list_index = 0;
    screen.ProjectClick();
    return screen;
  }
  testing::TempDir dir;
  testing::FakeSession fake;
  Cv12TOv20 screen{fake.session};
};

// The 14 lines of a site file after its first.
constexpr const char* kSiteRest =
    "18.07\r\n15\r\n0\r\nC:\\ZELMOPROJ\\StockholmW(SE).cli\r\n2001\r\n7\r\n1\r\n2001\r\n7\r\n"
    "31\r\n0\r\n0\r\n-1000\r\n";

// An old block: the name and 28 field lines, the facing codes given.
std::string OldBlock(const std::string& name, const std::string& front, const std::string& back) {
  std::string block = name + "\r\n\t0\r\n\t90\r\n\t180\r\n\t0\r\n\t0\r\n\t0\r\n\t" + front +
                      "\r\n\t" + back + "\r\n";
  for (int k = 9; k <= 28; ++k) block += "\t" + std::to_string(k) + "\r\n";
  return block;
}

TEST(Cv12TOv20, ConvertsEachCaseInPlaceByteForByteThenLeavesItAlone) {
  OldProject p;
  p.Register("one - First\r\ntwo - Second\r\n");
  // The names as another program wrote them: each is found and replaced.
  WriteBytes(p.Project("one/SITE.INP"), std::string("59.35 \r\n") + kSiteRest);
  WriteBytes(p.Project("one/SURFACE.INP"),
             OldBlock("Inner", "1", "2") + "\r\n" + OldBlock("Outer", "1", " 0"));
  WriteBytes(p.Project("one/FORCEVEN.INP"), "1 -> 2\t25\r\n");
  WriteBytes(p.Project("one/Hvac_cal.inp"), "old\r\n");
  WriteBytes(p.Project("two/Site.inp"), std::string("48") + "\r\n" + kSiteRest);
  WriteBytes(p.Project("MOVEINS.LIB"), "1\t40\t20\t.05\r\n12\t10\t60\t.2\r\n");
  p.fake.ws().LeakageMode = 2;
  Cv12TOv20& screen = p.Open();
  EXPECT_EQ(screen.EP.items, Strings{"old - old"});
  EXPECT_EQ(screen.EC.items, (Strings{"one", "two"}));
  screen.C_Convert.on_click();

  EXPECT_EQ(screen.CC.items, (Strings{"one", "two"}));
  EXPECT_TRUE(screen.NCC.items.empty());
  EXPECT_EQ(ReadBytes(p.Project("one/SITE.INP")), std::string("59.35\t0\t0\r\n") + kSiteRest);
  EXPECT_EQ(ReadBytes(p.Project("two/Site.inp")), std::string("48\t0\t0\r\n") + kSiteRest);
  EXPECT_EQ(ReadBytes(p.Project("one/SURFACE.INP")), OldBlock("Inner", "1", "2") + "\t 0\r\n\r\n" +
                                                         OldBlock("Outer", "1", " 0") + "\t 1\r\n");
  EXPECT_EQ(p.fake.ws().LeakageMode, 1);
  EXPECT_FALSE(Exists(p.Project("one/FORCEVEN.INP")) || Exists(p.Project("one/Hvac_cal.inp")));
  EXPECT_EQ(ReadBytes(p.Project("MOVEINS.LIB")),
            "1\tCurtain type_1\t40\t20\t.05\r\n12\tCurtain type_12\t10\t60\t.2\r\n");
  EXPECT_EQ(SubFolders(p.Project()), (Strings{"one", "two"}));
  EXPECT_EQ(FilesWithExtension(p.Project("one"), ""), (Strings{"SITE.INP", "SURFACE.INP"}));
  EXPECT_EQ(FilesWithExtension(p.Project(), ""), (Strings{"CASES.LIB", "MOVEINS.LIB"}));
  EXPECT_TRUE(p.fake.dialogs.messages.empty());

  // Converted cases and named curtains stay as they are, and the user is
  // told that there was nothing to do.
  const std::string surface = ReadBytes(p.Project("one/SURFACE.INP"));
  WriteBytes(p.Project("one/FORCEVEN.INP"), "1\t2\t25\r\n");
  screen.C_Convert.on_click();
  EXPECT_TRUE(screen.CC.items.empty());
  EXPECT_EQ(screen.NCC.items, (Strings{"one", "two"}));
  EXPECT_EQ(ReadBytes(p.Project("one/SURFACE.INP")), surface);
  EXPECT_EQ(ReadBytes(p.Project("one/FORCEVEN.INP")), "1\t2\t25\r\n");
  EXPECT_EQ(ReadBytes(p.Project("MOVEINS.LIB")),
            "1\tCurtain type_1\t40\t20\t.05\r\n12\tCurtain type_12\t10\t60\t.2\r\n");
  EXPECT_EQ(
      p.fake.dialogs.messages,
      (std::vector<ShownMessage>{{"The project has the form of v2.0 already. Nothing is changed.",
                                  mb::kInformation, "Conversion v1.2 to V2.0"}}));
  EXPECT_EQ(screen.TStatus.caption, "Nothing to convert");
}

// Every file of a folder and below it, by its path under the folder.
std::map<std::string, std::string> TreeBytes(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ToFsPath(folder))) {
    if (!entry.is_regular_file()) continue;
    const std::string path = FromFsPath(entry.path());
    files[path.substr(folder.size())] = ReadBytes(path);
  }
  return files;
}

// The projects of the program tree: the example of the new form is left
// alone; the one of version 1.2 is converted once, and a second conversion
// changes no byte of it.
TEST(Cv12TOv20, ASecondConversionOrOneOfTheNewFormChangesNoByte) {
  OldProject p;
  CopyFolderTree(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ",
                 p.dir / "Data");
  p.screen.Load();
  ASSERT_EQ(p.screen.EP.items,
            (Strings{"example - example", "v12demo - v12demo", "bestest - bestest"}));
  const struct {
    int project;
    int conversions_before;
    const char* folder;
  } rows[] = {{0, 0, "Example"}, {1, 1, "v12demo"}, {2, 0, "bestest"}};
  for (const auto& row : rows) {
    p.screen.EP.list_index = row.project;
    p.screen.ProjectClick();
    for (int k = 0; k < row.conversions_before; ++k) p.screen.Convert();
    EXPECT_FALSE(p.screen.CC.items.empty() && row.conversions_before > 0);
    const std::string folder = p.dir / ("Data/" + std::string(row.folder));
    const auto before = TreeBytes(folder);
    p.fake.dialogs.Clear();
    p.screen.Convert();
    EXPECT_EQ(TreeBytes(folder), before) << folder;
    EXPECT_TRUE(p.screen.CC.items.empty());
    EXPECT_EQ(p.screen.NCC.items, p.screen.EC.items);
    EXPECT_EQ(p.fake.dialogs.Texts(),
              Strings{"The project has the form of v2.0 already. Nothing is changed."});
  }
  // The curtains of version 1.2 got their names once.
  EXPECT_EQ(ReadBytes(p.dir / "Data/v12demo/Moveins.Lib"),
            "1\tCurtain type_1\t40\t20\t.05\r\n2\tCurtain type_2\t10\t60\t.2\r\n");
}

// A file of curtains is of the new form when a line has its five fields.
TEST(Cv12TOv20, TheCurtainsFormIsToldByTheirFields) {
  const struct {
    const char* bytes;
    bool named;
  } rows[] = {
      {"1\t40\t20\t.05\r\n", false},
      {"\r\n1\t40\t20\t.05\r\n2\t40\t20\r\n", false},
      {"1\tThin\t40\t20\t.05\r\n", true},
      {"1\t40\t20\t.05\r\n2\tThin\t40\t20\t.05", true},
      {"1\tCurtain type_1\tCurtain type_1\t40\t20\t.05\r\n", true},
      {"", false},
  };
  for (const auto& row : rows) {
    testing::TempDir dir;
    WriteBytes(dir / "MOVEINS.LIB", row.bytes);
    TextReader in(dir / "MOVEINS.LIB");
    EXPECT_EQ(IsNewMoveInsForm(in), row.named) << row.bytes;
    EXPECT_EQ(in.LineNumber(), 0) << row.bytes;
  }
}

// Without a site file, or with an old one beside elements converted before
// a stop, the elements tell whether the case is done.
TEST(Cv12TOv20, TheElementsTellACaseDoneWithoutItsSiteFile) {
  OldProject p;
  p.Register("bare - No site\r\nhalf - Stopped\r\n");
  WriteBytes(p.Project("bare/Surface.inp"), OldBlock("Wall", "0", "1"));
  WriteBytes(p.Project("bare/HVAC_Cal.Inp"), "old\r\n");
  const std::string converted = OldBlock("Wall", "1", "2") + "\t 0\r\n";
  WriteBytes(p.Project("half/Surface.inp"), converted);
  WriteBytes(p.Project("half/Site.inp"), std::string("59.35\r\n") + kSiteRest);
  Cv12TOv20& screen = p.Open();
  screen.Convert();
  EXPECT_EQ(screen.CC.items, (Strings{"bare", "half"}));
  EXPECT_EQ(ReadBytes(p.Project("bare/Surface.inp")), OldBlock("Wall", "0", "1") + "\t 1\r\n");
  EXPECT_EQ(ReadBytes(p.Project("half/Surface.inp")), converted);
  EXPECT_EQ(ReadBytes(p.Project("half/Site.inp")), std::string("59.35\t0\t0\r\n") + kSiteRest);
  // The schedules made since stay.
  WriteBytes(p.Project("bare/HVAC_Cal.Inp"), "new\r\n");
  screen.Convert();
  EXPECT_EQ(screen.NCC.items, (Strings{"bare", "half"}));
  EXPECT_EQ(ReadBytes(p.Project("bare/HVAC_Cal.Inp")), "new\r\n");
}

TEST(Cv12TOv20, ADamagedFileIsNamedAndNothingIsWritten) {
  OldProject p;
  p.Register("one - First\r\ntwo - Second\r\n");
  const std::string site = std::string("59.35\r\n") + kSiteRest;
  WriteBytes(p.Project("one/Site.inp"), site);
  WriteBytes(p.Project("two/Surface.inp"), OldBlock("Wall", "1", "2").substr(0, 60));
  WriteBytes(p.Project("Moveins.Lib"), "1\t40\t20\t.05\r\n");
  Cv12TOv20& screen = p.Open();
  EXPECT_EQ(testing::FileErrorText([&] { screen.Convert(); }),
            "Input past end of file\r" + p.Project("two/Surface.inp") + ", line 14");
  EXPECT_EQ(ReadBytes(p.Project("one/Site.inp")), site);
  EXPECT_EQ(ReadBytes(p.Project("Moveins.Lib")), "1\t40\t20\t.05\r\n");
  EXPECT_TRUE(screen.CC.items.empty());
}

TEST(Cv12TOv20, AFileThatCannotBeWrittenIsNamedAndTheCaseKeepsItsOldForm) {
  OldProject p;
  p.Register("one - First\r\n");
  const std::string site = std::string("59.35\r\n") + kSiteRest;
  WriteBytes(p.Project("one/Site.inp"), site);
  WriteBytes(p.Project("one/Surface.inp"), OldBlock("Wall", "1", "2"));
  // The copy's name is taken by a folder.
  CreateFolderTree(p.Project("one/XSurface.inp"));
  Cv12TOv20& screen = p.Open();
  EXPECT_EQ(testing::FileErrorText([&] { screen.Convert(); }),
            "The file could not be written.\r" + p.Project("one/Surface.inp"));
  EXPECT_EQ(ReadBytes(p.Project("one/Surface.inp")), OldBlock("Wall", "1", "2"));
  EXPECT_EQ(ReadBytes(p.Project("one/Site.inp")), site);
  EXPECT_TRUE(screen.CC.items.empty());
}

TEST(Cv12TOv20, TheListsSayWhatIsMissing) {
  struct Row {
    const char* projects;  // nullptr: no file
    const char* cases;
    Strings texts;
  };
  const Row rows[] = {
      {nullptr, nullptr, {"Can't find file Projects.lib"}},
      {"", nullptr, {"There are no projects"}},
      {"old\told\r\n", nullptr, {"Can't find file Cases.lib"}},
      {"old\told\r\n", "\r\n", {"There are no cases"}},
  };
  for (const Row& row : rows) {
    OldProject p;
    if (row.projects) WriteBytes(p.dir / "Data/PROJECTS.LIB", row.projects);
    if (row.cases) WriteBytes(p.Project("CASES.LIB"), row.cases);
    CreateFolderTree(p.Project());
    p.screen.Load();
    if (!p.screen.EP.items.empty()) {
      p.screen.EP.list_index = 0;
      p.screen.ProjectClick();
    }
    EXPECT_EQ(p.fake.dialogs.Texts(), row.texts);
    EXPECT_EQ(p.fake.dialogs.Last(),
              (ShownMessage{row.texts[0], mb::kExclamation, "Error message"}));
    p.screen.C_Convert.on_click();
    EXPECT_EQ(p.screen.TStatus.caption, "Finns inga cases");
  }
}

}  // namespace
}  // namespace zelmo
