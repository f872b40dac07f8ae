// The example project of the program tree: activated once, opened as a user
// opens it, every screen of the case accepts its files and saves them
// unchanged.
#include <cstdlib>

#include "building/fluid_adv_screen.h"
#include "building/force_vent_screen.h"
#include "building/genpars.h"
#include "building/surface_screen.h"
#include "site/climate_file.h"
#include "site/site_screen.h"
#include "workspace/case_screens.h"
#include "workspace/demo.h"
#include "workspace/project_screens.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

class ExampleProject : public StoreTest {
 protected:
  ExampleProject() {
    // The program folder short enough for the climate path's 60 characters.
    ws().SystemPath = dir.path();
    ws().MainDirectory = dir / "TGZELMO";
    ws().ThermalDirectory = dir / "TZELMO";
    CreateFolderTree(ws().MainDirectory);
    CreateFolderTree(ws().ThermalDirectory);
    const char* source = std::getenv("ZELMO_SOURCE_DIR");
    EXPECT_NE(source, nullptr);
    if (source) {
      CopyFolderTree(std::string(source) + "/system/tree/ZELMOPROJ", Root());
      CopyFolderTree(std::string(source) + "/system/tree/Climate", dir / "Climate");
    }
  }
  std::string Root() { return dir / "ZELMOPROJ"; }
  std::string Example(const std::string& name) { return JoinPath(Root() + "/Example", name); }
};

TEST_F(ExampleProject, ActivatesOpensAndEveryScreenKeepsItsFiles) {
  const std::string site_before = ReadBytes(Example("Case1/Site.inp"));
  ActivateDemoProject(fake.session, main);
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.messages,
            (std::vector<ShownMessage>{
                {"The demo project is successfully activated", mb::kInformation, "Project Example"},
                {"The demo project is already active", mb::kInformation, "Project Example"}}));
  fake.dialogs.Clear();
  const std::string parked = JoinPath(Root(), "StockholmW(SE).cli");
  EXPECT_TRUE(Exists(parked) && !Exists(parked + "_Temp"));
  // The example runs with the Denver year the program tree ships.
  const std::string climate = JoinPath(dir / "Climate", "DenverCO(US).CLI");
  for (const auto& name : Words("GASTP.INP GLASSTP.INP OPAQUE.LIB WNDTP.LIB")) {
    EXPECT_TRUE(Exists(Example(name)) && !Exists(Example(name + "_Temp"))) << name;
  }
  // Only the climate line of the site file changes.
  std::string expected = site_before;
  const size_t start = expected.find("Climate/");
  expected.replace(start, expected.find("\r\n", start) - start, climate);
  EXPECT_EQ(ReadBytes(Example("Case1/Site.inp")), expected);
  EXPECT_FALSE(Exists(Example("Case1/SiteX.inp")));
  // The folder is the data folder now, in the store too.
  EXPECT_EQ(ws().LocalPath + "|" + fake.settings.values["Zelmo-QRN/Project/LocalPath"],
            Root() + "|" + Root());

  // The example opens: lower-case names in the registers reach the folders
  // whatever their case; the paths name the folders as they stand, for the
  // programs that get them.
  Show<OpenProject>().Open();
  EXPECT_EQ(ws().ProjectName + "|" + ws().ProjectPath, "example|" + Root() + "/Example");
  Show<OpenCase>().Open();
  EXPECT_EQ(ws().CaseName + "|" + ws().CasePath, "case1|" + Example("Case1"));
  EXPECT_EQ(ReadBytes(Example("Case1/THERMAL.INP")), "XXXXXX\r\n");
  std::map<std::string, std::string> before;
  for (const auto& name : Words("SURFACE.INP FLUIDS.INP ADVCONN.INP FORCEVEN.INP GENPARS.INP")) {
    before[name] = ReadBytes(Example("Case1/" + name));
  }
  EXPECT_EQ(before["ADVCONN.INP"], "1 - 2\t5\t1.88\r\n");

  // The site stands where its climate file says.
  Site site(fake.session);
  site.Load();
  EXPECT_EQ(site.Climate.text, climate);
  EXPECT_TRUE(site.Wind.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is used in HVAC-calculations");
  EXPECT_TRUE(site.CheckSite());
  EXPECT_EQ(site.Latitude.text + "|" + site.Longitude.text + "|" + site.Timem.text,
            "39.83|-104.65|-105");
  const ClimateDates year = ReadClimateDates(fake.dialogs, climate);
  EXPECT_EQ(year.first_year + year.first_month + year.first_day + "-" + year.last_year +
                year.last_month + year.last_day,
            "19950101-19951231");
  EXPECT_EQ(site.Latitude.text + "|" + site.Longitude.text + "|" + site.Timem.text,
            ReadClimateKey(fake.dialogs, climate, ClimateKey::kLatitude) + "|" +
                ReadClimateKey(fake.dialogs, climate, ClimateKey::kLongitude) + "|" +
                ReadClimateKey(fake.dialogs, climate, ClimateKey::kTimem));
  GenPars pars(fake.session);
  pars.Load();
  EXPECT_TRUE(pars.CheckGenPars());

  // Every building element passes its check; four have a hole.
  Surface surface(fake.session);
  surface.Load();
  ASSERT_EQ(surface.table().SurfCount, 11);
  int holes = 0;
  for (int row = 0; row < surface.table().SurfCount; ++row) {
    Act(surface, {"SurfList#" + std::to_string(row)});
    ASSERT_EQ(surface.CurrentElement, row + 1) << fake.dialogs.Last().text;
    EXPECT_TRUE(surface.CheckSurface()) << surface.table().SurfName[row + 1];
    holes += surface.Shape.list_index == 2;
  }
  EXPECT_EQ(holes, 4);
  FluidAdv fluid_adv(fake.session);
  fluid_adv.Load();
  EXPECT_EQ(fluid_adv.FluidList.rows() * 10 + fluid_adv.AdvConnList.rows(), 32);
  ForceVent force_vent(fake.session);
  force_vent.Load();
  EXPECT_EQ(force_vent.Grid1.rows(), 4);
  for (Form* screen : std::initializer_list<Form*>{&surface, &fluid_adv, &force_vent, &pars}) {
    Act(*screen, {"Command1"});
    EXPECT_TRUE(screen->unloaded) << screen->name();
  }
  EXPECT_TRUE(fake.dialogs.messages.empty()) << fake.dialogs.Last().text;
  for (const auto& [name, bytes] : before) EXPECT_EQ(ReadBytes(Example("Case1/" + name)), bytes);
}

TEST_F(ExampleProject, WithoutTheShippedClimateFileTheParkedOneIsTaken) {
  DeleteFile(JoinPath(dir / "Climate", "DenverCO(US).CLI"));
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(ReadAllLines(Example("Case1/Site.inp"))->at(4), JoinPath(Root(), "StockholmW(SE).cli"));
}

TEST_F(ExampleProject, WithoutTheExampleNothingHappens) {
  DeleteFile(JoinPath(Root(), "PROJECTS.LIB"));
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(), Strings{"No demo project found"});
  EXPECT_TRUE(Exists(JoinPath(Root(), "StockholmW(SE).cli_Temp")));
  EXPECT_EQ(ws().LocalPath, dir / "Data");
}

}  // namespace
}  // namespace zelmo::testing
