#include <gtest/gtest.h>

#include <chrono>

#include "core/file_system.h"
#include "core/session.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"
#include "platform/qt_settings.h"
#include "simulation/modules.h"
#include "ui/qt_desktop.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

TEST(QtSettings, KeysUnderApplicationAndSectionKeepTheirText) {
  TestApp();
  testing::TempDir dir;
  QString file = Q(dir / "settings.ini");
  {
    platform::QtSettings store(file);
    EXPECT_EQ(store.Get("Zelmo-QRN", "Project", "LocalPath", "fallback"), "fallback");
    store.Save("Zelmo-QRN", "Project", "LocalPath", Cp1252FromUtf8("/srv/Zelmo Data/Malmö"));
    store.Save("Zelmo-QRN", "Project", "AccuracyLevelTL", "2-New coeff. each timestep");
  }
  platform::QtSettings again(file);
  EXPECT_EQ(again.Get("Zelmo-QRN", "Project", "LocalPath", ""),
            Cp1252FromUtf8("/srv/Zelmo Data/Malmö"));
  EXPECT_EQ(again.Get("Zelmo-QRN", "Project", "AccuracyLevelTL", ""), "2-New coeff. each timestep");
  EXPECT_EQ(again.Get("Zelmo-QRN", "Other", "LocalPath", "none"), "none");
}

TEST(QtDesktop, MissingFilesOpenNothing) {
  TestApp();
  testing::TempDir dir;
  QtDesktop desktop;
  EXPECT_FALSE(desktop.OpenWithRegistered(dir / "missing.txt"));
  EXPECT_EQ(desktop.FindExecutable(dir / "missing.xls"), "");
}

using testing::Exists;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

struct ModuleRun {
  ModuleRun() {
    TestApp();
    const char* dist = std::getenv("ZELMO_STANDIN_TREE");
    EXPECT_TRUE(dist) << "ZELMO_STANDIN_TREE names the tree of the stand-in modules";
    session.processes = &runner;
    session.ws.ThermalDirectory = JoinPath(dist ? dist : "", "TZELMO");
    session.ws.CasePath = dir / "my project/case 1";
    WriteBytes(dir / "my project/case 1/DAT1.DAT", "Headline\r\n 1.00 2.00\r\n");
    WriteBytes(dir / "my project/Wndw.Lib", "1\r\n");
  }
  // Runs a module after a fresh status file: whether it reads as a success,
  // its code and its module.
  std::string Run(const std::string& program) {
    EXPECT_TRUE(InitStatusFile(session.ws));
    RunModule(session, program);
    int code = -1;
    std::string module, text;
    double number = 0;
    const bool ok = ReadStatusFile(session.ws, code, module, text, number);
    return (ok ? "ok " : "failed ") + std::to_string(code) + " " + module;
  }
  std::string CaseFile(const std::string& name) { return JoinPath(session.ws.CasePath, name); }

  TempDir dir;
  platform::QtProcessRunner runner;
  Session session;
};

TEST(QtProcessRunner, RunsEachStagedModuleOnACaseFolderWithBlanks) {
  ModuleRun run;
  for (const std::string& program : kModulePrograms) {
    std::string name = program.substr(0, program.find('.'));
    ASSERT_EQ(run.Run(program), "ok 0 " + name);
    EXPECT_EQ(
        ReadBytes(run.CaseFile("ECM.Dat")),
        "    0 " + name + std::string(10 - name.size(), ' ') + "\r\nStand-in module\r\n0\r\n");
    std::string report = ReadBytes(run.CaseFile(name + ".LIS"));
    EXPECT_NE(report.find("Case folder: " + run.session.ws.CasePath + Separator() + "\r\n"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("DAT1.DAT   (case): 2 lines, 22 bytes"), std::string::npos) << report;
    EXPECT_NE(report.find("Wndw.Lib   (project): 1 lines, 3 bytes"), std::string::npos) << report;
  }
}

TEST(QtProcessRunner, EveryEndingOfAModuleReachesTheStatusFile) {
  ModuleRun run;
  WriteBytes(run.CaseFile("STANDIN.INP"),
             "PLOR ERROR 101\r\nneb error -4\r\nCORV NOSTATUS\r\nFENT DELAY 1\r\n"
             "DANE EXIT 3\r\n");
  EXPECT_EQ(run.Run("PLOR.EXE"), "failed 101 PLOR");
  EXPECT_EQ(run.Run("NEB.EXE"), "ok 4 NEB");  // a negative code is no error
  EXPECT_EQ(run.Run("CORV.EXE"), "failed -1 ??");
  EXPECT_FALSE(Exists(run.CaseFile("ECM.Dat")));
  auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(run.Run("FENT.EXE"), "ok 0 FENT");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(950));
  EXPECT_EQ(run.Run("DANE.EXE"), "ok 0 DANE");  // the exit code is not looked at
  // A program that cannot start leaves the status file as it was.
  EXPECT_EQ(run.Run("NOSUCH.EXE"), "ok 0 Start");
}

}  // namespace
}  // namespace zelmo::ui
