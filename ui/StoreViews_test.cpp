// The views of the ten project and case screens, built offscreen.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "ui/test_support.h"
#include "workspace/case_screens.h"
#include "workspace/project_screens.h"
#include "workspace/start_form.h"

namespace zelmo::ui {
namespace {

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
