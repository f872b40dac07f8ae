// The construction library screens as a user meets them: each window built,
// shown and used through its widgets, row editors and input box included.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>
#include <functional>

#include "libraries/gas_screen.h"
#include "libraries/glass_types_screen.h"
#include "libraries/library_test_case.h"
#include "libraries/misched_screen.h"
#include "libraries/moveins_screen.h"
#include "libraries/opaque_screen.h"
#include "libraries/output_screen.h"
#include "libraries/walls_screen.h"
#include "libraries/window_types_screen.h"
#include "ui/commands.h"
#include "ui/test_support.h"
#include "workspace/start_form.h"

namespace zelmo::ui {
namespace {

template <typename W = QWidget>
W* Child(QWidget& dialog, const char* name) {
  auto* widget = dialog.findChild<W*>(name);
  EXPECT_TRUE(widget) << name;
  return widget;
}

// Saves the window's picture as `shot`, when named, and checks it whole as
// it now stands.
void Shot(QDialog& dialog, const std::string& shot) {
  if (shot.empty()) return;
  SaveShot(&dialog, shot);
  ExpectWhole(dialog);
}

// Every heading of the table `grid` fits its column.
void ExpectHeadingsFit(QDialog& dialog, const char* grid) {
  auto* table = Child<QTableWidget>(dialog, grid);
  for (int c = 0; c < table->columnCount(); ++c) {
    const QString heading = table->item(0, c)->text();
    EXPECT_LE(table->fontMetrics().horizontalAdvance(heading) + 8, table->columnWidth(c))
        << S(heading);
  }
}

// Runs `act` on the modal window that the next step opens.
void WhenShown(const std::string& shot, std::function<void(QDialog&)> act) {
  QTimer::singleShot(0, [shot, act] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    Shot(*dialog, shot);
    act(*dialog);
  });
}

// Types the blank-separated `values` into the inputs `names`, in order.
void Type(QDialog& dialog, const std::vector<const char*>& names, const char* values) {
  const QStringList list = QString(values).split(' ');
  for (int i = 0; i < list.size(); ++i) {
    auto* edit = Child<QLineEdit>(dialog, names[i]);
    edit->selectAll();
    QTest::keyClicks(edit, list[i]);
  }
}

void Click(QWidget& dialog, const char* name, QPoint at = {}) {
  QTest::mouseClick(Child<QAbstractButton>(dialog, name), Qt::LeftButton, {}, at);
}

void Choose(QDialog& dialog, const char* name, const char* item) {
  auto* combo = Child<QComboBox>(dialog, name);
  combo->setCurrentIndex(combo->findText(item));
  EXPECT_GE(combo->currentIndex(), 0) << item;
  emit combo->activated(combo->currentIndex());
}

// New (Command1) is clicked and the input box answers `name`.
void New(QDialog& dialog, const char* name) {
  WhenShown("", [name](QDialog& box) {
    Type(box, {"Text1"}, name);
    Click(box, "Command1");
  });
  Click(dialog, "Command1");
}

TEST(LibraryViews, GlassOfEachTypeAGasAndAWindowOfTwoPanes) {
  TestApp();
  testing::LibraryCase c;
  QtDialogs dialogs(c.fake.session);
  Session& session = c.fake.session;
  session.dialogs = &dialogs;

  Glass_types glass(session);
  auto d = ShowScreen(glass, session);
  EXPECT_EQ(d->windowTitle(), "Glass types");
  New(*d, "Tab1");
  for (const char* row : {"80 8 8", "0 100 100"}) {
    WhenShown("AddAngle", [row](QDialog& box) {
      EXPECT_EQ(box.windowTitle(), "Add data");
      Type(box, {"transm", "Absf", "Absb"}, row);
      Click(box, "Command1");
    });
    Click(*d, "Command4");
  }
  auto* grid = Child<QTableWidget>(*d, "Grid1");
  EXPECT_EQ(grid->item(2, 0)->text(), " 90");
  // Then a glass of each of the other two data types.
  for (const auto& [name, type, values, shot] :
       std::vector<std::array<const char*, 4>>{{"Fres2", "2", "4 1.526 25", "Glass_types_2"},
                                               {"Norm3", "3", "60 20", "Glass_types_3"}}) {
    New(*d, name);
    Choose(*d, "Combo1", type);
    EXPECT_FALSE(grid->isVisible());
    Type(*d, {"Text3", "Text4", "Text5"}, values);
    Shot(*d, shot);
  }
  Click(*d, "Command3");
  EXPECT_TRUE(glass.unloaded);
  EXPECT_NE(c.Bytes("GLASSTP.INP").find("Norm3\t87\t87\t3\t60\t20\t\t 0\t"), std::string::npos);

  Gases gases(session);
  d = ShowScreen(gases, session);
  WhenShown("Addgas", [](QDialog& box) {
    Type(box, {"namegas", "k", "dk", "u", "du", "r", "dr", "p", "dp"},
         "CO2 0.0146 5e-5 1.5e-5 5e-8 1.8 -0.006 0.77 -2e-4");
    Click(box, "OK");
  });
  Click(*d, "Command4");
  EXPECT_EQ(Child<QTableWidget>(*d, "Grid1")->item(6, 0)->text(), "CO2");
  Click(*d, "Command1");
  EXPECT_NE(c.Bytes("GASTP.INP").find("CO2\t0.0146\t5e-5\t"), std::string::npos);

  Wind_Types windows(session);
  d = ShowScreen(windows, session);
  New(*d, "Tab2Gap");
  EXPECT_EQ(d->windowTitle(), "Window types (Tab2Gap)");
  WhenShown("", [](QDialog& box) {
    EXPECT_FALSE(Child(box, "Combo2")->isEnabled());
    Choose(box, "Combo1", "Tab1");
    Click(box, "Command1");
  });
  Click(*d, "Command6");
  WhenShown("AddGaGl", [](QDialog& box) {
    Choose(box, "Combo1", "Fres2");
    Choose(box, "Combo2", "CO2");
    Type(box, {"Text1"}, "12");
    Click(box, "Check1", QPoint(5, 5));
    EXPECT_EQ(Child<QLabel>(box, "Label5")->text(), "(Reversed coating) ");
    Click(box, "Command1");
  });
  Click(*d, "Command6");
  Shot(*d, "Wind_Types");
  EXPECT_EQ(Child<QTableWidget>(*d, "Grid1")->item(2, 2)->text(), "CO2");
  // Choosing a type in the list shows the type's properties.
  Child<QListWidget>(*d, "List1")->setCurrentRow(1);
  EXPECT_EQ(d->windowTitle(), "Window types (Double4-12-4)");
  EXPECT_EQ(Child<QLineEdit>(*d, "UValue")->text() + " " + Child<QLineEdit>(*d, "Tsol")->text(),
            "2.86 0.691");
  Shot(*d, "Wind_Types_properties");
  Click(*d, "Command3");
  EXPECT_TRUE(windows.unloaded);
  EXPECT_NE(c.Bytes("WNDTP.LIB").find("7\tTab2Gap\t 2\tTab1\tNo\t12\tCO2\tFres2\tYes\t\t"),
            std::string::npos);
}

TEST(LibraryViews, WallsCurtainsScheduleAndOutputAsTheUserSeesThem) {
  TestApp();
  testing::LibraryCase c;
  c.Put("OPAQUE.LIB", testing::Materials(3));
  c.Put("WALLS.LIB", "1\tOuter\r\n\t1\t100\r\n");
  c.Put("MOVEINS.LIB", "1\tThin curtain\t40\t20\t.05\r\n");
  c.Elements({{{8, "1"}}, {{8, "2"}}});
  c.Put("case1/OUTPUT.INP", "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
  Session& session = c.fake.session;
  // The library menu opens the screens.
  StartForm main(session);
  WireCommands(main);
  for (MenuItem* item :
       {&main.M_Glass_Types, &main.M_Gases, &main.M_Windows_9701, &main.M_Window_types}) {
    item->on_click();
  }
  EXPECT_EQ(c.fake.dialogs.shown_forms,
            (std::vector<std::string>{"Glass_types", "Gases", "Wind_Types", "Wind_Types"}));
  Walls screen(session);
  auto dialog = ShowScreen(screen, session);
  ExpectHeadingsFit(*dialog, "WallLayerList");
  EXPECT_EQ(Child<QLineEdit>(*dialog, "UvalueWall")->text(), "3.704");
  EXPECT_EQ(Child<QLabel>(*dialog, "Label4")->text(), QString::fromUtf8("W/m2,°C"));
  Click(*dialog, "Command3D2");
  auto* materials = Child<QListWidget>(*dialog, "MtrlList");
  ASSERT_TRUE(materials->isVisible());
  Shot(*dialog, "Walls_materials");
  // Keys move nothing into the wall; each release of the mouse on a
  // material is a layer, the same material twice included.
  materials->setFocus();
  QTest::keyClick(materials, Qt::Key_Down);
  EXPECT_TRUE(c.asked.empty());
  c.answers = {"20", "30"};
  const QPoint third = materials->visualItemRect(materials->item(2)).center();
  for (int i = 0; i < 2; ++i) QTest::mouseClick(materials->viewport(), Qt::LeftButton, {}, third);
  ASSERT_EQ(c.asked.size(), 2u);
  auto* layers = Child<QTableWidget>(*dialog, "WallLayerList");
  ASSERT_EQ(layers->rowCount(), 4);
  EXPECT_EQ(layers->item(3, 1)->text() + layers->item(3, 3)->text(), "30M3");
  Click(*dialog, "Command3D3");
  EXPECT_FALSE(materials->isVisible());
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t100\r\n\t3\t20\r\n\t3\t30\r\n");
  OpaqueMtrl opaque(session);
  dialog = ShowScreen(opaque, session);
  ExpectHeadingsFit(*dialog, "OpaqueList");

  MoveIns curtains(session);
  dialog = ShowScreen(curtains, session);
  EXPECT_EQ(dialog->windowTitle(), "Interior curtains");
  EXPECT_EQ(Child<QTableWidget>(*dialog, "MoveInsList")->item(1, 1)->text(), "Thin curtain");
  AddMoveIns add(session, curtains, true, "1");
  dialog = ShowScreen(add, session);
  EXPECT_EQ(Child<QLineEdit>(*dialog, "NAmeMI")->maxLength(), 12);

  // A mode and an hour are apart: checking hours keeps the mode. Clicked on
  // their indicators, where a user clicks.
  MISched schedule(session);
  dialog = ShowScreen(schedule, session);
  Click(*dialog, "Option3D1(2)", QPoint(6, 8));
  Click(*dialog, "Check3D1(8)", QPoint(6, 8));
  Shot(*dialog, "MISched");
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "Option3D1(2)")->isChecked());
  EXPECT_EQ(schedule.months()[0].mask, "000000001" + std::string(15, '0'));

  Out_put output(session);
  dialog = ShowScreen(output, session);
  EXPECT_EQ(dialog->windowTitle(), "Output Specification");
  // The comfort buttons are one group; the output type is another.
  Click(*dialog, "Check3D1(1)");
  EXPECT_FALSE(Child<QRadioButton>(*dialog, "Check3D1(0)")->isChecked());
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "Option3D1(2)")->isChecked());
  Click(*dialog, "Check3D8");
  EXPECT_FALSE(Child(*dialog, "Frame2")->isEnabled() || Child(*dialog, "Check3D2(1)")->isEnabled());
}

}  // namespace
}  // namespace zelmo::ui
