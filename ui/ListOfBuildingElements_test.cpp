// The list of surfaces facing outdoors and the conversion of old projects,
// reached from the main window and shown offscreen.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <cstdlib>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "simulation/list_of_elements.h"
#include "site/convert_v20.h"
#include "ui/commands.h"
#include "ui/test_support.h"
#include "workspace/start_form.h"

namespace zelmo::ui {
namespace {

// The program tree's projects as the data folder.
struct ExampleData {
  ExampleData() {
    TestApp();
    CopyFolderTree(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ",
                   dir.path());
    Workspace& ws = fake.ws();
    ws.LocalPath = dir.path();
    ws.ProjectPath = dir / "Example";
    ws.CasePath = dir / "Example/Case1";
    ws.CaseHeadline = "Office room in Stockholm";
    WireCommands(main);
  }
  testing::TempDir dir;
  testing::FakeSession fake;
  StartForm main{fake.session};
};

TEST(ListOfBuildingElementsView, OpenedFromTheMenuAndThePanelListsByOrientation) {
  ExampleData data;
  data.main.StateAfterOpenCase();
  data.main.M_LIstOfBuildíngElements.on_click();
  data.main.LoBe.on_click();
  EXPECT_EQ(data.fake.dialogs.shown_forms,
            (testing::Strings{"ListOfBuildingElements", "ListOfBuildingElements"}));

  ListOfBuildingElements screen(data.fake.session);
  auto dialog = ShowScreen(screen, data.fake.session);
  ASSERT_TRUE(dialog);
  auto* grid = dialog->findChild<QTableWidget*>("Grid1");
  ASSERT_TRUE(grid);
  EXPECT_EQ(grid->rowCount(), 10);
  EXPECT_EQ(Cells(grid)[1], "1|90.00|180.00|1|South 1|3|1|0|1|0.00|0.00|0.00");
  EXPECT_EQ(grid->columnWidth(4), Px(1800));
  auto* horizontal = dialog->findChild<QRadioButton*>("Option1(1)");
  ASSERT_TRUE(horizontal);
  horizontal->click();
  EXPECT_EQ(grid->rowCount(), 5);
  EXPECT_EQ(S(dialog->findChild<QLabel*>("NS")->text()), "4");
  SaveShot(dialog.get(), "ListOfBuildingElements_horizontal");
}

TEST(Cv12TOv20View, ConvertsTheOldExampleFromTheFileMenu) {
  ExampleData data;
  data.main.M_ConvertV20.on_click();
  EXPECT_EQ(data.fake.dialogs.shown_forms, testing::Strings{"Cv12TOv20"});

  Cv12TOv20 screen(data.fake.session);
  auto dialog = ShowScreen(screen, data.fake.session);
  ASSERT_TRUE(dialog);
  auto* projects = dialog->findChild<QListWidget*>("EP");
  auto* converted = dialog->findChild<QListWidget*>("CC");
  auto* convert = dialog->findChild<QPushButton*>("C_Convert");
  ASSERT_TRUE(projects && converted && convert);
  EXPECT_EQ(projects->count(), 2);
  convert->click();
  EXPECT_EQ(S(dialog->findChild<QLabel*>("TStatus")->text()), "Finns inga cases");
  ClickItem(projects, "v12demo - v12demo");
  EXPECT_EQ(dialog->findChild<QListWidget*>("EC")->count(), 2);
  convert->click();
  EXPECT_EQ(converted->count(), 2);
  EXPECT_TRUE(data.fake.dialogs.messages.empty());
  SaveShot(dialog.get(), "Cv12TOv20_converted");
}

}  // namespace
}  // namespace zelmo::ui
