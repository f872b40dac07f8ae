#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "libraries/opaque_screen.h"
#include "libraries/wall_test_case.h"
#include "libraries/walls_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

// Every caption and every heading of the grid is shown whole.
void ExpectWhole(QDialog& dialog, const char* grid) {
  for (auto* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << S(label->objectName());
    }
  }
  auto* table = dialog.findChild<QTableWidget*>(grid);
  ASSERT_TRUE(table);
  for (int c = 0; c < table->columnCount(); ++c) {
    const QString heading = table->item(0, c)->text();
    EXPECT_LE(table->fontMetrics().horizontalAdvance(heading) + 8, table->columnWidth(c))
        << S(heading);
  }
}

TEST(WallsView, AMaterialClickedBecomesALayerAndEveryHeadingIsWhole) {
  TestApp();
  zelmo::testing::WallCase c;
  c.Put("OPAQUE.LIB", zelmo::testing::Materials(3));
  c.Put("WALLS.LIB", "1\tOuter\r\n\t1\t100\r\n");
  Walls screen(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  SaveShot(dialog.get(), "Walls");
  ExpectWhole(*dialog, "WallLayerList");
  EXPECT_EQ(dialog->windowTitle(), "Walls / Floors / Roofs / Doors (Outer)");
  EXPECT_EQ(dialog->findChild<QLineEdit*>("UvalueWall")->text(), "3.704");
  EXPECT_EQ(dialog->findChild<QLabel*>("Label4")->text(), QString::fromUtf8("W/m2,°C"));

  QTest::mouseClick(dialog->findChild<QPushButton*>("Command3D2"), Qt::LeftButton);
  auto* materials = dialog->findChild<QListWidget*>("MtrlList");
  ASSERT_TRUE(materials->isVisible());
  SaveShot(dialog.get(), "Walls_materials");
  // Keys move nothing into the wall; each release of the mouse on a
  // material is a layer, the same material twice included.
  materials->setFocus();
  QTest::keyClick(materials, Qt::Key_Down);
  EXPECT_TRUE(c.asked.empty());
  c.answers = {"20", "30"};
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(materials->viewport(), Qt::LeftButton, {},
                      materials->visualItemRect(materials->item(2)).center());
  }
  ASSERT_EQ(c.asked.size(), 2u);
  auto* layers = dialog->findChild<QTableWidget*>("WallLayerList");
  ASSERT_EQ(layers->rowCount(), 4);
  EXPECT_EQ(layers->item(3, 1)->text() + layers->item(3, 3)->text(), "30M3");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command3D3"), Qt::LeftButton);
  EXPECT_FALSE(materials->isVisible());
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t100\r\n\t3\t20\r\n\t3\t30\r\n");

  OpaqueMtrl opaque(c.fake.session);
  std::unique_ptr<QDialog> library(BuildScreen(opaque, c.fake.session));
  ASSERT_TRUE(library);
  library->show();
  SaveShot(library.get(), "OpaqueMtrl");
  ExpectWhole(*library, "OpaqueList");
}

}  // namespace
}  // namespace zelmo::ui
