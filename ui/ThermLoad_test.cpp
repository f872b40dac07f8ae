#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdlib>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"
#include "simulation/module_error.h"
#include "simulation/run_plan.h"
#include "simulation/therm_load_screen.h"
#include "ui/commands.h"
#include "ui/start_window.h"
#include "ui/test_support.h"
#include "workspace/start_form.h"

namespace zelmo::ui {
namespace {

// The example project, its case open, run with the staged stand-in modules.
struct ExampleProject {
  ExampleProject() {
    TestApp();
    CopyFolderTree(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ/Example",
                   dir / "Example");
    for (const char* name : {"GASTP.INP", "GLASSTP.INP", "OPAQUE.LIB", "WNDTP.LIB"}) {
      RenamePath(dir / "Example/" + name + "_Temp", dir / "Example/" + name);
    }
    Workspace& ws = fake.ws();
    // The stand-in modules, which STANDIN.INP steers.
    ws.ProgramDirectory = std::getenv("ZELMO_STANDIN_TREE");
    ws.ThermalDirectory = JoinPath(ws.ProgramDirectory, "TZELMO");
    ws.ProjectName = "Example";
    ws.ProjectPath = dir / "Example";
    ws.CaseName = "case1";
    ws.CaseHeadline = "Office room in Stockholm";
    ws.CasePath = dir / "Example/Case1";
    fake.session.processes = &runner;
  }
  // Case1's modules as STANDIN.INP steers them, run with the windows kept
  // alive as the program runs them.
  void LiveModules(const std::string& standin) {
    fake.session.processes = &live;
    testing::WriteBytes(dir / "Example/Case1/STANDIN.INP", standin);
  }
  testing::TempDir dir;
  testing::FakeSession fake;
  platform::QtProcessRunner runner;
  platform::QtProcessRunner live{true};
};

void ClickCell(QTableWidget* table, int row, int col, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(table->viewport(), button, {},
                    table->visualItemRect(table->item(row, col)).center());
}

TEST(ThermLoadView, ReachedFromTheMainWindowTickedRunAndAFailingModuleShown) {
  ExampleProject p;
  StartForm main(p.fake.session);
  WireCommands(main);
  main.M_ThermalLoads.on_click();
  EXPECT_EQ(p.fake.dialogs.shown_forms, (testing::Strings{"ThermLoad"}));

  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("ThermGrid");
  EXPECT_TRUE(grid->isColumnHidden(kPrepareColumn));
  EXPECT_EQ(grid->item(1, 0)->text(), "case1 - Office room in Stockholm");
  EXPECT_EQ(grid->item(1, 3)->textAlignment(), Qt::AlignCenter);
  EXPECT_EQ(grid->item(1, 0)->background().color(), QColor(0, 160, 250));
  ClickCell(grid, 1, 5);
  EXPECT_EQ(grid->item(1, 5)->text(), "");
  ClickCell(grid, 1, 6, Qt::RightButton);
  EXPECT_EQ(grid->item(1, 6)->text(), "X");
  ClickCell(grid, 1, 5);
  EXPECT_EQ(grid->item(1, 5)->text(), "X");

  // NEB fails: its cell is red, the ticks go, the error is shown.
  testing::WriteBytes(p.dir / "Example/Case1/STANDIN.INP", "NEB ERROR 201\r\n");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(grid->item(1, 4)->background().color(), QColor(250, 0, 0));
  EXPECT_EQ(grid->item(1, 3)->text(), "");
  EXPECT_EQ(p.fake.dialogs.shown_forms.back(), "Errform");
  SaveShot(dialog.get(), "ThermLoad_failed");

  // Mended, filled and run through: every flag of the case is "-".
  DeleteFile(p.dir / "Example/Case1/STANDIN.INP");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command4"), Qt::LeftButton);
  EXPECT_EQ(grid->item(1, 8)->text(), "X");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/Case1/THERMAL.INP"), "------\r\n");
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/Case1/MUK.LIS").empty(), false);
}

// NEB.EXE taken out of the program tree: its cell turns red and the error
// window names the program that could not be started.
TEST(ThermLoadView, AModuleMissingFromTheTreeIsRedAndNamed) {
  ExampleProject p;
  const std::string modules = p.dir / "TZELMO";
  CopyFolderTree(p.fake.ws().ThermalDirectory, modules);
  DeleteFile(JoinPath(modules, "NEB.EXE"));
  p.fake.ws().ThermalDirectory = modules;
  std::string label;
  p.fake.dialogs.screens["Errform"] = [&label](Form& form) {
    label = static_cast<Errform&>(form).Label1.caption;
  };
  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("ThermGrid");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(grid->item(1, 3)->text(), "");
  EXPECT_EQ(grid->item(1, 4)->background().color(), QColor(250, 0, 0));
  EXPECT_EQ(
      label.rfind("The program could not be started:\r" + JoinPath(modules, "NEB.EXE") + "\r\n", 0),
      0u)
      << label;
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/Case1/THERMAL.INP"), "XXXXXX\r\n");
}

// The program tree as it ships runs the project's own PLOR. A DAT1.DAT
// damaged after the run wrote it (a disk that failed, a hand that edited it)
// stops PLOR: its cell turns red and the error window names the file, the
// line and what to do.
TEST(ThermLoadView, ADamagedGeometryFileStopsTheShippedPlorWithItsErrorWindow) {
  ExampleProject p;
  p.fake.ws().ProgramDirectory = std::getenv("ZELMO_DIST_DIR");
  p.fake.ws().ThermalDirectory = JoinPath(p.fake.ws().ProgramDirectory, "TZELMO");
  // Damages the element line of South 1 just before PLOR starts.
  struct Damaging : ProcessRunner {
    bool Run(const std::string& program, const std::vector<std::string>& arguments,
             int window_mode) override {
      const std::string dat1 = JoinPath(arguments.at(0), "DAT1.DAT");
      std::string bytes = testing::ReadBytes(dat1);
      bytes.replace(bytes.find("South 1") + 20, 5, "  9x0");
      testing::WriteBytes(dat1, bytes);
      return real.Run(program, arguments, window_mode);
    }
    platform::QtProcessRunner real;
  } damaging;
  p.fake.session.processes = &damaging;
  std::string caption, text;
  p.fake.dialogs.screens["Errform"] = [&](Form& form) {
    auto window = ShowScreen(form, p.fake.session);
    ASSERT_TRUE(window);
    caption = S(window->windowTitle());
    text = S(window->findChild<QLabel*>("Label1")->text());
    SaveShot(window.get(), "Errform_PLOR_damaged_DAT1");
    QTest::mouseClick(window->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  };
  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("ThermGrid");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_EQ(grid->item(1, kFirstModuleColumn)->background().color(), QColor(250, 0, 0));
  EXPECT_EQ(caption, "Error  102 in module PLOR");
  const std::string expected =
      "A number was expected in columns 21 to 30: " + (p.dir / "Example/Case1/DAT1.DAT") +
      ", line 6\nThe geometry file DAT1.DAT is damaged at the line named "
      "above. Open the building elements";
  EXPECT_EQ(text.substr(0, expected.size()), expected);
}

// A module that takes its time: the window repaints and takes clicks, the
// progress line counts, and Stop ends the module.
TEST(ThermLoadView, StaysAliveWhileAModuleRunsAndStops) {
  ExampleProject p;
  p.LiveModules("NEB DELAY 30\r\n");
  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("ThermGrid");
  auto* stop = dialog->findChild<QPushButton*>("Command6");
  EXPECT_FALSE(stop->isEnabled());
  QString running, progress;
  bool stop_enabled = false;
  QTimer::singleShot(2600, dialog.get(), [&] {
    running = grid->item(1, 4)->text();
    progress = dialog->findChild<QLabel*>("Label2")->text();
    stop_enabled = stop->isEnabled();
    SaveShot(dialog.get(), "ThermLoad_running");
    QTest::mouseClick(stop, Qt::LeftButton);
  });
  const auto start = std::chrono::steady_clock::now();
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(running, ">");
  EXPECT_EQ(grid->item(1, 4)->background().color(), QColor(250, 0, 0));
  EXPECT_TRUE(progress == "case1: NEB running, 1 s" || progress == "case1: NEB running, 2 s")
      << progress.toStdString();
  EXPECT_TRUE(stop_enabled);
  EXPECT_FALSE(stop->isEnabled());
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/Case1/THERMAL.INP"), "XXXXXX\r\n");
}

// Closing the program while a module runs: the Simulation screen asks, the
// run stops as a failed run, and the main window goes once the screen has.
TEST(ThermLoadView, ClosingTheProgramDuringARunAsksStopsAndEnds) {
  ExampleProject p;
  p.LiveModules("PLOR DELAY 30\r\n");
  StartForm main(p.fake.session);
  StartWindow window(main, p.fake.session);
  window.show();
  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  dialog->hide();
  dialog->setWindowModality(Qt::ApplicationModal);
  dialog->show();
  p.fake.dialogs.answers = {Answer::kYes};
  QTimer::singleShot(1000, &window, [&] { window.close(); });
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_EQ(p.fake.dialogs.Texts(),
            (testing::Strings{"A simulation is running. Stop it and close the window?"}));
  EXPECT_TRUE(screen.unloaded);
  QTest::qWait(50);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/Case1/THERMAL.INP"), "XXXXXX\r\n");
}

// Two cases side by side: both first modules run at once, the progress line
// names both, the window repaints and takes the Stop, and both cases are
// left as failed runs.
TEST(ThermLoadView, CasesSideBySideRunAtOnceAndStop) {
  ExampleProject p;
  CopyFolderTree(p.dir / "Example/Case1", p.dir / "Example/case2");
  testing::WriteBytes(p.dir / "Example/CASES.LIB", "case1 - One\r\ncase2 - Two\r\n");
  for (const char* name : {"Case1", "case2"}) {
    testing::WriteBytes(p.dir / ("Example/" + std::string(name) + "/STANDIN.INP"),
                        "PLOR DELAY 30\r\n");
  }
  p.fake.dialogs.do_events = [](int milliseconds) { QTest::qWait(milliseconds); };
  ThermLoad screen(p.fake.session);
  auto dialog = ShowScreen(screen, p.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("ThermGrid");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command4"), Qt::LeftButton);  // Fill
  auto* side = dialog->findChild<QCheckBox*>("Check1");
  EXPECT_EQ(side->text(), "Run cases side by side");
  side->click();
  QStringList running;
  QString progress;
  QTimer::singleShot(1500, dialog.get(), [&] {
    running = {grid->item(1, 3)->text(), grid->item(2, 3)->text()};
    progress = dialog->findChild<QLabel*>("Label2")->text();
    EXPECT_FALSE(side->isEnabled());
    SaveShot(dialog.get(), "ThermLoad_side_by_side");
    QTest::mouseClick(dialog->findChild<QPushButton*>("Command6"), Qt::LeftButton);
  });
  const auto start = std::chrono::steady_clock::now();
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(running, (QStringList{">", ">"}));
  EXPECT_TRUE(progress.startsWith("case1: PLOR running, ") &&
              progress.contains("; case2: PLOR running, "))
      << progress.toStdString();
  for (int row : {1, 2}) {
    EXPECT_EQ(grid->item(row, 3)->background().color(), QColor(250, 0, 0));
    EXPECT_EQ(grid->item(row, kIncludeColumn)->text(), "");
  }
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(testing::ReadBytes(p.dir / "Example/case2/THERMAL.INP"), "XXXXXX\r\n");
}

}  // namespace
}  // namespace zelmo::ui
