// The Dialogs port on Qt: message boxes, modal screens, file choices.
#pragma once

#include <QDialog>

#include "core/dialogs.h"

namespace zelmo {
struct Session;
}

namespace zelmo::ui {

class Binder;

class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(Session& session) : session_(session) {}
  Answer MsgBox(const std::string& text, int style, const std::string& title) override;
  void ShowModal(Form& form) override;
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override;
  std::optional<std::string> ChooseFile(const FileChoice& choice) override;
  void SetBusy(bool busy) override;
  int TextWidth(const std::string& text) override;
  void DoEvents(int milliseconds) override;

 private:
  Session& session_;
};

// Loads a screen and builds its window without showing it; the window's
// events speak through the session's Dialogs. Returns nullptr when the load
// unloaded the screen or it has no view.
QDialog* BuildScreen(Form& form, Session& session);

// Puts a window where its screen model says: a centred screen by the size
// its window has on screen, which the captions may have made larger than the
// model's; otherwise at the model's position, when it has one.
void PlaceWindow(QWidget& window, const Form& form);

// A screen's window: routes the close box and Escape to the model.
class ScreenDialog : public QDialog {
 public:
  ScreenDialog(Form& form, Dialogs& dialogs);
  Binder* binder() const { return binder_; }
  Form& form() const { return form_; }
  void Bind();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  Form& form_;
  Dialogs& dialogs_;
  Binder* binder_ = nullptr;
};

}  // namespace zelmo::ui
