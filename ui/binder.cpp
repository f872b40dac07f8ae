#include "ui/binder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QWidget>
#include <algorithm>

#include "core/dialogs.h"
#include "core/guard.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"

namespace zelmo::ui {

namespace {
// Set on a widget whose colours the binder gave from its control.
constexpr char kColoursSet[] = "zelmoColoursSet";
}  // namespace

namespace {

// Room beside a cell's text: the item's margins and the grid line.
constexpr int kCellPadding = 12;

constexpr const char* kRowAtPress = "zelmoRowAtPress";

QColor ColorOf(int rgb) { return QColor(rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF); }

QStringList ItemsOf(const Control& control) {
  QStringList items;
  for (const auto& item : control.items) items << Q(item);
  return items;
}

int KeyCode(const QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Backspace:
      return keys::kBack;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return keys::kReturn;
    case Qt::Key_Escape:
      return keys::kEscape;
    case Qt::Key_Tab:
      return keys::kTab;
    case Qt::Key_Delete:
      return keys::kDelete;
    case Qt::Key_Home:
      return keys::kHome;
    case Qt::Key_PageUp:
      return keys::kPageUp;
    case Qt::Key_PageDown:
      return keys::kPageDown;
    case Qt::Key_End:
      return keys::kEnd;
    case Qt::Key_Left:
      return keys::kLeft;
    case Qt::Key_Right:
      return keys::kRight;
    case Qt::Key_Up:
      return keys::kUp;
    case Qt::Key_Down:
      return keys::kDown;
    default:
      break;
  }
  std::string typed = S(event->text());
  if (typed.size() == 1) return static_cast<unsigned char>(typed[0]);
  return 0;
}

}  // namespace

Binder::Binder(Form& form, QWidget* root, Dialogs& dialogs, std::function<void()> on_unload)
    : QObject(root), form_(form), root_(root), dialogs_(dialogs), on_unload_(std::move(on_unload)) {
  for (Control* control : form_.controls()) {
    QObject* object = nullptr;
    if (control->kind() == ControlKind::kMenu) {
      object = root_->findChild<QAction*>(Q(control->name()));
    } else {
      object = root_->findChild<QWidget*>(Q(control->name()));
    }
    if (!object) continue;
    pairs_.push_back({control, object});
    Connect(control, object);
  }
  form_.refresh = [this] { Sync(); };
}

QObject* Binder::WidgetOf(const Control* control) const {
  for (const auto& pair : pairs_) {
    if (pair.control == control) return pair.object;
  }
  return nullptr;
}

Control* Binder::ControlOf(QObject* object) const {
  for (const auto& pair : pairs_) {
    if (pair.object == object) return pair.control;
  }
  return nullptr;
}

Binder::~Binder() { form_.refresh = nullptr; }

void Binder::Fire(const std::function<void()>& event) {
  if (!event) return;
  bool outer = !firing_;
  firing_ = true;
  RunGuarded(dialogs_, event);
  if (outer) firing_ = false;
  Sync();
  if (form_.unloaded && on_unload_) on_unload_();
}

