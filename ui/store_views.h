// The parts the views of the project and case screens are made of: a label,
// a text field, a list and the row of buttons under them.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <initializer_list>

#include "core/controls.h"

namespace zelmo::ui {

// A caption above or beside what it names.
void AddCaption(QDialog& dialog, QBoxLayout* layout, const Control& label);
// A one-line text field with its caption in front.
void AddField(QDialog& dialog, QBoxLayout* layout, const Control& label, const Control& field);
// The list of projects or cases, `rows` items high.
void AddList(QDialog& dialog, QBoxLayout* layout, const Control& list, int rows);
// The buttons, right-aligned in one row.
void AddButtons(QDialog& dialog, QBoxLayout* layout, std::initializer_list<const Control*> buttons);

}  // namespace zelmo::ui
