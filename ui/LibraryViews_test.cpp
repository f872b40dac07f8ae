// The construction library screens as a user meets them: each window built,
// shown and used through its widgets, the row editors and the input box
// included.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

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
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
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

// Every caption is shown whole, every input lies inside the window, and
// every heading of `grid`, when given, fits its column.
void ExpectWhole(QDialog& dialog, const char* grid = nullptr) {
  for (auto* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << S(label->objectName());
    }
  }
  for (auto* widget : dialog.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
    const QRect area(widget->mapTo(&dialog, QPoint(0, 0)), widget->size());
    EXPECT_TRUE(dialog.rect().contains(area)) << S(widget->objectName());
  }
  auto* table = grid ? Child<QTableWidget>(dialog, grid) : nullptr;
  for (int c = 0; table && c < table->columnCount(); ++c) {
    const QString heading = table->item(0, c)->text();
    EXPECT_LE(table->fontMetrics().horizontalAdvance(heading) + 8, table->columnWidth(c))
        << S(heading);
  }
}

// The screen's window, shown, its picture saved as `shot` and checked whole.
std::unique_ptr<QDialog> Show(Form& form, Session& session, const std::string& shot,
                              const char* grid = nullptr) {
  std::unique_ptr<QDialog> dialog(BuildScreen(form, session));
  EXPECT_TRUE(dialog);
  dialog->show();
  if (!shot.empty()) {
    SaveShot(dialog.get(), shot);
    ExpectWhole(*dialog, grid);
  }
  return dialog;
}

// Runs `act` on the modal window that the next step opens.
void WhenShown(const std::string& shot, std::function<void(QDialog&)> act) {
  QTimer::singleShot(0, [shot, act] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    if (!shot.empty()) {
      SaveShot(dialog, shot);
      ExpectWhole(*dialog);
    }
    act(*dialog);
  });
}

void Type(QDialog& dialog, const char* name, const QString& text) {
  auto* edit = Child<QLineEdit>(dialog, name);
  edit->selectAll();
  QTest::keyClicks(edit, text);
}

void Click(QWidget& dialog, const char* name, QPoint at = {}) {
  QTest::mouseClick(Child<QAbstractButton>(dialog, name), Qt::LeftButton, {}, at);
}

void Choose(QDialog& dialog, const char* name, const char* item) {
  auto* combo = Child<QComboBox>(dialog, name);
  const int index = combo->findText(item);
  ASSERT_GE(index, 0) << item;
  combo->setCurrentIndex(index);
  emit combo->activated(index);
}

// The input box answers `name`.
void Answer(const char* name) {
  WhenShown("", [name](QDialog& box) {
    Type(box, "Text1", name);
    Click(box, "Command1");
  });
}

TEST(LibraryViews, GlassOfEachTypeAGasAndAWindowOfTwoPanes) {
  TestApp();
  testing::LibraryCase c;
  QtDialogs dialogs(c.fake.session);
  Session& session = c.fake.session;
  session.dialogs = &dialogs;

  Glass_types glass(session);
  {
    auto shown = Show(glass, session, "Glass_types");
    QDialog& d = *shown;
    EXPECT_EQ(d.windowTitle(), "Glass types");
    Answer("Tab1");
    Click(d, "Command1");
    for (const char* row : {"80 8 8", "0 100 100"}) {
      WhenShown("AddAngle", [row](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Add data");
        const QStringList values = QString(row).split(' ');
        for (int i = 0; i < 3; ++i) Type(box, std::array{"transm", "Absf", "Absb"}[i], values[i]);
        Click(box, "Command1");
      });
      Click(d, "Command4");
    }
    auto* grid = Child<QTableWidget>(d, "Grid1");
    EXPECT_EQ(grid->item(2, 0)->text(), " 90");
    Answer("Fres2");
    Click(d, "Command1");
    Choose(d, "Combo1", "2");
    EXPECT_FALSE(grid->isVisible());
    Type(d, "Text3", "4");
    Type(d, "Text4", "1.526");
    Type(d, "Text5", "25");
    SaveShot(&d, "Glass_types_2");
    ExpectWhole(d);
    Answer("Norm3");
    Click(d, "Command1");
    Choose(d, "Combo1", "3");
    Type(d, "Text3", "60");
    Type(d, "Text4", "20");
    SaveShot(&d, "Glass_types_3");
    ExpectWhole(d);
    Click(d, "Command3");
    EXPECT_TRUE(glass.unloaded);
  }
  EXPECT_NE(c.Bytes("GLASSTP.INP").find("Norm3\t87\t87\t3\t60\t20\t\t 0\t"), std::string::npos);

  Gases gases(session);
  {
    auto shown = Show(gases, session, "Gases");
    WhenShown("Addgas", [](QDialog& box) {
      const char* values[] = {"CO2", "0.0146", "5e-5", "1.5e-5", "5e-8",
                              "1.8", "-0.006", "0.77", "-2e-4"};
      for (int i = 0; i < kGasFields; ++i) Type(box, kGasColumns[i].name, values[i]);
      Click(box, "OK");
    });
    Click(*shown, "Command4");
    EXPECT_EQ(Child<QTableWidget>(*shown, "Grid1")->item(6, 0)->text(), "CO2");
    Click(*shown, "Command1");
  }
  EXPECT_NE(c.Bytes("GASTP.INP").find("CO2\t0.0146\t5e-5\t"), std::string::npos);

  Wind_Types windows(session);
  {
    auto shown = Show(windows, session, "");
    QDialog& d = *shown;
    Answer("Tab2Gap");
    Click(d, "Command1");
    EXPECT_EQ(d.windowTitle(), "Window types (Tab2Gap)");
    WhenShown("", [](QDialog& box) {
      EXPECT_FALSE(Child(box, "Combo2")->isEnabled());
      Choose(box, "Combo1", "Tab1");
      Click(box, "Command1");
    });
    Click(d, "Command6");
    WhenShown("AddGaGl", [](QDialog& box) {
      Choose(box, "Combo1", "Fres2");
      Choose(box, "Combo2", "CO2");
      Type(box, "Text1", "12");
      Click(box, "Check1", QPoint(5, 5));
      EXPECT_EQ(Child<QLabel>(box, "Label5")->text(), "(Reversed coating) ");
      Click(box, "Command1");
    });
    Click(d, "Command6");
    SaveShot(&d, "Wind_Types");
    ExpectWhole(d);
    EXPECT_EQ(Child<QTableWidget>(d, "Grid1")->item(2, 2)->text(), "CO2");
    // Choosing a type writes Wndw.Lib for the project.
    Child<QListWidget>(d, "List1")->setCurrentRow(1);
    EXPECT_EQ(d.windowTitle(), "Window types (Double4-12-4)");
    // Without the calculation the properties stay empty.
    EXPECT_EQ(Child<QLineEdit>(d, "UValue")->text(), "");
    Click(d, "Command3");
    EXPECT_TRUE(windows.unloaded);
  }
  EXPECT_NE(c.Bytes("WNDTP.LIB").find("7\tTab2Gap\t 2\tTab1\tNo\t12\tCO2\tFres2\tYes\t\t"),
            std::string::npos);
  const std::string library = c.Bytes("Wndw.Lib");
  for (const char* part :
       {"11 ! Number of glass types\r\n", "Fres2  0.87  0.87 2\r\n    4.00    1.53   25.00\r\n",
        "6 ! Number of gas types", "7 ! Number of window types\r\n",
        " Tab2Gap 2\r\n Tab1 0\r\n 12 CO2\r\n Fres2 1\r\n \r\n"}) {
    EXPECT_NE(library.find(part), std::string::npos) << part;
  }
  EXPECT_TRUE(c.AllStale());
}

