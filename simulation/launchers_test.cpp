#include "simulation/launchers.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "simulation/module_error.h"

namespace zelmo {
namespace {

using testing::FakeSession;
using testing::RunCall;
using testing::TempDir;
using testing::WriteBytes;

// A case with a finished run and a volume chosen for comfort.
struct ComfortCase {
  ComfortCase() {
    ws().CasePath = dir / "proj/case1";
    ws().ComfortDirectory = "/z/FELT";
    ws().DiagramDirectory = "/z/DIAGRAM";
    ws().ProgramDirectory = dir.path();
    WriteBytes(dir / "proj/case1/ECM.Dat", "    0 MUK       \r\nTOM\r\n0\r\n");
    // One element between Volume 1 and Volume 2.
    std::string element = "Wall\r\n";
    for (int field = 1; field <= 29; ++field) {
      element += std::string("\t") + (field == 7 ? "1" : field == 8 ? "2" : "0") + "\r\n";
    }
    WriteBytes(dir / "proj/case1/SURFACE.INP", element);
    WriteBytes(dir / "proj/case1/OUTPUT.INP",
               "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n2\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
    // Felt.EXE leaves Felt.GGG in the case folder.
    fake.processes.on_run = [this](const RunCall& call) {
      if (call.program == JoinPath("/z/FELT", "Felt.EXE")) WriteBytes(case_file("Felt.GGG"), "");
    };
  }
  Workspace& ws() { return fake.ws(); }
  std::string case_file(const std::string& name) { return JoinPath(ws().CasePath, name); }
  TempDir dir;
  FakeSession fake;
};

TEST(Launchers, LineDiagramAndComfortCommandLines) {
  ComfortCase c;
  std::string arg = JoinPath(c.ws().CasePath, "");
  RunLineDiagram(c.fake.session);
  RunThermalComfort(c.fake.session);
  std::filesystem::remove(ToFsPath(c.case_file("Felt.GGG")));
  RunVisualComfort(c.fake.session);
  const RunCall felt{JoinPath("/z/FELT", "Felt.EXE"), {arg}, 7};
  EXPECT_EQ(c.fake.processes.calls,
            (std::vector<RunCall>{{JoinPath("/z/DIAGRAM", "RSDiagram.EXE"), {arg}, 5},
                                  felt,
                                  {JoinPath("/z/FELT", "TrvComf.EXE"), {arg + "Felt"}, 5},
                                  felt,
                                  {JoinPath("/z/FELT", "TRVdaylight.exe"), {c.ws().CasePath}, 5}}));
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
}

TEST(Launchers, ComfortRefusals) {
  ComfortCase c;
  // No Felt.GGG after Felt.EXE: the viewer is not started.
  c.fake.processes.on_run = nullptr;
  RunThermalComfort(c.fake.session);
  EXPECT_EQ(c.fake.processes.calls.size(), 1u);
  const testing::ShownMessage none{"No Comfort calculations has been done", mb::kExclamation,
                                   "Comfort"};
  EXPECT_EQ(c.fake.dialogs.messages, std::vector<testing::ShownMessage>{none});

  // No volume chosen for comfort, or only one the elements no longer name:
  // nothing starts.
  c.fake.processes.calls.clear();
  WriteBytes(c.case_file("OUTPUT.INP"), "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n");
  RunThermalComfort(c.fake.session);
  RunVisualComfort(c.fake.session);
  WriteBytes(c.case_file("OUTPUT.INP"),
             "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n3\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
  RunThermalComfort(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_EQ(c.fake.dialogs.messages, std::vector<testing::ShownMessage>(4, none));

  // After a failed run the error screen shows code 701 and nothing starts.
  WriteBytes(c.dir / "ErrorCodesZelmo/ErrorsZelmo.err", "701 ZELMO-QRN\r\nRun again.\r\n");
  WriteBytes(c.case_file("ECM.Dat"), "  202 NEB       \r\nTOM\r\n0\r\n");
  std::string title, label;
  c.fake.dialogs.screens["Errform"] = [&](Form& form) {
    title = form.caption;
    label = static_cast<Errform&>(form).Label1.caption;
  };
  RunThermalComfort(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_EQ(title, "Error  701 in module ZELMO-QRN");
  EXPECT_EQ(label,
            "Previous calculation for this case has ended with en error 202 in module "
            "NEB.\r\nRun again. ");
}

TEST(Launchers, UsersManualThroughTheRegisteredReader) {
  TempDir dir;
  FakeSession fake;
  fake.ws().MainDirectory = dir / "TGZELMO";
  std::filesystem::create_directories(ToFsPath(fake.ws().MainDirectory));
  fake.desktop.registered_program = "C:\\Reader\\AcroRd32.exe /s";
  ShowUsersManual(fake.session);
  std::string root = FromFsPath(ToFsPath(dir.path()).root_path());
  const std::vector<RunCall> reader = {
      {"C:\\Reader\\AcroRd32.exe", {root + JoinPath("document", "CD_Zelmo4w4.pdf")}, 5}};
  EXPECT_EQ(fake.processes.calls, reader);
  EXPECT_TRUE(FileCanOpen(dir / "TGZELMO/pq.pdf"));

  fake.desktop.has_registered_program = false;
  ShowUsersManual(fake.session);
  EXPECT_EQ(fake.processes.calls, reader);
  EXPECT_EQ(fake.dialogs.Texts(), testing::Strings{"No Excel program was found ! "});
}

}  // namespace
}  // namespace zelmo
