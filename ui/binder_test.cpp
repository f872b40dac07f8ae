#include "ui/binder.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "core/testing/fakes.h"
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

}  // namespace
}  // namespace zelmo::ui
