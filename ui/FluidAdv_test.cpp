#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "building/fluid_adv_screen.h"
#include "building/fluids_test_case.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

void ClickCell(QTableWidget* table, int row, int col) {
  QRect rect = table->visualItemRect(table->item(row, col));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, rect.center());
}

TEST(FluidAdvView, ShowsBothGridsMarksFluidsAndTypesNumbers) {
  TestApp();
  testing::FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "0"}, {"3", "1"}});
  c.Put("FLUIDS.INP", "1\t1\r\n2\t2\r\n");
  c.Put("ADVCONN.INP", "1 - 2\t3.5\t2.1\r\n");
  FluidAdv screen(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  dialog->activateWindow();
  SaveShot(dialog.get(), "FluidAdv");
  EXPECT_EQ(dialog->windowTitle(), "Fluid & advection connection");
  EXPECT_EQ(dialog->findChild<QLabel*>("Label1")->text(), "Fluids in volumes");
  EXPECT_EQ(dialog->findChild<QLabel*>("Label2")->text(), "Advection connection between volumes");
  EXPECT_EQ(dialog->findChild<QPushButton*>("Command1")->text(), "&OK");
  EXPECT_EQ(dialog->findChild<QPushButton*>("Command2")->text(), "&Cancel");
  auto* fluids = dialog->findChild<QTableWidget*>("FluidList");
  auto* conns = dialog->findChild<QTableWidget*>("AdvConnList");
  ASSERT_TRUE(fluids && conns);
  ASSERT_EQ(fluids->rowCount(), 4);
  EXPECT_EQ(fluids->item(0, 2)->text(), "(Water)");
  EXPECT_EQ(fluids->item(2, 2)->text(), "X");
  EXPECT_EQ(fluids->item(3, 1)->text(), "X");
  ASSERT_EQ(conns->rowCount(), 3);
  EXPECT_EQ(conns->item(0, 2)->text(), "Area (m2)");
  EXPECT_EQ(conns->item(1, 0)->text(), "1 - 2");
  EXPECT_EQ(conns->item(2, 0)->text(), "1 - 3");
  EXPECT_EQ(conns->item(1, 1)->text(), "3.5");

  ClickCell(fluids, 2, 3);
  EXPECT_EQ(fluids->item(2, 3)->text(), "X");
  EXPECT_EQ(fluids->item(2, 2)->text(), "");
  EXPECT_TRUE(screen.dirty());

  ClickCell(conns, 2, 1);
  conns->setFocus();
  QTest::keyClick(conns, Qt::Key_Delete);
  QTest::keyClicks(conns, "4a,25");
  EXPECT_EQ(conns->item(2, 1)->text(), "4.25");
  EXPECT_EQ(screen.AdvConnList.Cell(2, 1), "4.25");
  QTest::keyClick(conns, Qt::Key_Right);
  EXPECT_EQ(conns->currentColumn(), 2);
  QTest::keyClick(conns, Qt::Key_Delete);
  EXPECT_EQ(conns->item(2, 2)->text(), "");
  QTest::keyClick(conns, Qt::Key_Home);
  EXPECT_EQ(conns->currentColumn(), 1);

  // The empty area is refused and its cell made current.
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Area must be a value (0 - 1000000)");
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(conns->currentRow(), 2);
  EXPECT_EQ(conns->currentColumn(), 2);
  EXPECT_EQ(dialog->focusWidget(), conns);

  QTest::keyClicks(conns, "1,5");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t3.5\t2.1\r\n1 - 3\t4.25\t1.5\r\n");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t1\r\n2\t3\r\n3\t1\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "XXXXXX\r\n");
}

TEST(FluidAdvView, EscapeAsksToSaveAndStays) {
  TestApp();
  testing::FluidsCase c;
  c.Elements({{"1", "2"}});
  FluidAdv screen(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  auto* conns = dialog->findChild<QTableWidget*>("AdvConnList");
  conns->setFocus();
  QTest::keyClicks(conns, "8");
  c.fake.dialogs.answers = {Answer::kCancel};
  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Save");
  EXPECT_FALSE(screen.unloaded);
  EXPECT_TRUE(dialog->isVisible());
  c.fake.dialogs.answers = {Answer::kNo};
  dialog->close();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));
}

}  // namespace
}  // namespace zelmo::ui
