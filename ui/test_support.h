// For the tests of the views: one application for the test program, and
// screenshots of a window when ZELMO_SHOT_DIR names a folder.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/session.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

inline QApplication& TestApp() {
  static int argc = 1;
  static char name[] = "zelmo-test";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    auto* created = new QApplication(argc, argv);
    RegisterAllViews();
    return created;
  }();
  return *app;
}

inline void SaveShot(QWidget* widget, const std::string& name) {
  QByteArray dir = qgetenv("ZELMO_SHOT_DIR");
  if (dir.isEmpty() || !widget) return;
  widget->grab().save(QString::fromLocal8Bit(dir) + "/" + QString::fromStdString(name) + ".png");
}

// Every caption of a window is shown whole and every input lies inside it.
inline void ExpectWhole(QWidget& dialog) {
  for (auto* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->wordWrap()) {
      EXPECT_GE(label->width(), label->sizeHint().width()) << S(label->objectName());
    }
  }
  for (auto* widget : dialog.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
    const QRect area(widget->mapTo(&dialog, QPoint(0, 0)), widget->size());
    EXPECT_TRUE(dialog.rect().contains(area)) << S(widget->objectName());
  }
}

// A screen's window, built and shown with its picture saved: it bears the
// screen's caption, a widget for every control, every caption whole and
// every input inside the window.
inline std::unique_ptr<QDialog> ShowScreen(Form& form, Session& session) {
  TestApp();
  std::unique_ptr<QDialog> dialog(BuildScreen(form, session));
  EXPECT_TRUE(dialog) << form.name();
  if (!dialog) return dialog;
  dialog->show();
  SaveShot(dialog.get(), form.name());
  EXPECT_EQ(S(dialog->windowTitle()), form.caption);
  // The window is wide enough for its whole title, set in bold.
  QFont bold = dialog->font();
  bold.setBold(true);
  EXPECT_GE(dialog->width(), QFontMetrics(bold).horizontalAdvance(dialog->windowTitle()))
      << form.name();
  // A centred screen is centred by the size it is shown at.
  if (form.centered) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(dialog->x(), screen.x() + (screen.width() - dialog->width()) / 2) << form.name();
  }
  for (const Control* control : form.controls()) {
    EXPECT_TRUE(dialog->findChild<QWidget*>(Q(control->name()))) << control->name();
  }
  ExpectWhole(*dialog);
  return dialog;
}

// Clicks the item of a list that shows `text`.
inline void ClickItem(QListWidget* list, const QString& text) {
  auto found = list->findItems(text, Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1) << S(text);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found[0]).center());
}

// The cells of a table widget, a string a row with its cells joined by "|".
inline std::vector<std::string> Cells(const QTableWidget* table) {
  std::vector<std::string> rows;
  for (int r = 0; r < table->rowCount(); ++r) {
    QStringList row;
    for (int c = 0; c < table->columnCount(); ++c) {
      row << (table->item(r, c) ? table->item(r, c)->text() : QString());
    }
    rows.push_back(S(row.join("|")));
  }
  return rows;
}

}  // namespace zelmo::ui
