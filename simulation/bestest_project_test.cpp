// The validation project bestest of the program tree: activated with the
// example, every case opened as a user opens it, every screen of the case
// and the project accepts its files as they stand and saves them unchanged.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>

#include "building/fluid_adv_screen.h"
#include "building/force_vent_screen.h"
#include "building/genpars.h"
#include "building/surface_screen.h"
#include "libraries/gas_screen.h"
#include "libraries/glass_types_screen.h"
#include "libraries/misched_screen.h"
#include "libraries/moveins_screen.h"
#include "libraries/opaque_screen.h"
#include "libraries/output_screen.h"
#include "libraries/walls_screen.h"
#include "libraries/window_types_screen.h"
#include "schedules/hvac_screen.h"
#include "site/site_screen.h"
#include "workspace/case_screens.h"
#include "workspace/demo.h"
#include "workspace/project_screens.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

const Strings kCases = Words("c600 c600ff c900 c900ff c195 c200 c210 c215 c220");

class BestestProject : public StoreTest {
 protected:
  BestestProject() {
    // The program folder short enough for the climate path's 60 characters.
    ws().SystemPath = dir.path();
    ws().MainDirectory = dir / "TGZELMO";
    ws().ThermalDirectory = dir / "TZELMO";
    CreateFolderTree(ws().MainDirectory);
    CreateFolderTree(ws().ThermalDirectory);
    const std::string source = std::getenv("ZELMO_SOURCE_DIR");
    CopyFolderTree(source + "/system/tree/ZELMOPROJ", Root());
    CopyFolderTree(source + "/system/tree/Climate", dir / "Climate");
    // The Denver year as the site screen reads it: its header is all it needs.
    if (!Exists(Denver())) {
      WriteBytes(Denver(),
                 "01 Denver climate data, hourly wind included\r\nLatitude: 39.83\r\n"
                 "Longitude: -104.65\r\nTime meridian: -105\r\n1:st day: 1995.01.01\r\n"
                 "Last day: 1995.12.31\r\n");
    }
  }
  std::string Root() { return dir / "ZELMOPROJ"; }
  std::string Project() { return JoinPath(Root(), kBestestProject); }
  std::string Denver() { return JoinPath(dir / "Climate", kExampleClimateFile); }
  // Every file of the project with its bytes.
  std::map<std::string, std::string> Files() {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Project())) {
      if (entry.is_regular_file()) files[entry.path().string()] = ReadBytes(entry.path().string());
    }
    return files;
  }
  // Clicks each item of a list in turn, as a user looks at each entry.
  static void ClickEach(Form& screen, const std::string& list, int count) {
    for (int i = 0; i < count; ++i) Act(screen, {list + "#" + std::to_string(i)});
  }
};

TEST_F(BestestProject, TheCasesAreRegisteredAndPointAtTheDenverYearOnceActivated) {
  EXPECT_EQ(ReadBytes(JoinPath(Root(), "PROJECTS.LIB")),
            "example\texample\r\nv12demo\tv12demo\r\nbestest\tbestest\r\n");
  std::string cases;
  for (const auto& name : kCases)
    cases += name + " - ASHRAE 140 case " + ToUpper(name.substr(1)) + "\r\n";
  EXPECT_EQ(ReadBytes(JoinPath(Project(), "CASES.LIB")), cases);
  // Before activation the path a default Windows installation has.
  const std::string site = JoinPath(Project(), "c600/Site.inp");
  EXPECT_NE(
      ReadBytes(site).find(std::string("\r\nC:\\Zelmo\\Climate\\") + kExampleClimateFile + "\r\n"),
      std::string::npos);
  const auto before = Files();
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(), Strings{"The demo project is successfully activated"});
  // Only the climate line of each site file changes.
  for (const auto& [path, bytes] : Files()) {
    std::string expected = before.at(path);
    if (LastName(path) == "Site.inp") {
      const size_t start = expected.find("C:\\");
      expected.replace(start, expected.find("\r\n", start) - start, Denver());
    }
    EXPECT_EQ(bytes, expected) << path;
  }
  EXPECT_EQ(Files().size(), before.size());
}

// A user who deleted the validation project still activates the example.
TEST_F(BestestProject, WithoutTheValidationProjectTheExampleIsActivatedAllTheSame) {
  DeleteFolderTree(Project());
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(), Strings{"The demo project is successfully activated"});
  EXPECT_NE(ReadBytes(JoinPath(Root(), "Example/Case1/Site.inp")).find(Denver()),
            std::string::npos);
}

