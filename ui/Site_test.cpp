#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "building/genpars.h"
#include "core/testing/fakes.h"
#include "site/move_climatic_files.h"
#include "site/site_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

constexpr const char* kKeys =
    "Latitude: 59.35\r\nLongitude: 18.07\r\nTime meridian: 15\r\n"
    "1:st day: 1995.01.01\r\nLast day: 1995.12.31\r\n";

void ClickItem(QListWidget* list, const QString& text) {
  auto found = list->findItems(text, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1) << text.toStdString();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
}

// Clicks a check box or option on its box, whatever the width of the widget.
void ClickBox(QAbstractButton* box) {
  ASSERT_TRUE(box);
  QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

TEST(SiteView, ChoosesAClimateFileRefusesAFaultAndSaves) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().SystemPath = dir.path();
  fake.ws().CasePath = dir / "case1";
  WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
  WriteBytes(dir / "Climate/Sthlm.CLI", std::string("X1 Stockholm\r\n") + kKeys);
  WriteBytes(dir / "Climate/Calm.cli", std::string("X0 no wind\r\n") + kKeys);
  Site site(fake.session);
  auto dialog = ShowScreen(site, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label2")->text(),
            QString::fromUtf8("°   ( -90.0 to 90.0, positive to the north )"));
  auto* files = dialog->findChild<QListWidget*>("File1");
  auto* wind = dialog->findChild<QCheckBox*>("Wind");
  auto* terrain = dialog->findChild<QGroupBox*>("Terrain");
  auto* winddata = dialog->findChild<QLabel*>("Winddata");
  auto* latitude = dialog->findChild<QLineEdit*>("Latitude");
  auto* ok = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(files && wind && terrain && winddata && latitude && ok);
  EXPECT_EQ(files->count(), 2);
  EXPECT_FALSE(winddata->isVisible());

  ClickItem(files, "Calm.cli");
  EXPECT_EQ(latitude->text(), "59.35");
  EXPECT_FALSE(wind->isVisible());
  EXPECT_EQ(winddata->text(), "Hourly wind data is not used in HVAC-calculations");
  EXPECT_EQ(winddata->palette().color(QPalette::WindowText), QColor(250, 0, 0));
  ClickItem(files, "Sthlm.CLI");
  EXPECT_TRUE(wind->isVisible() && !terrain->isVisible());
  ClickBox(wind);
  EXPECT_TRUE(terrain->isVisible());
  ClickBox(dialog->findChild<QRadioButton*>("Option5(3)"));
  EXPECT_TRUE(fake.dialogs.messages.empty());

  // One click reads the file once: a file without keys says so once per key.
  WriteBytes(dir / "Climate/Bare.cli", "X1\r\n");
  site.folder_lists().Refresh();
  dialog->findChild<QPushButton*>("Command3")->click();  // any event brings the lists in line
  ClickItem(files, "Bare.cli");
  EXPECT_EQ(fake.dialogs.messages.size(), 5u);
  EXPECT_EQ(latitude->text(), "");
  ClickItem(files, "Sthlm.CLI");
  fake.dialogs.Clear();

  // A refusal keeps the window, the faulty field focused with its text selected.
  latitude->selectAll();
  QTest::keyClicks(latitude, "95");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Texts(), testing::Strings{"Latitude must be a value (-90 -  90)\r"});
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->focusWidget(), latitude);
  EXPECT_EQ(latitude->selectedText(), "95");
  QTest::keyClicks(latitude, "59.3");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(ReadBytes(dir / "case1/SITE.INP").substr(0, 13), "59.3\t 1\t 3\t\r\n");
  EXPECT_EQ(ReadBytes(dir / "case1/THERMAL.INP"), "----XX\r\n");
}

TEST(GenParsView, ShowsTheDefaultsAndFollowsTheOptions) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().CasePath = dir.path();
  GenPars pars(fake.session);
  auto dialog = ShowScreen(pars, fake.session);
  ASSERT_TRUE(dialog);
  auto* inter = dialog->findChild<QLineEdit*>("Inter");
  auto* exter = dialog->findChild<QLineEdit*>("Exter");
  ASSERT_TRUE(inter && exter);
  EXPECT_FALSE(inter->isEnabled());
  EXPECT_EQ(inter->text(), "-1");
  ClickBox(dialog->findChild<QRadioButton*>("Option3"));
  EXPECT_TRUE(inter->isEnabled());
  EXPECT_EQ(inter->text(), "");
  EXPECT_FALSE(dialog->findChild<QRadioButton*>("Option2")->isChecked());
  ClickBox(dialog->findChild<QRadioButton*>("Option1(1)"));
  EXPECT_EQ(exter->text(), "15.0");
  EXPECT_EQ(exter->palette().color(QPalette::Text), QColor(0, 0, 255));
  EXPECT_FALSE(dialog->findChild<QRadioButton*>("Option1(0)")->isChecked());
}

TEST(MoveClimaticFilesView, ListsTheClimateFilesOfTheChosenFolder) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().SystemPath = dir / "Zelmo";
  fake.ws().LocalPath = dir / "Downloads";
  WriteBytes(dir / "Downloads/Lund.cli", "lund");
  WriteBytes(dir / "Downloads/old/Kiruna.CLI", "kiruna");
  MoveClimaticFiles screen(fake.session);
  auto dialog = ShowScreen(screen, fake.session);
  ASSERT_TRUE(dialog);
  auto* dirs = dialog->findChild<QListWidget*>("Dir1");
  auto* files = dialog->findChild<QListWidget*>("File1");
  ASSERT_TRUE(dirs && files);
  EXPECT_EQ(files->count(), 1);
  auto found = dirs->findItems("old", Qt::MatchEndsWith);
  ASSERT_EQ(found.size(), 1);
  // A folder opens by a double click on it.
  QPoint old = dirs->visualItemRect(found[0]).center();
  QTest::mouseClick(dirs->viewport(), Qt::LeftButton, {}, old);
  QTest::mouseDClick(dirs->viewport(), Qt::LeftButton, {}, old);
  EXPECT_EQ(dialog->findChild<QLabel*>("Selecteddirectory")->text().toStdString(),
            dir / "Downloads/old");
  ASSERT_EQ(files->count(), 1);
  EXPECT_EQ(files->item(0)->text(), "Kiruna.CLI");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Copy"), Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Last().title, "Move message");
  EXPECT_EQ(ReadBytes(dir / "Zelmo/Climate/Kiruna.CLI"), "kiruna");
}

}  // namespace
}  // namespace zelmo::ui
