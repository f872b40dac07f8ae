#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "schedules/hvac_cal_file.h"
#include "schedules/hvac_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

// The example case: two rooms with a door between them, and its schedules.
struct ExampleCase {
  ExampleCase() {
    fake.ws().CasePath = dir.path();
    const std::string example = std::string(qgetenv("ZELMO_SOURCE_DIR").constData()) +
                                "/system/tree/ZELMOPROJ/Example/Case1";
    for (const char* name : {"SURFACE.INP", "THERMAL.INP"}) {
      testing::WriteBytes(dir / name, testing::ReadBytes(JoinPath(example, name)));
    }
  }
  testing::TempDir dir;
  testing::FakeSession fake;
};

// Every caption whole: no label, button or option cut by its width.
void ExpectCaptionsWhole(QDialog& dialog) {
  for (auto* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
    }
  }
  for (auto* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) {
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
    }
  }
}

TEST(HVACView, ANewScheduleWithADailyPeriodFilledDownAndADoorOpened) {
  TestApp();
  ExampleCase c;
  auto& dialogs = c.fake.dialogs;
  dialogs.screens["HVAC_Schedule_Add"] = [](Form& f) {
    auto& d = static_cast<ScheduleNameDialog&>(f);
    d.Text1.text = "Office";
    d.Ok();
  };
  dialogs.screens["HVAC_Daily_Add"] = [](Form& f) {
    auto& d = static_cast<DailyPeriodDialog&>(f);
    d.M2.value = 4;
    d.M2Change();  // 1/1 to 30/4 by the spin of the end month
    d.Ok();
  };
  HVAC screen(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  EXPECT_EQ(dialog->windowTitle(), "HVAC - Schedules");
  auto* add = dialog->findChild<QPushButton*>("SAcmb");
  EXPECT_FALSE(dialog->findChild<QPushButton*>("SDcmb")->isEnabled());
  QTest::mouseClick(add, Qt::LeftButton);
  auto* types = dialog->findChild<QComboBox*>("Combo4");
  ASSERT_EQ(types->count(), 3);
  types->setCurrentIndex(kDaily);
  emit types->activated(kDaily);
  QTest::mouseClick(dialog->findChild<QPushButton*>("DAcmb"), Qt::LeftButton);
  EXPECT_EQ(dialog->findChild<QComboBox*>("Combo2")->currentText(), "1/1-30/4");

  // Loads typed into the fill row, filled down over the working hours.
  auto* fill = dialog->findChild<QTableWidget*>("HVACGRID1_Fill");
  auto type = [](QTableWidget* grid, int row, int col, const char* text) {
    grid->setCurrentCell(row, col);
    QTest::keyClick(grid, Qt::Key_Delete);
    QTest::keyClicks(grid, text);
  };
  type(fill, 0, 0, "8");
  type(fill, 0, 1, "17");
  type(fill, 0, 3, "21");
  type(fill, 0, 5, "26");
  type(fill, 0, 6, "450");
  // A drag from one cell of the fill row to the next empties the one it ends on.
  type(fill, 0, 8, "5");
  const QPoint from = fill->visualItemRect(fill->item(0, 7)).center();
  const QPoint to = fill->visualItemRect(fill->item(0, 8)).center();
  QTest::mousePress(fill->viewport(), Qt::LeftButton, {}, from);
  QMouseEvent move(QEvent::MouseMove, to, fill->viewport()->mapToGlobal(to), Qt::NoButton,
                   Qt::LeftButton, {});
  QApplication::sendEvent(fill->viewport(), &move);
  QTest::mouseRelease(fill->viewport(), Qt::LeftButton, {}, to);
  EXPECT_EQ(fill->currentColumn(), 8);
  EXPECT_EQ(fill->item(0, 1)->background().color(), QColor(238, 238, 224));
  EXPECT_FALSE(fill->item(0, 2)->data(Qt::BackgroundRole).isValid());
  EXPECT_EQ(fill->item(0, 8)->text(), "");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Fill_Option"), Qt::LeftButton);
  auto* loads = dialog->findChild<QTableWidget*>("HVACGRID1");
  EXPECT_EQ(loads->item(0, 2)->text(), QString::fromUtf8("Heating(°C)"));
  EXPECT_EQ(loads->item(8, 2)->text(), "21");
  EXPECT_EQ(loads->item(17, 5)->text(), "450");
  EXPECT_EQ(loads->item(18, 2)->text(), "");
  SaveShot(dialog.get(), "HVAC");
  ExpectCaptionsWhole(*dialog);

  // The door between the two rooms half open at noon.
  QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1(1)"), Qt::LeftButton);
  auto* openings = dialog->findChild<QTableWidget*>("HVACGRID2");
  ASSERT_TRUE(openings->isVisible());
  EXPECT_FALSE(loads->isVisible());
  EXPECT_FALSE(dialog->findChild<QPushButton*>("Scmd1")->isVisible());
  EXPECT_EQ(openings->item(0, 1)->text(), "1-2");
  type(openings, 12, 1, "50");
  SaveShot(dialog.get(), "HVAC_openings");
  QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1(0)"), Qt::LeftButton);
  QTest::mouseClick(dialog->findChild<QPushButton*>("Scmd1"), Qt::LeftButton);
  EXPECT_TRUE(dialogs.messages.empty()) << dialogs.Last().text;
  ASSERT_TRUE(screen.unloaded);

  // Opened again: the same values.
  HVAC again(c.fake.session);
  std::unique_ptr<QDialog> reopened(BuildScreen(again, c.fake.session));
  ASSERT_TRUE(reopened);
  reopened->show();
  EXPECT_EQ(reopened->findChild<QComboBox*>("Combo1")->currentText(), "Office");
  EXPECT_EQ(reopened->findChild<QComboBox*>("Combo4")->currentIndex(), kDaily);
  EXPECT_EQ(reopened->findChild<QTableWidget*>("HVACGRID1")->item(12, 4)->text(), "26");
  EXPECT_EQ(reopened->findChild<QTableWidget*>("HVACGRID2")->item(12, 1)->text(), "50");
  EXPECT_EQ(again.store().HourCell(1, 1, 1, 12, 9), "50");
}

TEST(HVACView, ThePeriodDialogsShowTheirFieldsAndArrows) {
  TestApp();
  ExampleCase c;
  ScheduleDialogResult result;
  DailyPeriodDialog daily(c.fake.session, result, BuildDateTable({"1/1-30/4"}), "1/1-30/4");
  std::unique_ptr<QDialog> dialog(BuildScreen(daily, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  EXPECT_EQ(dialog->windowTitle(), "Edit dayly operating periods");
  auto* up = dialog->findChild<QScrollBar*>("M2");
  ASSERT_TRUE(up);
  EXPECT_EQ(up->value(), -4);  // the upper arrow counts up
  up->triggerAction(QAbstractSlider::SliderSingleStepSub);
  EXPECT_EQ(daily.Text4.text, " 5");
  EXPECT_EQ(daily.Text3.text, " 31");
  SaveShot(dialog.get(), "HVAC_daily_edit");
  ExpectCaptionsWhole(*dialog);
}

}  // namespace
}  // namespace zelmo::ui
