#include "ui/binder.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "core/inpbox.h"
#include "core/testing/fakes.h"
#include "simulation/module_error.h"
#include "simulation/results_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

struct Probe : Form {
  Probe() : Form("BinderProbe") {}
  void Load() override { Label1.caption = std::string(120, 'W'); }
  ListBox List1{this, "List1"};
  Label Label1{this, "Label1"};
  int clicks = 0;
};

void BuildProbe(Form& form, QDialog& dialog, Session&) {
  auto* layout = new QVBoxLayout(&dialog);
  auto* list = new QListWidget(&dialog);
  list->setObjectName("List1");
  auto* label = new QLabel(&dialog);
  label->setObjectName("Label1");
  layout->addWidget(list);
  layout->addWidget(label);
  (void)form;
}

void ClickRow(QListWidget* list, int row) {
  QRect rect = list->visualItemRect(list->item(row));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

TEST(Binder, ListClicksFireOnceAndCaptionsSizeTheWindowAndDisabledTextGreys) {
  TestApp();
  RegisterView("BinderProbe", BuildProbe);
  testing::FakeSession fake;
  Probe probe;
  probe.List1.items = {"one", "two", "three"};
  probe.List1.on_click = [&probe] { ++probe.clicks; };
  probe.Label1.fore_color = Rgb(0, 0, 255);
  std::unique_ptr<QDialog> dialog(BuildScreen(probe, fake.session));
  ASSERT_NE(dialog, nullptr);
  dialog->show();
  auto* list = dialog->findChild<QListWidget*>("List1");
  auto* label = dialog->findChild<QLabel*>("Label1");

  // The caption filled by the load is not cut off by the fixed size.
  EXPECT_GE(dialog->width(), label->sizeHint().width());

  // A click on a new item is one click, not two; a click on the item that
  // is already selected is a click too.
  ClickRow(list, 1);
  EXPECT_EQ(probe.List1.list_index, 1);
  EXPECT_EQ(probe.clicks, 1);
  ClickRow(list, 1);
  EXPECT_EQ(probe.clicks, 2);
  ClickRow(list, 2);
  EXPECT_EQ(probe.List1.list_index, 2);
  EXPECT_EQ(probe.clicks, 3);

  // The blue of an enabled label goes grey when it is disabled.
  const QColor blue(0, 0, 255);
  EXPECT_EQ(label->palette().color(QPalette::Active, QPalette::WindowText), blue);
  probe.Label1.enabled = false;
  probe.Label1.fore_color = Rgb(0, 0, 255);
  static_cast<ScreenDialog*>(dialog.get())->binder()->Sync();
  EXPECT_FALSE(label->isEnabled());
  EXPECT_NE(label->palette().color(QPalette::Disabled, QPalette::WindowText), blue);
}

TEST(InpBoxView, BuildsShowsAndForwardsToTheModel) {
  testing::FakeSession fake;
  fake.ws().InpBoxCheckKind = -1;
  fake.ws().InpBoxMinValue = 0;
  fake.ws().InpBoxMaxValue = 12;
  InpBox box(fake.session);
  box.Prepare("Target month (0= all other) ", "1", "Copy month", 2, false);
  auto dialog = ShowScreen(box, fake.session);
  ASSERT_TRUE(dialog);
  auto* text = dialog->findChild<QLineEdit*>("Text1");
  auto* ok = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(text && ok);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label1")->text(), "Target month (0= all other) ");
  EXPECT_EQ(ok->text() + dialog->findChild<QPushButton*>("Command2")->text(), "&OK&Cancel");
  EXPECT_EQ(text->text(), "1");
  EXPECT_EQ(text->maxLength(), 2);

  // The field never takes more than its maximum length.
  text->selectAll();
  QTest::keyClicks(text, "135");
  EXPECT_EQ(box.Text1.text, "13");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Texts(), testing::Strings{"Input value (Min:  0, Max:  12)"});
  EXPECT_FALSE(box.unloaded);
  EXPECT_EQ(text->selectedText(), "13");  // kept and selected for a new try

  text->selectAll();
  QTest::keyClicks(text, "0");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(box.unloaded);
  EXPECT_EQ(fake.ws().InpBoxResult, "0");
}

TEST(InpBoxView, EscapeAndTheCloseBoxCancel) {
  testing::FakeSession fake;
  InpBox box(fake.session);
  box.Prepare("Type a name ", "Wall", "Add Walls/Floors/Roofs/Doors", 16, true);
  auto dialog = ShowScreen(box, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text1")->echoMode(), QLineEdit::Password);
  fake.ws().InpBoxResult = "stale";
  dialog->close();
  EXPECT_TRUE(box.unloaded);
  EXPECT_EQ(fake.ws().InpBoxResult, "");
}

using testing::WriteBytes;

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