void Binder::Connect(Control* control, QObject* object) {
  auto fire = [this](const std::function<void()>& handler) {
    if (!syncing_ && handler) Fire(handler);
  };
  if (auto* action = qobject_cast<QAction*>(object)) {
    connect(action, &QAction::triggered, this, [control, fire] { fire(control->on_click); });
    return;
  }
  auto* widget = qobject_cast<QWidget*>(object);
  widget->installEventFilter(this);
  if (auto* button = qobject_cast<QPushButton*>(widget)) {
    connect(button, &QPushButton::clicked, this, [control, fire] { fire(control->on_click); });
  } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
    connect(check, &QCheckBox::clicked, this, [this, control, check, fire] {
      if (syncing_) return;
      control->value = check->isChecked() ? 1 : 0;
      fire(control->on_click);
    });
  } else if (auto* option = qobject_cast<QRadioButton*>(widget)) {
    connect(option, &QRadioButton::clicked, this, [this, control, option, fire] {
      if (syncing_) return;
      // Options that share a container are one group.
      for (const auto& pair : pairs_) {
        auto* other = qobject_cast<QRadioButton*>(pair.object);
        if (other && other != option && other->parentWidget() == option->parentWidget()) {
          pair.control->value = 0;
        }
      }
      control->value = 1;
      fire(control->on_click);
    });
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    connect(line, &QLineEdit::textEdited, this, [this, control, fire](const QString& text) {
      if (syncing_) return;
      control->text = S(text);
      fire(control->on_change);
    });
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
    connect(plain, &QPlainTextEdit::textChanged, this, [this, control, plain, fire] {
      if (syncing_ || plain->isReadOnly()) return;
      std::string text = S(plain->toPlainText());
      std::string crlf;
      for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
      }
      control->text = crlf;
      fire(control->on_change);
    });
  } else if (auto* clicked = qobject_cast<QListWidget*>(widget);
             clicked && clicked->property(kClickOnRelease).toBool()) {
    connect(clicked, &QListWidget::itemClicked, this,
            [this, control, clicked, fire](QListWidgetItem* item) {
              if (syncing_) return;
              control->list_index = clicked->row(item);
              fire(control->on_click);
            });
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    connect(list, &QListWidget::currentRowChanged, this, [this, control, list, fire](int row) {
      if (syncing_) return;
      control->list_index = row;
      fire(control->on_click);
      // A click goes on to select the row it pressed after this signal, so a
      // row that the model refused is put back once the click is over.
      if (control->list_index != row) {
        QTimer::singleShot(0, list, [this, control, list] {
          if (syncing_) return;
          syncing_ = true;
          SyncOne(control, list);
          syncing_ = false;
        });
      }
    });
    // A click that selects a new item has already fired through the row
    // change; a click on the item that was already selected is still a click.
    list->viewport()->installEventFilter(this);
    connect(list, &QListWidget::itemClicked, this,
            [this, control, list, fire](QListWidgetItem* item) {
              if (syncing_) return;
              const int row = list->row(item);
              if (row == list->currentRow() && row == list->property(kRowAtPress).toInt()) {
                fire(control->on_click);
              }
            });
    connect(list, &QListWidget::itemDoubleClicked, this,
            [control, fire](QListWidgetItem*) { fire(control->on_dbl_click); });
  } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    connect(combo, &QComboBox::activated, this, [this, control, combo, fire](int index) {
      if (syncing_) return;
      control->list_index = index;
      control->text = S(combo->itemText(index));
      fire(control->on_click);
    });
    if (combo->isEditable()) {
      connect(combo, &QComboBox::editTextChanged, this, [this, control, fire](const QString& text) {
        if (syncing_) return;
        control->text = S(text);
        fire(control->on_change);
      });
    }
  } else if (auto* spin = qobject_cast<QScrollBar*>(widget)) {
    // A spin's upper arrow counts up: the bar runs over the negated values,
    // since a scroll bar's upper arrow counts down.
    connect(spin, &QScrollBar::valueChanged, this, [this, control, fire](int value) {
      if (syncing_ || -value == control->value) return;
      control->value = -value;
      fire(control->on_change);
    });
  } else if (auto* table = qobject_cast<QTableWidget*>(widget)) {
    auto* grid = static_cast<Grid*>(control);
    connect(table, &QTableWidget::currentCellChanged, this,
            [this, grid, fire](int row, int col, int, int) {
              if (syncing_ || row < 0) return;
              grid->row = row;
              grid->col = col;
              grid->row_sel = row;
              grid->col_sel = col;
              fire(grid->on_change);
            });
    connect(table, &QTableWidget::cellClicked, this, [this, grid, fire](int row, int col) {
      if (syncing_) return;
      grid->row = row;
      grid->col = col;
      fire(grid->on_click);
    });
    connect(table, &QTableWidget::cellDoubleClicked, this, [this, grid, fire](int row, int col) {
      if (syncing_) return;
      grid->row = row;
      grid->col = col;
      fire(grid->on_dbl_click);
    });
    // A grid that lets the mouse select several cells hears where a drag
    // ended, once the button is released.
    if (table->selectionMode() != QAbstractItemView::SingleSelection) {
      table->viewport()->installEventFilter(this);
    }
    connect(table, &QTableWidget::cellChanged, this, [this, grid, table](int row, int col) {
      if (syncing_) return;
      grid->Cell(row, col) = S(table->item(row, col)->text());
      if (grid->on_cell_changed) Fire([grid, row, col] { grid->on_cell_changed(row, col); });
    });
  }
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    if (auto* list = qobject_cast<QListWidget*>(watched->parent());
        list && list->viewport() == watched) {
      list->setProperty(kRowAtPress, list->currentRow());
    }
  }
  if (event->type() == QEvent::MouseButtonRelease && !syncing_) {
    if (auto* table = qobject_cast<QTableWidget*>(watched->parent());
        table && table->viewport() == watched) {
      DragEnded(*table, static_cast<QMouseEvent*>(event)->position().toPoint());
    }
  }
  Control* control = ControlOf(watched);
  if (!control || syncing_) return QObject::eventFilter(watched, event);
  // A disabled widget still hands its mouse events to the filters; a greyed
  // label must not run its command.
  auto* label = qobject_cast<QLabel*>(watched);
  const bool clickable = label && label->isEnabled();
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (clickable && control->on_click) {
        Fire(control->on_click);
        return true;
      }
      break;
    case QEvent::MouseButtonDblClick:
      if (clickable && control->on_dbl_click) {
        Fire(control->on_dbl_click);
        return true;
      }
      break;
    case QEvent::FocusIn:
      if (control->on_got_focus) Fire(control->on_got_focus);
      break;
    case QEvent::FocusOut:
      if (control->on_lost_focus) Fire(control->on_lost_focus);
      break;
    case QEvent::KeyPress:
      if (control->on_key_press) {
        int key = KeyCode(static_cast<QKeyEvent*>(event));
        if (key == 0) break;
        int kept = key;
        Fire([control, &kept] { control->on_key_press(kept); });
        if (kept == 0) return true;
      }
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void Binder::DragEnded(QTableWidget& table, const QPoint& at) {
  auto* grid = static_cast<Grid*>(ControlOf(&table));
  const QList<QTableWidgetSelectionRange> ranges = table.selectedRanges();
  if (!grid || ranges.size() != 1 || ranges[0].rowCount() * ranges[0].columnCount() < 2) return;
  const QTableWidgetSelectionRange& range = ranges[0];
  const QModelIndex end = table.indexAt(at);
  // Released outside the cells, the drag ends at the corner of the
  // selection away from where it started.
  grid->row_sel = end.isValid()                 ? end.row()
                  : grid->row == range.topRow() ? range.bottomRow()
                                                : range.topRow();
  grid->col_sel = end.isValid()                     ? end.column()
                  : grid->col == range.leftColumn() ? range.rightColumn()
                                                    : range.leftColumn();
  if (grid->on_sel_change) Fire(grid->on_sel_change);
}

