#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "core/testing/fakes.h"
#include "simulation/module_error.h"
#include "simulation/results_screen.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

using testing::WriteBytes;

void ClickItem(QListWidget* list, const QString& text) {
  auto found = list->findItems(text, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1) << text.toStdString();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
}

TEST(ResultsView, ListsShowsAndPrintsAReport) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().ProjectName = "Office";
  fake.ws().ProjectPath = dir / "office";
  fake.ws().CaseName = "case1";
  WriteBytes(dir / "office/CASES.LIB", "case1 - South rooms\r\ncase2 - North rooms\r\n");
  WriteBytes(dir / "office/case1/MUK.LIS",
             "MUK stand-in calculation module\r\n"
             "Input files read:\r\n  DAT4.DAT   (case): 40 lines, 1812 bytes\r\n");
  WriteBytes(dir / "office/case1/LOADS.TXT", "1.5\r\n");
  Results screen(fake.session);
  auto dialog = ShowScreen(screen, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label1")->text(), "Existing cases - Project : office");
  auto* files = dialog->findChild<QListWidget*>("File1");
  auto* text = dialog->findChild<QPlainTextEdit*>("Text1");
  auto* print = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(files && text && print);
  EXPECT_EQ(dialog->findChild<QListWidget*>("CaseList")->currentRow(), 0);
  EXPECT_FALSE(print->isVisible());
  EXPECT_TRUE(dialog->findChild<QRadioButton*>("Option1")->isChecked());

  ClickItem(dialog->findChild<QListWidget*>("TypeList"), "LIS");
  ASSERT_EQ(files->count(), 1);
  ClickItem(files, "MUK.LIS");
  EXPECT_TRUE(text->toPlainText().startsWith("MUK stand-in calculation module\nInput files"));
  EXPECT_TRUE(text->isReadOnly() && print->isVisible());
  SaveShot(dialog.get(), "Results");
  QTest::mouseClick(print, Qt::LeftButton);
  EXPECT_EQ(fake.desktop.printed.size(), 1u);
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command2"), Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
}

TEST(ErrformView, ShowsTheEntryAndCloses) {
  testing::FakeSession fake;
  Errform form;
  form.caption = "Error  701 in module ZELMO-QRN";
  form.Label1.caption =
      "Previous calculation for this case has ended with en error 202 in module NEB.\r\n"
      "The results of this case are not complete. Run the simulation of the case again on the "
      "Simulate screen, with every module ticked. ";
  auto dialog = ShowScreen(form, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_TRUE(dialog->findChild<QLabel*>("Label1")->text().startsWith(
      "Previous calculation for this case has ended with en error 202 in module NEB.\nThe "
      "results"));
  auto* close = dialog->findChild<QPushButton*>("Command1");
  EXPECT_EQ(close->text(), "&Close");
  QTest::mouseClick(close, Qt::LeftButton);
  EXPECT_TRUE(form.unloaded);
}

}  // namespace
}  // namespace zelmo::ui
