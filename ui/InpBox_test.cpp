#include "core/inpbox.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "core/testing/fakes.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

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

}  // namespace
}  // namespace zelmo::ui
