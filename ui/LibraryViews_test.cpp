// The glass, gas and window type screens as a user meets them: each window
// built, shown and used through its widgets, the row editors and the input
// box included.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "libraries/gas_screen.h"
#include "libraries/glass_types_screen.h"
#include "libraries/library_test_case.h"
#include "libraries/window_types_screen.h"
#include "ui/commands.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"
#include "workspace/start_form.h"

namespace zelmo::ui {
namespace {

// Every caption is shown whole and every input lies inside the window.
void ExpectWhole(QDialog& dialog) {
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

void Type(QDialog& dialog, const char* name, const char* text) {
  auto* edit = dialog.findChild<QLineEdit*>(name);
  ASSERT_TRUE(edit) << name;
  edit->selectAll();
  QTest::keyClicks(edit, text);
}

void Click(QDialog& dialog, const char* name) {
  auto* button = dialog.findChild<QPushButton*>(name);
  ASSERT_TRUE(button) << name;
  QTest::mouseClick(button, Qt::LeftButton);
}

void Choose(QDialog& dialog, const char* name, const char* item) {
  auto* combo = dialog.findChild<QComboBox*>(name);
  ASSERT_TRUE(combo) << name;
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

struct Shown {
  Shown(Form& form, Session& session) : dialog(BuildScreen(form, session)) {
    EXPECT_TRUE(dialog);
    dialog->show();
  }
  std::unique_ptr<QDialog> dialog;
};

TEST(LibraryViews, GlassOfEachTypeAGasAndAWindowOfTwoPanes) {
  TestApp();
  testing::LibraryCase c;
  QtDialogs dialogs(c.fake.session);
  Session& session = c.fake.session;
  session.dialogs = &dialogs;

  Glass_types glass(session);
  {
    Shown shown(glass, session);
    QDialog& d = *shown.dialog;
    SaveShot(&d, "Glass_types");
    ExpectWhole(d);
    EXPECT_EQ(d.windowTitle(), "Glass types");
    Answer("Tab1");
    Click(d, "Command1");
    for (const char* row : {"80 8 8", "0 100 100"}) {
      WhenShown("AddAngle", [row](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Add data");
        const QStringList values = QString(row).split(' ');
        Type(box, "transm", values[0].toLatin1());
        Type(box, "Absf", values[1].toLatin1());
        Type(box, "Absb", values[2].toLatin1());
        Click(box, "Command1");
      });
      Click(d, "Command4");
    }
    auto* grid = d.findChild<QTableWidget*>("Grid1");
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
    Shown shown(gases, session);
    QDialog& d = *shown.dialog;
    SaveShot(&d, "Gases");
    ExpectWhole(d);
    WhenShown("Addgas", [](QDialog& box) {
      const char* values[] = {"CO2", "0.0146", "5e-5", "1.5e-5", "5e-8",
                              "1.8", "-0.006", "0.77", "-2e-4"};
      const char* names[] = {"namegas", "k", "dk", "u", "du", "r", "dr", "p", "dp"};
      for (int i = 0; i < 9; ++i) Type(box, names[i], values[i]);
      Click(box, "OK");
    });
    Click(d, "Command4");
    EXPECT_EQ(d.findChild<QTableWidget*>("Grid1")->item(6, 0)->text(), "CO2");
    Click(d, "Command1");
  }
  EXPECT_NE(c.Bytes("GASTP.INP").find("CO2\t0.0146\t5e-5\t"), std::string::npos);

  Wind_Types windows(session);
  {
    Shown shown(windows, session);
    QDialog& d = *shown.dialog;
    Answer("Tab2Gap");
    Click(d, "Command1");
    EXPECT_EQ(d.windowTitle(), "Window types (Tab2Gap)");
    WhenShown("", [](QDialog& box) {
      EXPECT_FALSE(box.findChild<QComboBox*>("Combo2")->isEnabled());
      Choose(box, "Combo1", "Tab1");
      Click(box, "Command1");
    });
    Click(d, "Command6");
    WhenShown("AddGaGl", [](QDialog& box) {
      Choose(box, "Combo1", "Fres2");
      Choose(box, "Combo2", "CO2");
      Type(box, "Text1", "12");
      QTest::mouseClick(box.findChild<QCheckBox*>("Check1"), Qt::LeftButton,
                        Qt::KeyboardModifiers(), QPoint(5, 5));
      EXPECT_EQ(box.findChild<QLabel*>("Label5")->text(), "(Reversed coating) ");
      Click(box, "Command1");
    });
    Click(d, "Command6");
    SaveShot(&d, "Wind_Types");
    ExpectWhole(d);
    EXPECT_EQ(d.findChild<QTableWidget*>("Grid1")->item(2, 2)->text(), "CO2");
    // Choosing a type writes Wndw.Lib for the project.
    d.findChild<QListWidget*>("List1")->setCurrentRow(1);
    EXPECT_EQ(d.windowTitle(), "Window types (Double4-12-4)");
    // Without the calculation the properties stay empty.
    EXPECT_EQ(d.findChild<QLineEdit*>("UValue")->text(), "");
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

}  // namespace
}  // namespace zelmo::ui