void Binder::SyncHeading(const Grid& grid, QTableWidget& table) {
  for (int r = 0; r < grid.fixed_rows && r < grid.rows(); ++r) {
    if (!table.isRowHidden(r)) table.setRowHidden(r, true);
  }
  for (int c = 0; c < grid.cols(); ++c) {
    const QString text = grid.rows() > 0 ? Q(grid.Cell(0, c)) : QString();
    QTableWidgetItem* heading = table.horizontalHeaderItem(c);
    if (!heading) {
      table.setHorizontalHeaderItem(c, new QTableWidgetItem(text));
    } else if (heading->text() != text) {
      heading->setText(text);
    }
  }
}

void Binder::Sync() {
  syncing_ = true;
  // A screen may retitle itself, as the element screens do with the name of
  // the element shown.
  if (root_->isWindow() && !form_.caption.empty() &&
      root_->windowTitle() != WindowTitle(form_.caption)) {
    root_->setWindowTitle(WindowTitle(form_.caption));
  }
  // Every window shows its whole title, a longer one given later too.
  if (root_->isWindow()) FitTitle(*root_);
  for (const auto& pair : pairs_) {
    if (pair.object) SyncOne(pair.control, pair.object);
  }
  if (!form_.focus.empty()) {
    Control* control = form_.Find(form_.focus);
    form_.focus.clear();
    if (QObject* object = control ? WidgetOf(control) : nullptr) {
      if (auto* widget = qobject_cast<QWidget*>(object)) {
        widget->setFocus(Qt::OtherFocusReason);
        if (auto* line = qobject_cast<QLineEdit*>(widget)) {
          line->setSelection(control->sel_start, control->sel_length);
        }
      }
    }
  }
  syncing_ = false;
}

