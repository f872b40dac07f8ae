#include "simulation/view_of_build.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "core/dialogs.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;

// The example case, opened, with the program tree's modules in /z/TZELMO.
struct ExampleCase {
  ExampleCase() {
    CopyFolderTree(source + "/system/tree/ZELMOPROJ/Example", dir / "Example");
    Workspace& ws = fake.ws();
    ws.ThermalDirectory = JoinPath("/z", "TZELMO");
    ws.ProjectPath = dir / "Example";
    ws.CasePath = dir / "Example/Case1";
    ws.CaseHeadline = "Office room in Stockholm";
  }
  std::string Dat1() const { return JoinPath(fake.session.ws.CasePath, "DAT1.DAT"); }
  std::string source = std::getenv("ZELMO_SOURCE_DIR");
  testing::TempDir dir;
  testing::FakeSession fake;
};

TEST(ViewOfBuild, WritesTheModulesDat1AndWaitsForTheViewer) {
  ExampleCase c;
  std::string written;
  c.fake.processes.on_run = [&](const testing::RunCall&) { written = ReadBytes(c.Dat1()); };
  ViewOfBuild(c.fake.session);
  EXPECT_EQ(
      c.fake.processes.calls,
      (std::vector<testing::RunCall>{
          {JoinPath("/z/TZELMO", "TRVSHOW.EXE"), {c.dir / "Example/Case1" + Separator()}, 7}}));
  // The viewer gets the geometry exactly as the simulation writes it.
  EXPECT_EQ(written, ReadBytes(c.source + "/simulation/testdata/Case1/DAT1.DAT"));
  EXPECT_TRUE(c.fake.dialogs.messages.empty());

  // A viewer that cannot be started is named, never passed over.
  const std::string viewer = JoinPath("/z/TZELMO", "TRVSHOW.EXE");
  c.fake.processes.cannot_start = {viewer};
  ViewOfBuild(c.fake.session);
  EXPECT_EQ(c.fake.dialogs.messages,
            (std::vector<testing::ShownMessage>{{"The program could not be started:\r" + viewer,
                                                 mb::kExclamation, "Error message"}}));
}

TEST(ViewOfBuild, ADamagedElementFileIsNamedAndNoViewerStarts) {
  ExampleCase c;
  testing::WriteBytes(JoinPath(c.fake.ws().CasePath, "SURFACE.INP"), "Wall\r\n\t0\r\n");
  ViewOfBuild(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_FALSE(FileCanOpen(c.Dat1()));
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  const testing::ShownMessage& shown = c.fake.dialogs.Last();
  EXPECT_EQ(shown.title, "Error message");
  EXPECT_EQ(shown.style, mb::kCritical);
  EXPECT_NE(shown.text.find(JoinPath(c.fake.ws().CasePath, "SURFACE.INP") + ", line 3"),
            std::string::npos)
      << shown.text;
}

}  // namespace
}  // namespace zelmo
