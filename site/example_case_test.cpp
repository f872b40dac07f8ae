// The example project of the program tree, once activated, opens on the Site
// and General Parameters screens and passes their checks.
#include <cstdlib>

#include "building/genpars.h"
#include "site/climate_file.h"
#include "site/site_screen.h"
#include "workspace/demo.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

class ExampleCase : public StoreTest {
 protected:
  ExampleCase() {
    // The program folder short enough for the climate path's 60 characters.
    ws().SystemPath = dir.path();
    ws().MainDirectory = dir / "TGZELMO";
    ws().ThermalDirectory = dir / "TZELMO";
    CreateFolderTree(ws().MainDirectory);
    CreateFolderTree(ws().ThermalDirectory);
    const char* source = std::getenv("ZELMO_SOURCE_DIR");
    EXPECT_NE(source, nullptr);
    if (source) CopyFolderTree(std::string(source) + "/system/tree/ZELMOPROJ", dir / "ZELMOPROJ");
  }
};

TEST_F(ExampleCase, PassesTheSiteAndGeneralParameterChecksAfterActivation) {
  ActivateDemoProject(fake.session, main);
  ASSERT_EQ(fake.dialogs.Texts(),
            std::vector<std::string>{"The demo project is successfully activated"});
  fake.dialogs.Clear();
  ws().CasePath = dir / "ZELMOPROJ/Example/Case1";

  Site site(fake.session);
  site.Load();
  EXPECT_TRUE(fake.dialogs.messages.empty()) << fake.dialogs.Last().text;
  const std::string climate = dir / "ZELMOPROJ/StockholmW(SE).cli";
  EXPECT_EQ(site.Climate.text, climate);
  EXPECT_TRUE(site.Wind.visible);
  EXPECT_EQ(site.Winddata.caption, "Hourly wind data is used in HVAC-calculations");
  EXPECT_TRUE(site.CheckSite()) << fake.dialogs.Last().text;
  // The site stands where its climate file says.
  EXPECT_EQ(site.Latitude.text, ReadClimateKey(fake.dialogs, climate, ClimateKey::kLatitude));
  EXPECT_EQ(site.Longitude.text, ReadClimateKey(fake.dialogs, climate, ClimateKey::kLongitude));
  EXPECT_EQ(site.Timem.text, ReadClimateKey(fake.dialogs, climate, ClimateKey::kTimem));

  GenPars pars(fake.session);
  pars.Load();
  EXPECT_TRUE(pars.CheckGenPars());
  EXPECT_TRUE(fake.dialogs.messages.empty());
}

}  // namespace
}  // namespace zelmo::testing