void Binder::SyncOne(Control* control, QObject* object) {
  if (auto* action = qobject_cast<QAction*>(object)) {
    if (!control->caption.empty()) action->setText(Q(control->caption));
    action->setEnabled(control->enabled);
    action->setVisible(control->visible);
    return;
  }
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget->isEnabled() != control->enabled) widget->setEnabled(control->enabled);
  if (widget->isVisibleTo(widget->parentWidget()) != control->visible) {
    widget->setVisible(control->visible);
  }
  QString tip = Q(control->tool_tip);
  if (widget->toolTip() != tip) widget->setToolTip(tip);
  if (control->fore_color != kDefaultColor || control->back_color != kDefaultColor) {
    QPalette palette = widget->palette();
    if (control->fore_color != kDefaultColor) {
      // A disabled control greys its text whatever its own colour.
      for (auto group : {QPalette::Active, QPalette::Inactive}) {
        for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
          palette.setColor(group, role, ColorOf(control->fore_color));
        }
      }
    }
    if (control->back_color != kDefaultColor) {
      widget->setAutoFillBackground(true);
      palette.setColor(QPalette::Window, ColorOf(control->back_color));
      palette.setColor(QPalette::Base, ColorOf(control->back_color));
    }
    widget->setPalette(palette);
    widget->setProperty(kColoursSet, true);
  } else if (widget->property(kColoursSet).toBool()) {
    // Back to the default colours; a palette the view gave is the view's.
    widget->setPalette(QPalette());
    widget->setProperty(kColoursSet, false);
  }

  if (auto* label = qobject_cast<QLabel*>(widget)) {
    QString caption = Shown(control->caption);
    if (label->text() != caption) label->setText(caption);
  } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
    button->setText(Q(control->caption));
  } else if (auto* check = qobject_cast<QCheckBox*>(widget)) {
    if (!control->caption.empty()) check->setText(Q(control->caption));
    check->setChecked(control->value != 0);
  } else if (auto* option = qobject_cast<QRadioButton*>(widget)) {
    if (!control->caption.empty()) option->setText(Q(control->caption));
    option->setAutoExclusive(false);
    option->setChecked(control->value != 0);
  } else if (auto* group = qobject_cast<QGroupBox*>(widget)) {
    group->setTitle(Q(control->caption));
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    QString text = Q(control->text);
    if (line->text() != text) line->setText(text);
    // Setting the maximum length puts the text again and loses the cursor and
    // the selection, so it is set only when it changes.
    const int max_length = control->max_length > 0 ? control->max_length : 32767;
    if (line->maxLength() != max_length) line->setMaxLength(max_length);
    const auto echo = control->password_char ? QLineEdit::Password : QLineEdit::Normal;
    if (line->echoMode() != echo) line->setEchoMode(echo);
    if (line->isReadOnly() != control->locked) line->setReadOnly(control->locked);
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
    QString text = Shown(control->text);
    if (plain->toPlainText() != text) plain->setPlainText(text);
    plain->setReadOnly(control->locked);
  } else if (auto* list = qobject_cast<QListWidget*>(widget)) {
    QStringList items = ItemsOf(*control);
    bool same = list->count() == items.size();
    for (int i = 0; same && i < items.size(); ++i) same = list->item(i)->text() == items[i];
    if (!same) {
      list->clear();
      list->addItems(items);
    }
    QListWidgetItem* chosen = list->item(control->list_index);
    if (list->currentRow() != control->list_index || (chosen && !chosen->isSelected())) {
      list->setCurrentRow(control->list_index, QItemSelectionModel::ClearAndSelect);
    }
  } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    QStringList items = ItemsOf(*control);
    bool same = combo->count() == items.size();
    for (int i = 0; same && i < items.size(); ++i) same = combo->itemText(i) == items[i];
    if (!same) {
      combo->clear();
      combo->addItems(items);
    }
    if (combo->currentIndex() != control->list_index) combo->setCurrentIndex(control->list_index);
    if (combo->isEditable() && combo->currentText() != Q(control->text)) {
      combo->setEditText(Q(control->text));
    }
  } else if (auto* spin = qobject_cast<QScrollBar*>(widget)) {
    if (control->kind() == ControlKind::kSpin) {
      const auto& range = static_cast<const SpinButton&>(*control);
      if (spin->minimum() != -range.max || spin->maximum() != -range.min) {
        spin->setRange(-range.max, -range.min);
      }
    }
    if (spin->value() != -control->value) spin->setValue(-control->value);
  } else if (auto* table = qobject_cast<QTableWidget*>(widget)) {
    auto* grid = static_cast<Grid*>(control);
    if (table->rowCount() != grid->rows()) table->setRowCount(grid->rows());
    if (table->columnCount() != grid->cols()) table->setColumnCount(grid->cols());
    if (table->property(kHeadingInHeader).toBool()) SyncHeading(*grid, *table);
    for (int r = 0; r < grid->rows(); ++r) {
      for (int c = 0; c < grid->cols(); ++c) {
        QString text = Q(grid->Cell(r, c));
        QTableWidgetItem* item = table->item(r, c);
        if (!item) {
          item = new QTableWidgetItem(text);
          bool fixed = r < grid->fixed_rows || c < grid->fixed_cols;
          Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
          if (grid->editable && !fixed) flags |= Qt::ItemIsEditable;
          item->setFlags(flags);
          if (fixed) item->setBackground(table->palette().button());
          if (c < static_cast<int>(grid->col_centered.size()) && grid->col_centered[c]) {
            item->setTextAlignment(Qt::AlignCenter);
          }
          table->setItem(r, c, item);
        } else if (item->text() != text) {
          item->setText(text);
        }
        // A cell of its own colour; the others keep the grid's.
        const int color = grid->CellBackColor(r, c);
        if (color != kDefaultColor) {
          if (item->background().color() != ColorOf(color)) item->setBackground(ColorOf(color));
        } else if (item->data(Qt::BackgroundRole).isValid() &&
                   !(r < grid->fixed_rows || c < grid->fixed_cols)) {
          item->setData(Qt::BackgroundRole, QVariant());
        }
      }
    }
    // The widths are the system's, made for its font; a caption in a fixed
    // row or column is still shown whole in the font the grid has here.
    const QFontMetrics metrics(table->font());
    for (int c = 0; c < grid->cols() && c < static_cast<int>(grid->col_widths.size()); ++c) {
      if (grid->col_widths[c] <= 0) continue;
      // Narrower than a pixel: a column for the program's own use.
      const bool hidden = Px(grid->col_widths[c]) == 0;
      if (table->isColumnHidden(c) != hidden) table->setColumnHidden(c, hidden);
      if (hidden) continue;
      int width = Px(grid->col_widths[c]);
      for (int r = 0; r < grid->rows(); ++r) {
        if (r >= grid->fixed_rows && c >= grid->fixed_cols) continue;
        width = std::max(width, metrics.horizontalAdvance(Q(grid->Cell(r, c))) + kCellPadding);
      }
      if (table->columnWidth(c) != width) table->setColumnWidth(c, width);
    }
    if (grid->row >= 0 && grid->row < grid->rows() && grid->col >= 0 && grid->col < grid->cols() &&
        (table->currentRow() != grid->row || table->currentColumn() != grid->col)) {
      table->setCurrentCell(grid->row, grid->col);
    }
  }
}

}  // namespace zelmo::ui
