#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "simulation/module_error.h"
#include "simulation/results_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

using testing::FakeSession;
using testing::TempDir;
using testing::WriteBytes;

void ClickItem(QListWidget* list, const QString& text) {
  auto found = list->findItems(text, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1) << text.toStdString();
  QRect rect = list->visualItemRect(found[0]);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

TEST(ResultsView, ListsShowsAndPrintsAReport) {
  TestApp();
  TempDir dir;
  FakeSession fake;
  fake.ws().ProjectName = "Office";
  fake.ws().ProjectPath = dir / "office";
  fake.ws().CaseName = "case1";
  WriteBytes(dir / "office/CASES.LIB", "case1 - South rooms\r\ncase2 - North rooms\r\n");
  WriteBytes(dir / "office/case1/MUK.LIS",
             "MUK stand-in calculation module\r\n"
             "Input files read:\r\n  DAT4.DAT   (case): 40 lines, 1812 bytes\r\n");
  WriteBytes(dir / "office/case1/LOADS.TXT", "1.5\r\n");
  Results screen(fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  EXPECT_EQ(dialog->windowTitle(), "TextFiles");
  EXPECT_EQ(dialog->findChild<QLabel*>("Label1")->text(), "Existing cases - Project : office");
  auto* cases = dialog->findChild<QListWidget*>("CaseList");
  auto* types = dialog->findChild<QListWidget*>("TypeList");
  auto* files = dialog->findChild<QListWidget*>("File1");
  auto* text = dialog->findChild<QPlainTextEdit*>("Text1");
  auto* print = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(cases && types && files && text && print);
  EXPECT_EQ(cases->currentRow(), 0);
  EXPECT_FALSE(print->isVisible());
  EXPECT_TRUE(dialog->findChild<QRadioButton*>("Option1")->isChecked());

  ClickItem(types, "LIS");
  ASSERT_EQ(files->count(), 1);
  ClickItem(files, "MUK.LIS");
  EXPECT_TRUE(text->toPlainText().startsWith("MUK stand-in calculation module\nInput files"));
  EXPECT_TRUE(text->isReadOnly());
  EXPECT_TRUE(print->isVisible());
  SaveShot(dialog.get(), "Results");
  QTest::mouseClick(print, Qt::LeftButton);
  ASSERT_EQ(fake.desktop.printed.size(), 1u);

  QTest::mouseClick(dialog->findChild<QPushButton*>("Command2"), Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
}

TEST(ErrformView, ShowsTheEntryAndCloses) {
  TestApp();
  FakeSession fake;
  Errform form;
  form.caption = "Error  701 in module ZELMO-QRN";
  form.Label1.caption =
      "Previous calculation for this case has ended with en error 202 in module NEB.\r\n"
      "The results of this case are not complete. Run the simulation of the case again on the "
      "Simulate screen, with every module ticked. ";
  std::unique_ptr<QDialog> dialog(BuildScreen(form, fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  SaveShot(dialog.get(), "Errform");
  EXPECT_EQ(dialog->windowTitle(), "Error  701 in module ZELMO-QRN");
  auto* label = dialog->findChild<QLabel*>("Label1");
  ASSERT_TRUE(label);
  EXPECT_TRUE(
      label->text().startsWith("Previous calculation for this case has ended with en "
                               "error 202 in module NEB.\nThe results"));
  auto* close = dialog->findChild<QPushButton*>("Command1");
  EXPECT_EQ(close->text(), "&Close");
  QTest::mouseClick(close, Qt::LeftButton);
  EXPECT_TRUE(form.unloaded);
}

}  // namespace
}  // namespace zelmo::ui