TEST_F(BestestProject, EveryScreenOfEveryCaseAcceptsItsFilesAndSavesThemUnchanged) {
  ActivateDemoProject(fake.session, main);
  fake.dialogs.Clear();
  auto& open_project = Show<OpenProject>();
  const auto& projects = open_project.List1.items;
  const auto at = std::find_if(projects.begin(), projects.end(),
                               [](const std::string& item) { return item.starts_with("bestest"); });
  ASSERT_NE(at, projects.end());
  open_project.List1.list_index = static_cast<int>(at - projects.begin());
  open_project.Open();
  ASSERT_EQ(ws().ProjectPath, Project());
  const auto before = Files();
  for (size_t c = 0; c < kCases.size(); ++c) {
    SCOPED_TRACE(kCases[c]);
    auto& open_case = Show<OpenCase>();
    ASSERT_EQ(open_case.List1.items.size(), kCases.size());
    open_case.List1.list_index = static_cast<int>(c);
    open_case.Open();
    ASSERT_EQ(ws().CaseName, kCases[c]);

    Surface surface(fake.session);
    surface.Load();
    for (int row = 0; row < surface.table().SurfCount; ++row) {
      Act(surface, {"SurfList#" + std::to_string(row)});
      EXPECT_TRUE(surface.CheckSurface()) << surface.table().SurfName[row + 1];
    }
    Site site(fake.session);
    site.Load();
    EXPECT_EQ(site.Climate.text, Denver());
    EXPECT_TRUE(site.CheckSite());
    GenPars pars(fake.session);
    pars.Load();
    FluidAdv fluid_adv(fake.session);
    fluid_adv.Load();
    // One volume has nothing to exchange air with: the screen says so and
    // does not open.
    ForceVent force_vent(fake.session);
    force_vent.Load();
    EXPECT_TRUE(force_vent.unloaded);
    EXPECT_EQ(fake.dialogs.Texts(), Strings{"There are less than two volumes"});
    fake.dialogs.Clear();
    Out_put output(fake.session);
    output.Load();
    MISched misched(fake.session);
    misched.Load();
    HVAC hvac(fake.session);
    hvac.Load();
    OpaqueMtrl opaque(fake.session);
    opaque.Load();
    Walls walls(fake.session);
    walls.Load();
    ClickEach(walls, "WallList", static_cast<int>(walls.WallList.items.size()));
    Glass_types glass(fake.session);
    glass.Load();
    ClickEach(glass, "List1", static_cast<int>(glass.List1.items.size()));
    Gases gases(fake.session);
    gases.Load();
    Wind_Types windows(fake.session);
    windows.Load();
    ClickEach(windows, "List1", static_cast<int>(windows.List1.items.size()));
    MoveIns curtains(fake.session);
    curtains.Load();
    // OK on each, as the user leaves them.
    const std::vector<std::pair<Form*, std::function<void()>>> screens = {
        {&surface, [&] { surface.Ok(); }},  {&site, [&] { site.Ok(); }},
        {&pars, [&] { pars.Ok(); }},        {&fluid_adv, [&] { fluid_adv.Ok(); }},
        {&output, [&] { output.Ok(); }},    {&misched, [&] { misched.Ok(); }},
        {&hvac, [&] { hvac.Ok(); }},        {&opaque, [&] { opaque.Ok(); }},
        {&walls, [&] { walls.Ok(); }},      {&glass, [&] { glass.Ok(); }},
        {&gases, [&] { gases.Ok(); }},      {&windows, [&] { windows.Ok(); }},
        {&curtains, [&] { curtains.Ok(); }}};
    for (const auto& [screen, ok] : screens) {
      ok();
      EXPECT_TRUE(screen->unloaded) << screen->name();
    }
    EXPECT_EQ(fake.dialogs.Texts(), Strings{});
    fake.dialogs.Clear();
    for (const auto& [path, bytes] : Files()) {
      // The window type screen writes the module input of the window
      // library, as every run does.
      if (LastName(path) == "Wndw.Lib") continue;
      if (!before.count(path)) {
        ADD_FAILURE() << "written: " << path;
      } else {
        EXPECT_EQ(bytes, before.at(path)) << path;
      }
    }
  }
}

}  // namespace
}  // namespace zelmo::testing
