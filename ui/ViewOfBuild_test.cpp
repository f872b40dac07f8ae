// View of building from the main window: the menu entry and the panel's
// label start the viewer on the open case, with DAT1.DAT written first.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QTest>
#include <cstdlib>
#include <memory>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "ui/commands.h"
#include "ui/start_window.h"
#include "ui/test_support.h"
#include "workspace/program_tree_test_fixture.h"

namespace zelmo::ui {
namespace {

class ViewOfBuildCommand : public testing::ProgramTree {
 public:
  ViewOfBuildCommand() {
    TestApp();
    CopyFolderTree(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ/Example",
                   data + "/example");
    StoreTree();
    Start();
    Workspace& ws = fake.ws();
    ws.ProjectPath = data + "/example";
    ws.CasePath = data + "/example/Case1";
    main.StateAfterOpenCase();
    WireCommands(main);
    shown = std::make_unique<StartWindow>(main, fake.session);
    shown->show();
  }
  std::unique_ptr<StartWindow> shown;
};

TEST_F(ViewOfBuildCommand, MenuEntryAndLabelStartTheViewerOnTheCase) {
  bool written = false;
  fake.processes.on_run = [&](const testing::RunCall&) {
    written = FileCanOpen(data + "/example/Case1/DAT1.DAT");
  };
  QAction* entry = shown->findChild<QAction*>("M_ViewOfBuilding");
  ASSERT_TRUE(entry && entry->isEnabled());
  EXPECT_EQ(entry->text(), "&3D view");
  entry->trigger();
  QTest::mouseClick(shown->findChild<QLabel*>("MV"), Qt::LeftButton);
  const testing::RunCall viewer{
      JoinPath(dir / "TZELMO", "TRVSHOW.EXE"), {data + "/example/Case1" + Separator()}, 7};
  EXPECT_EQ(fake.processes.calls, (std::vector<testing::RunCall>{viewer, viewer}));
  EXPECT_TRUE(written);
  EXPECT_TRUE(fake.dialogs.messages.empty());
}

}  // namespace
}  // namespace zelmo::ui
