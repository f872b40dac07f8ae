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

TEST(ListOfBuildingElementsView, TheListAndTheConversionFromTheMainWindow) {
  ExampleData data;
  data.main.StateAfterOpenCase();
  data.main.LoBe.on_click();
  data.main.M_ConvertV20.on_click();
  EXPECT_EQ(data.fake.dialogs.shown_forms,
            (testing::Strings{"ListOfBuildingElements", "Cv12TOv20"}));

  ListOfBuildingElements list(data.fake.session);
  auto shown = ShowScreen(list, data.fake.session);
  ASSERT_TRUE(shown);
  auto* grid = shown->findChild<QTableWidget*>("Grid1");
  EXPECT_EQ(grid->rowCount(), 10);
  EXPECT_EQ(grid->columnWidth(4), Px(1800));
  shown->findChild<QRadioButton*>("Option1(1)")->click();
  EXPECT_EQ(Cells(grid)[1], "5|180.00|0.00|4|Floor 1|1|2|-1|1|0.00|4.00|0.00");
  SaveShot(shown.get(), "ListOfBuildingElements_horizontal");

  Cv12TOv20 convert(data.fake.session);
  shown = ShowScreen(convert, data.fake.session);
  ASSERT_TRUE(shown);
  ClickItem(shown->findChild<QListWidget*>("EP"), "v12demo - v12demo");
  shown->findChild<QPushButton*>("C_Convert")->click();
  EXPECT_EQ(shown->findChild<QListWidget*>("CC")->count(), 2);
  EXPECT_TRUE(data.fake.dialogs.messages.empty());
  SaveShot(shown.get(), "Cv12TOv20_converted");
}

}  // namespace
}  // namespace zelmo::ui
