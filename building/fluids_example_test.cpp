#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "building/fluid_adv_screen.h"
#include "building/force_vent_screen.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

namespace fs = std::filesystem;

// The example case's fluid, connection and ventilation files pass their
// screens' checks and come back byte for byte when saved unchanged.
TEST(ExampleFluids, BothScreensAcceptAndKeepTheExampleFiles) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  ASSERT_TRUE(source) << "ZELMO_SOURCE_DIR is not set";
  testing::TempDir dir;
  const fs::path case_dir = fs::path(dir.path()) / "Case1";
  fs::copy(fs::path(source) / "system/tree/ZELMOPROJ/Example/Case1", case_dir,
           fs::copy_options::recursive);
  testing::FakeSession fake;
  fake.ws().CasePath = FromFsPath(case_dir);
  auto bytes = [&](const char* name) { return testing::ReadBytes(FromFsPath(case_dir / name)); };
  const std::string fluids = bytes("FLUIDS.INP");
  const std::string connections = bytes("ADVCONN.INP");
  const std::string ventilation = bytes("FORCEVEN.INP");
  EXPECT_EQ(connections, "1 - 2\t5\t1.88\r\n");

  FluidAdv fluid_adv(fake.session);
  fluid_adv.Load();
  ASSERT_FALSE(fluid_adv.unloaded);
  EXPECT_EQ(fluid_adv.FluidList.rows(), 3);
  EXPECT_EQ(fluid_adv.AdvConnList.rows(), 2);
  fluid_adv.Ok();
  EXPECT_TRUE(fluid_adv.unloaded);

  ForceVent force_vent(fake.session);
  force_vent.Load();
  ASSERT_FALSE(force_vent.unloaded);
  EXPECT_EQ(force_vent.Grid1.rows(), 4);
  force_vent.Ok();
  EXPECT_TRUE(force_vent.unloaded);

  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_EQ(bytes("FLUIDS.INP"), fluids);
  EXPECT_EQ(bytes("ADVCONN.INP"), connections);
  EXPECT_EQ(bytes("FORCEVEN.INP"), ventilation);
}

}  // namespace
}  // namespace zelmo
