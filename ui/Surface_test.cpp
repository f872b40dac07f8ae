#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "building/surface_screen.h"
#include "building/surface_test_case.h"
#include "building/volume_surfaces_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

using zelmo::testing::OuterWall;

TEST(SurfaceView, ShowsTheElementAndRefusesAFaultyOne) {
  TestApp();
  zelmo::testing::SurfaceCase c;
  auto hole = OuterWall();
  const std::pair<int, const char*> door[] = {{0, "2"},     {6, "1"},  {7, "2"},    {9, "2.5"},
                                              {10, "0.05"}, {11, "1"}, {12, "2.1"}, {13, "1.9"},
                                              {21, "2"},    {28, "0"}};
  for (const auto& [field, text] : door) hole[field] = text;
  c.Elements({{"South", OuterWall()}, {"Door wall", hole}});
  Surface screen(c.fake.session);
  auto dialog = ShowScreen(screen, c.fake.session);
  ASSERT_TRUE(dialog);
  // Every caption is shown whole and every input lies inside the window.
  for (auto* label : dialog->findChildren<QLabel*>()) {
    if (label->isVisible() && !label->wordWrap()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << S(label->objectName());
    }
  }
  for (auto* widget : dialog->findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
    const QRect area(widget->mapTo(dialog.get(), QPoint(0, 0)), widget->size());
    EXPECT_TRUE(dialog->rect().contains(area)) << S(widget->objectName());
  }
  auto* list = dialog->findChild<QListWidget*>("SurfList");
  auto* wall = dialog->findChild<QComboBox*>("M_Wall");
  auto* a = dialog->findChild<QLineEdit*>("A");
  auto* c_dim = dialog->findChild<QLineEdit*>("C");
  auto* hole_frame = dialog->findChild<QGroupBox*>("HoleWallFrame");
  ASSERT_TRUE(list && wall && a && c_dim && hole_frame);
  EXPECT_EQ(list->count(), 2);
  EXPECT_EQ(
      list->item(1)->text() + "|" + wall->currentText() + "|" + wall->itemText(1) + "|" + a->text(),
      "2  | Door wall|1  | Outer wall|0  | Shading screen|5");
  EXPECT_FALSE(c_dim->isEnabled() || hole_frame->isEnabled());
  EXPECT_EQ(hole_frame->title(), "The hole ( if opaque )");
  EXPECT_EQ(dialog->findChild<QLabel*>("UnitZenith")->text(), QString::fromUtf8("°"));
  EXPECT_EQ(dialog->findChild<QPushButton*>("CheckSurfaces")->toolTip(),
            "Show number of surfaces facing each volume ");

  // The element with the door hole: its frames and the leakage area.
  list->setCurrentRow(1);
  EXPECT_EQ(dialog->windowTitle(), "Building element (Door wall)");
  EXPECT_TRUE(hole_frame->isEnabled() && c_dim->isEnabled());
  EXPECT_EQ(dialog->findChild<QComboBox*>("H_Wall")->currentText(), "2  | Floor");
  EXPECT_EQ(dialog->findChild<QLabel*>("LabelLeakage")->text(), "Leakage area");
  EXPECT_FALSE(dialog->findChild<QPushButton*>("Command4")->isVisibleTo(dialog.get()));
  SaveShot(dialog.get(), "Surface_hole");

  // A fault keeps the user on the element, with the gathered message.
  a->setFocus();
  a->selectAll();
  QTest::keyClicks(a, "0");
  EXPECT_EQ(screen.table().SurfData[2][9], "0");
  list->setCurrentRow(0);
  EXPECT_EQ(c.fake.dialogs.Texts(),
            testing::Strings{"A must be a value ( 0 -  999999)\rA - F must be >=  .01\r"});
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_TRUE(a->hasFocus() || !dialog->isActiveWindow());

  // The shading screen changes the labels of the main wall.
  QTest::keyClicks(a, "\b4");
  list->setCurrentRow(0);
  wall->setCurrentIndex(1);
  emit wall->activated(1);
  EXPECT_EQ(dialog->findChild<QLabel*>("LabelMAbsF")->text() + "|" +
                dialog->findChild<QLabel*>("LabelMAbsB")->text() + "|" +
                dialog->findChild<QLineEdit*>("Leakage")->text(),
            "Absorptance:| % Trans:|0");
  SaveShot(dialog.get(), "Surface_shading");
}

TEST(SurfaceView, ShapesPictureAndVolumeCounts) {
  TestApp();
  zelmo::testing::FakeSession fake;
  ShapesPicture picture(fake.ws());
  auto shapes = ShowScreen(picture, fake.session);
  ASSERT_TRUE(shapes);
  auto* canvas = shapes->findChild<QWidget*>("Picture1");
  ASSERT_TRUE(canvas);
  // A picture on white, as printed.
  EXPECT_EQ(canvas->grab().toImage().pixelColor(2, 2), QColor(Qt::white));

  SurfaceTable table;
  table.SurfName[1] = "W";
  table.SurfData[1][7] = "0";
  table.SurfData[1][8] = "2";
  table.SurfCount = 1;
  VolumeSurfaces counts(fake.session, CountFacings(table));
  auto dialog = ShowScreen(counts, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(Cells(dialog->findChild<QTableWidget*>("Grid")),
            (testing::Strings{"Volume|Number", "Ground|0", "Outdoors|1", "1|0", "2|1"}));
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(counts.unloaded);
}

}  // namespace
}  // namespace zelmo::ui
