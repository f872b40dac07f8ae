#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "libraries/curtain_test_case.h"
#include "libraries/misched_screen.h"
#include "libraries/moveins_screen.h"
#include "libraries/output_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

template <typename W>
W* Child(QDialog* dialog, const char* name) {
  auto* widget = dialog->findChild<W*>(name);
  EXPECT_TRUE(widget) << name;
  return widget;
}

TEST(CurtainViews, CurtainsScheduleAndOutputAsTheUserSeesThem) {
  TestApp();
  testing::CurtainCase c;
  testing::WriteBytes(c.dir / "MOVEINS.LIB", "1\tThin curtain\t40\t20\t.05\r\n");
  c.Elements({{{8, "1"}}, {{8, "2"}}});
  c.Put("OUTPUT.INP", "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t-1\t\r\n");

  MoveIns curtains(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(curtains, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  SaveShot(dialog.get(), "MoveIns");
  EXPECT_EQ(dialog->windowTitle(), "Interior curtains");
  EXPECT_EQ(Child<QTableWidget>(dialog.get(), "MoveInsList")->item(1, 1)->text(), "Thin curtain");
  AddMoveIns add(c.fake.session, curtains, true, "1");
  dialog.reset(BuildScreen(add, c.fake.session));
  dialog->show();
  SaveShot(dialog.get(), "AddMoveIns");
  EXPECT_EQ(Child<QLineEdit>(dialog.get(), "NAmeMI")->maxLength(), 12);

  MISched schedule(c.fake.session);
  dialog.reset(BuildScreen(schedule, c.fake.session));
  dialog->show();
  // A mode and an hour are apart: checking hours keeps the mode.
  // Clicked on their indicators, where a user clicks.
  QTest::mouseClick(Child<QRadioButton>(dialog.get(), "Option3D1(2)"), Qt::LeftButton, {},
                    QPoint(6, 8));
  QTest::mouseClick(Child<QCheckBox>(dialog.get(), "Check3D1(8)"), Qt::LeftButton, {},
                    QPoint(6, 8));
  SaveShot(dialog.get(), "MISched");
  EXPECT_TRUE(Child<QRadioButton>(dialog.get(), "Option3D1(2)")->isChecked());
  EXPECT_EQ(schedule.months()[0].mask, "000000001" + std::string(15, '0'));

  Out_put output(c.fake.session);
  dialog.reset(BuildScreen(output, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  SaveShot(dialog.get(), "Out_put");
  EXPECT_EQ(dialog->windowTitle(), "Output Specification");
  // The comfort buttons are one group; the output type is another.
  QTest::mouseClick(Child<QRadioButton>(dialog.get(), "Check3D1(1)"), Qt::LeftButton);
  EXPECT_FALSE(Child<QRadioButton>(dialog.get(), "Check3D1(0)")->isChecked());
  EXPECT_TRUE(Child<QRadioButton>(dialog.get(), "Option3D1(2)")->isChecked());
  QTest::mouseClick(Child<QCheckBox>(dialog.get(), "Check3D8"), Qt::LeftButton);
  EXPECT_FALSE(Child<QGroupBox>(dialog.get(), "Frame2")->isEnabled());
  EXPECT_FALSE(Child<QCheckBox>(dialog.get(), "Check3D2(1)")->isEnabled());
}

}  // namespace
}  // namespace zelmo::ui
