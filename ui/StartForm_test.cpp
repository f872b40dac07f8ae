// The views of the ten project and case screens, built offscreen.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "ui/binder.h"
#include "ui/commands.h"
#include "ui/start_window.h"
#include "ui/test_support.h"
#include "workspace/about.h"
#include "workspace/case_screens.h"
#include "workspace/program_tree_test_fixture.h"
#include "workspace/project_screens.h"
#include "workspace/start_form.h"
#include "workspace/sysinit.h"

namespace zelmo::ui {
namespace {

// A program tree with a data folder holding PROJECTS.LIB, started once,
// and its main window shown.
class StartFormView : public testing::ProgramTree {
 public:
  StartFormView() {
    TestApp();
    testing::WriteBytes(dir / "data/PROJECTS.LIB", "demo - Demonstration\r\n");
    StoreTree();
    Start();
    WireCommands(main);
    shown = std::make_unique<StartWindow>(main, fake.session);
    shown->show();
  }
  std::unique_ptr<StartWindow> shown;
};

QAction* ActionOf(QWidget& window, const char* name) {
  return window.findChild<QAction*>(QString::fromLatin1(name));
}

TEST_F(StartFormView, MenusPanelAndAFixedWindow) {
  StartWindow& window = *shown;
  SaveShot(&window, "StartForm");

  // Empty to the user: one blank, so the window manager shows no program name.
  EXPECT_EQ(window.windowTitle(), " ");
  EXPECT_EQ(window.minimumSize(), window.maximumSize());
  EXPECT_FALSE(window.windowFlags() & Qt::WindowMaximizeButtonHint);

  QStringList bar;
  for (QAction* action : window.menuBar()->actions()) {
    bar << action->text() + "=" + action->objectName();
  }
  EXPECT_EQ(bar.join(" "),
            "&File=M_File &Project=M_Project &Case=M_Case &Library=M_Library &Model=M_Model "
            "&Simulation=M_Outsp_Calc &Results=M_Result &View of building=M_view &Info=M_HelpMain "
            "&Help=M_Help");
  // Every menu entry of the model has its action, nested as in the tree.
  for (const auto& node : main.MenuTree()) {
    QAction* action = window.findChild<QAction*>(Q(node.item->name()));
    ASSERT_TRUE(action) << node.item->name();
    EXPECT_EQ(action->text(), Q(node.item->caption));
    EXPECT_EQ(action->isEnabled(), node.item->enabled) << node.item->name();
  }
  EXPECT_EQ(ActionOf(window, "M_Surface")->text(), "B&uilding elements");
  EXPECT_EQ(ActionOf(window, "M_Building")->menu()->actions().front(),
            ActionOf(window, "M_Surface"));

  auto* lpn = window.findChild<QLabel*>("LPN");
  auto* lcn = window.findChild<QLabel*>("LCN");
  ASSERT_TRUE(lpn && lcn);
  EXPECT_EQ(lpn->text() + "|" + lpn->toolTip(), "New|Make a new project");
  EXPECT_TRUE(lpn->isEnabled());
  EXPECT_EQ(lpn->palette().color(QPalette::Active, QPalette::WindowText), QColor(0, 0, 200));
  EXPECT_FALSE(lcn->isEnabled());
  EXPECT_FALSE(window.findChild<QLabel*>("LblVersion")->isVisible());
  EXPECT_EQ(window.findChild<QPushButton*>("MoreAbout")->text(), "More about ZELMO-QRN");
}

TEST_F(StartFormView, CommandsLabelsTitleAndExit) {
  StartWindow& window = *shown;
  // A label runs its entry's command as it stands at the click; the title
  // the command sets is shown.
  main.M_NewProject.on_click = [this] { main.SetTitle("Project : demo"); };
  QTest::mouseClick(window.findChild<QLabel*>("LPN"), Qt::LeftButton);
  EXPECT_EQ(window.windowTitle(), "Project : demo");
  main.M_OpenProject.on_click = [this] { main.SetTitle(" Project : other"); };
  ActionOf(window, "M_OpenProject")->trigger();
  EXPECT_EQ(window.windowTitle(), " Project : other");

  // A greyed label runs nothing, though its menu entry is enabled.
  int runs = 0;
  main.M_ThermalLoads.enabled = true;
  main.M_ThermalLoads.on_click = [&runs] { ++runs; };
  main.SetButtonsForMenu(main.ss, false);
  window.binder()->Sync();
  QTest::mouseClick(window.findChild<QLabel*>("ss"), Qt::LeftButton);
  QTest::mouseDClick(window.findChild<QLabel*>("ss"), Qt::LeftButton);
  EXPECT_EQ(runs, 0);
  main.SetButtonsForMenu(main.ss, true);
  window.binder()->Sync();
  QTest::mouseClick(window.findChild<QLabel*>("ss"), Qt::LeftButton);
  EXPECT_EQ(runs, 1);

  ActionOf(window, "M_AboutZelmo")->trigger();
  ActionOf(window, "M_Support")->trigger();
  ActionOf(window, "M_EditSystemFile")->trigger();
  EXPECT_EQ(fake.dialogs.shown_forms, (std::vector<std::string>{"About", "Support", "SysInit"}));
  ActionOf(window, "M_MainForm")->trigger();
  QTest::mouseClick(window.findChild<QPushButton*>("MoreAbout"), Qt::LeftButton);
  ASSERT_EQ(fake.desktop.help_calls.size(), 2u);
  EXPECT_EQ(fake.desktop.help_calls[0].second, 12100);
  EXPECT_EQ(fake.desktop.help_calls[1].second, 12000);

  ActionOf(window, "M_CloseZelmo")->trigger();
  EXPECT_TRUE(main.unloaded);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(StartFormView, SettingsAboutAndSupportWindows) {
  CreateFolderTree(dir / "data/alpha");
  SysInit settings(fake.session, main);
  auto dialog = ShowScreen(settings, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->windowTitle(), "Settings");
  auto* sys_path = dialog->findChild<QLineEdit*>("SysPath");
  auto* local_path = dialog->findChild<QLineEdit*>("LocalPath");
  auto* accuracy = dialog->findChild<QComboBox*>("Combo1");
  auto* dir2 = dialog->findChild<QListWidget*>("Dir2");
  auto* save = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(sys_path && local_path && accuracy && dir2 && save);
  EXPECT_EQ(sys_path->text(), Q(dir.path()));
  EXPECT_EQ(accuracy->currentText(), "2-New coeff. each timestep");
  EXPECT_EQ(dir2->currentItem()->text().trimmed(), "data");
  EXPECT_EQ(dir2->item(dir2->count() - 1)->text().trimmed(), "alpha");

  // A refused program path keeps the screen, with the field to correct.
  sys_path->selectAll();
  QTest::keyClicks(sys_path, Q(dir / "data"));
  QTest::mouseClick(save, Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Last().text, "Program path does not exist");
  EXPECT_EQ(dialog->focusWidget(), sys_path);
  EXPECT_EQ(sys_path->selectedText(), sys_path->text());
  EXPECT_EQ(fake.settings.saves, 0);

  // Picking a folder in the list fills the field; Save stores and closes.
  sys_path->selectAll();
  QTest::keyClicks(sys_path, Q(dir.path()));
  dir2->setCurrentRow(dir2->count() - 1);
  EXPECT_EQ(local_path->text(), Q(dir / "data/alpha"));
  QTest::mouseClick(save, Qt::LeftButton);
  EXPECT_TRUE(settings.unloaded);
  EXPECT_EQ(fake.settings.values["Zelmo-QRN/Project/LocalPath"], dir / "data/alpha");

  About about(fake.session);
  auto about_window = ShowScreen(about, fake.session);
  ASSERT_TRUE(about_window);
  EXPECT_EQ(about_window->findChild<QLabel*>("Label1")->text(), "ZELMO-QRN");
  QTest::mouseClick(about_window->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(about.unloaded);
  Support support(fake.session);
  EXPECT_TRUE(ShowScreen(support, fake.session));
  EXPECT_EQ(support.caption, "Support");
}

class StoreViews : public ::testing::Test {
 protected:
  StoreViews() {
    TestApp();
    auto& ws = fake.ws();
    ws.LocalPath = dir / "Data";
    ws.ProjectName = "office";
    ws.ProjectPath = JoinPath(ws.LocalPath, "office");
    testing::WriteBytes(JoinPath(ws.LocalPath, "PROJECTS.LIB"),
                        "office\toffice\r\nschool\tschool\r\nhome\told\r\n");
    testing::WriteBytes(JoinPath(ws.ProjectPath, "CASES.LIB"),
                        "base - Base case, north facade\r\nshade - With external shading\r\n");
  }

  std::unique_ptr<QDialog> Show(Form& form) { return ShowScreen(form, fake.session); }
  void ClickRow(QDialog& dialog, int row) {
    auto* list = dialog.findChild<QListWidget*>("List1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }

  testing::TempDir dir;
  testing::FakeSession fake;
  StartForm main{fake.session};
};

TEST_F(StoreViews, ProjectScreens) {
  NewProject new_project(fake.session, main);
  auto dialog = Show(new_project);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QListWidget*>("List1")->count(), 3);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label2")->text(),
            Q("Existing projects ( " + fake.ws().LocalPath + " )"));
  auto* name = dialog->findChild<QLineEdit*>("Text1");
  EXPECT_EQ(name->maxLength(), 8);
  EXPECT_EQ(dialog->findChild<QPushButton*>("Command1")->text(), "&New");
  QTest::keyClicks(name, "school");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Last().text, "A project with the same name or path already exists");
  EXPECT_TRUE(new_project.unloaded);

  OpenProject open_project(fake.session, main);
  Show(open_project);
  CopyProject copy_project(fake.session, main);
  dialog = Show(copy_project);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label2")->text(), "Name of the copy");
  RenProject ren_project(fake.session, main);
  dialog = Show(ren_project);
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text1")->maxLength(), 20);
  // A click on an item puts its name in the field.
  ClickRow(*dialog, 1);
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text1")->text(), "school");
  DelProject del_project(fake.session, main);
  dialog = Show(del_project);
  auto* del = dialog->findChild<QPushButton*>("Command1");
  EXPECT_FALSE(del->isEnabled());
  ClickRow(*dialog, 2);
  EXPECT_TRUE(del->isEnabled());
}

TEST_F(StoreViews, CaseScreens) {
  NewCase new_case(fake.session, main);
  auto dialog = Show(new_case);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text2")->maxLength(), 30);
  EXPECT_EQ(dialog->findChild<QListWidget*>("List1")->item(0)->text(),
            "base - Base case, north facade");
  OpenCase open_case(fake.session, main);
  Show(open_case);
  CopyCase copy_case(fake.session, main);
  dialog = Show(copy_case);
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text1")->text(), "base");
  RenCase ren_case(fake.session, main);
  Show(ren_case);
  DelCase del_case(fake.session, main);
  dialog = Show(del_case);
  EXPECT_FALSE(dialog->findChild<QPushButton*>("Command1")->isEnabled());
}

}  // namespace
}  // namespace zelmo::ui
