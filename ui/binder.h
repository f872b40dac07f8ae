// The generic binder: puts a screen model's controls on the widgets of its
// view (found by object name), forwards the widgets' events to the model and,
// after each event, brings every widget in line with its control.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

#include "core/controls.h"

class QPoint;
class QTableWidget;
class QWidget;

namespace zelmo {
class Dialogs;
}

namespace zelmo::ui {

// A list whose widget carries this property as true fires its click only on
// the release of the mouse over an item, each time, and never on a move of
// the selection by the keys: each click there does something (as a material
// clicked in the wall screen's list becomes a layer).
inline constexpr const char* kClickOnRelease = "zelmoClickOnRelease";

// A table whose widget carries this property as true shows the grid's header
// line in its own header, which stays at the top while the rows scroll: the
// grid's fixed rows are hidden, so the user can never choose them.
inline constexpr const char* kHeadingInHeader = "zelmoHeadingInHeader";

class Binder : public QObject {
 public:
  // Binds every control of `form` to the child of `root` that has its name.
  // `on_unload` runs when an event leaves the form unloaded.
  Binder(Form& form, QWidget* root, Dialogs& dialogs, std::function<void()> on_unload);
  ~Binder() override;

  // Runs a model event, guarded, then syncs the widgets.
  void Fire(const std::function<void()>& event);
  // Model to widgets.
  void Sync();
  QObject* WidgetOf(const Control* control) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Pair {
    Control* control;
    QPointer<QObject> object;
  };
  void Connect(Control* control, QObject* object);
  void SyncOne(Control* control, QObject* object);
  // The header line of a grid in its table's own header.
  void SyncHeading(const Grid& grid, QTableWidget& table);
  Control* ControlOf(QObject* object) const;
  // A drag over several cells of a grid ended at `at` in its viewport.
  void DragEnded(QTableWidget& table, const QPoint& at);

  Form& form_;
  QWidget* root_;
  Dialogs& dialogs_;
  std::function<void()> on_unload_;
  std::vector<Pair> pairs_;
  bool syncing_ = false;
  bool firing_ = false;
};

}  // namespace zelmo::ui
