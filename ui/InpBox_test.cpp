#include "core/inpbox.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "core/testing/fakes.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

TEST(InpBoxView, BuildsShowsAndForwardsToTheModel) {
  TestApp();
  testing::FakeSession fake;
  fake.ws().InpBoxCheckKind = -1;
  fake.ws().InpBoxMinValue = 0;
  fake.ws().InpBoxMaxValue = 12;
  InpBox box(fake.session);
  box.Prepare("Target month (0= all other) ", "1", "Copy month", 2, false);
  std::unique_ptr<QDialog> dialog(BuildScreen(box, fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  SaveShot(dialog.get(), "InpBox");
  EXPECT_EQ(dialog->windowTitle(), "Copy month");
  auto* label = dialog->findChild<QLabel*>("Label1");
  auto* text = dialog->findChild<QLineEdit*>("Text1");
  auto* ok = dialog->findChild<QPushButton*>("Command1");
  auto* cancel = dialog->findChild<QPushButton*>("Command2");
  ASSERT_TRUE(label && text && ok && cancel);
  EXPECT_EQ(label->text(), "Target month (0= all other) ");
  EXPECT_EQ(ok->text(), "&OK");
  EXPECT_EQ(cancel->text(), "&Cancel");
  EXPECT_EQ(text->text(), "1");
  EXPECT_EQ(text->maxLength(), 2);

  // The field never takes more than its maximum length.
  text->selectAll();
  QTest::keyClicks(text, "135");
  EXPECT_EQ(box.Text1.text, "13");
  QTest::mouseClick(ok, Qt::LeftButton);
  ASSERT_EQ(fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(fake.dialogs.Last().text, "Input value (Min:  0, Max:  12)");
  EXPECT_FALSE(box.unloaded);
  EXPECT_EQ(text->selectedText(), "13");  // kept and selected for a new try

  text->selectAll();
  QTest::keyClicks(text, "7");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(box.unloaded);
  EXPECT_EQ(fake.ws().InpBoxResult, "7");
}

TEST(InpBoxView, EscapeAndTheCloseBoxCancel) {
  TestApp();
  testing::FakeSession fake;
  InpBox box(fake.session);
  box.Prepare("Type a name ", "Wall", "Add Walls/Floors/Roofs/Doors", 16, true);
  std::unique_ptr<QDialog> dialog(BuildScreen(box, fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  EXPECT_EQ(dialog->findChild<QLineEdit*>("Text1")->echoMode(), QLineEdit::Password);
  fake.ws().InpBoxResult = "stale";
  dialog->close();
  EXPECT_TRUE(box.unloaded);
  EXPECT_EQ(fake.ws().InpBoxResult, "");
}

}  // namespace
}  // namespace zelmo::ui
