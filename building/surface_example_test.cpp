#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "building/surface_screen.h"
#include "building/volumes.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

namespace fs = std::filesystem;

// The example project as its activation leaves it: the window types under
// their plain name.
TEST(ExampleBuilding, EveryElementPassesAndSavesUnchanged) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  ASSERT_TRUE(source) << "ZELMO_SOURCE_DIR is not set";
  testing::TempDir dir;
  const fs::path project = fs::path(dir.path()) / "example";
  fs::copy(fs::path(source) / "system/tree/ZELMOPROJ/Example", project,
           fs::copy_options::recursive);
  fs::rename(project / "WNDTP.LIB_Temp", project / "WNDTP.LIB");
  testing::FakeSession fake;
  fake.ws().ProjectPath = FromFsPath(project);
  fake.ws().CasePath = FromFsPath(project / "Case1");
  const std::string surface = FromFsPath(project / "Case1" / "SURFACE.INP");
  const std::string before = testing::ReadBytes(surface);

  EXPECT_EQ(BuildVolumeList(ReadSurfaceVolumes(fake.ws())), (std::vector<std::string>{"1", "2"}));
  Surface screen(fake.session);
  screen.Load();
  ASSERT_EQ(screen.table().SurfCount, 11);
  int holes = 0;
  for (int row = 0; row < screen.table().SurfCount; ++row) {
    screen.SurfList.list_index = row;
    screen.SurfListClick();
    ASSERT_EQ(screen.CurrentElement, row + 1) << fake.dialogs.Last().text;
    EXPECT_TRUE(screen.CheckSurface()) << screen.table().SurfName[row + 1];
    if (screen.Shape.list_index == 2) ++holes;
  }
  EXPECT_EQ(holes, 4);
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_FALSE(screen.Dirty);
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(testing::ReadBytes(surface), before);
}

}  // namespace
}  // namespace zelmo
