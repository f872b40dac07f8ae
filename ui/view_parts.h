// The parts the views are made of: widgets named after their controls, a
// label, a text field, a list and the row of buttons under them.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QString>
#include <QTableWidget>
#include <initializer_list>
#include <string>

#include "core/controls.h"

namespace zelmo::ui {

// A widget named after its control; the binder fills its texts.
template <typename W>
W* Named(QWidget* parent, const char* name) {
  auto* widget = new W(parent);
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}
template <typename W>
W* Named(QWidget* parent, const Control& control) {
  return Named<W>(parent, control.name().c_str());
}

// A caption above or beside what it names.
void AddCaption(QDialog& dialog, QBoxLayout* layout, const Control& label);
// A one-line text field with its caption in front.
void AddField(QDialog& dialog, QBoxLayout* layout, const Control& label, const Control& field);
// The list of projects or cases, `rows` items high.
void AddList(QDialog& dialog, QBoxLayout* layout, const Control& list, int rows);
// A grid the user reads and clicks but does not type into, one cell chosen
// at a time: its header line is its own first row.
QTableWidget* ReadOnlyGrid(QDialog& dialog, const Grid& grid);
// The same, as wide as its columns and `rows` rows high, added to `layout`.
QTableWidget* AddReadOnlyGrid(QDialog& dialog, QBoxLayout* layout, const Grid& grid, int rows);
// The width a window needs for its title bar to show `title` whole: the text
// in a bold face of the window's font, as title bars set it, with room for
// the icon and the three buttons beside it.
int TitleBarWidth(const QWidget& window, const QString& title);
// Widens a window too narrow for its title; a window of fixed size stays
// fixed at the new width.
void FitTitle(QWidget& window);
// The buttons, right-aligned in one row.
void AddButtons(QDialog& dialog, QBoxLayout* layout, std::initializer_list<const Control*> buttons);

}  // namespace zelmo::ui
