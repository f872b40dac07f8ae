// The main window on Qt: a fixed-size QMainWindow over the StartForm model,
// bound by the generic binder like every screen.
#pragma once

#include <QMainWindow>
#include <string>

namespace zelmo {
class StartForm;
struct Session;
}  // namespace zelmo

namespace zelmo::ui {

class Binder;

class StartWindow : public QMainWindow {
 public:
  // Builds the menus and the panel; the window is not shown.
  StartWindow(StartForm& form, Session& session);
  Binder* binder() const { return binder_; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void BuildPanel();
  // The title follows the model's caption, which the commands change.
  void SyncTitle();
  void Unloaded();

  StartForm& form_;
  Binder* binder_ = nullptr;
  std::string shown_title_;
  bool closing_ = false;
};

}  // namespace zelmo::ui