TEST(LibraryViews, TheLibraryMenuOpensTheThreeScreens) {
  testing::LibraryCase c;
  StartForm main(c.fake.session);
  WireCommands(main);
  for (MenuItem* item :
       {&main.M_Glass_Types, &main.M_Gases, &main.M_Windows_9701, &main.M_Window_types}) {
    item->on_click();
  }
  EXPECT_EQ(c.fake.dialogs.shown_forms,
            (std::vector<std::string>{"Glass_types", "Gases", "Wind_Types", "Wind_Types"}));
}

TEST(WallsView, AMaterialClickedBecomesALayerAndEveryHeadingIsWhole) {
  TestApp();
  testing::LibraryCase c;
  c.Put("OPAQUE.LIB", testing::Materials(3));
  c.Put("WALLS.LIB", "1\tOuter\r\n\t1\t100\r\n");
  Walls screen(c.fake.session);
  auto dialog = Show(screen, c.fake.session, "Walls", "WallLayerList");
  EXPECT_EQ(dialog->windowTitle(), "Walls / Floors / Roofs / Doors (Outer)");
  EXPECT_EQ(Child<QLineEdit>(*dialog, "UvalueWall")->text(), "3.704");
  EXPECT_EQ(Child<QLabel>(*dialog, "Label4")->text(), QString::fromUtf8("W/m2,°C"));
  Click(*dialog, "Command3D2");
  auto* materials = Child<QListWidget>(*dialog, "MtrlList");
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
  auto* layers = Child<QTableWidget>(*dialog, "WallLayerList");
  ASSERT_EQ(layers->rowCount(), 4);
  EXPECT_EQ(layers->item(3, 1)->text() + layers->item(3, 3)->text(), "30M3");
  Click(*dialog, "Command3D3");
  EXPECT_FALSE(materials->isVisible());
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t100\r\n\t3\t20\r\n\t3\t30\r\n");
  OpaqueMtrl opaque(c.fake.session);
  Show(opaque, c.fake.session, "OpaqueMtrl", "OpaqueList");
}

TEST(CurtainViews, CurtainsScheduleAndOutputAsTheUserSeesThem) {
  TestApp();
  testing::LibraryCase c(false);
  c.Put("MOVEINS.LIB", "1\tThin curtain\t40\t20\t.05\r\n");
  c.Elements({{{8, "1"}}, {{8, "2"}}});
  c.Put("case1/OUTPUT.INP", "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
  Session& session = c.fake.session;
  MoveIns curtains(session);
  auto dialog = Show(curtains, session, "MoveIns");
  EXPECT_EQ(dialog->windowTitle(), "Interior curtains");
  EXPECT_EQ(Child<QTableWidget>(*dialog, "MoveInsList")->item(1, 1)->text(), "Thin curtain");
  AddMoveIns add(session, curtains, true, "1");
  dialog = Show(add, session, "AddMoveIns");
  EXPECT_EQ(Child<QLineEdit>(*dialog, "NAmeMI")->maxLength(), 12);

  // A mode and an hour are apart: checking hours keeps the mode. Clicked on
  // their indicators, where a user clicks.
  MISched schedule(session);
  dialog = Show(schedule, session, "");
  Click(*dialog, "Option3D1(2)", QPoint(6, 8));
  Click(*dialog, "Check3D1(8)", QPoint(6, 8));
  SaveShot(dialog.get(), "MISched");
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "Option3D1(2)")->isChecked());
  EXPECT_EQ(schedule.months()[0].mask, "000000001" + std::string(15, '0'));

  Out_put output(session);
  dialog = Show(output, session, "Out_put");
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
