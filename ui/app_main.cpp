#include "ui/app_main.h"

#include <QApplication>
#include <QMainWindow>

#include "core/session.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_process.h"
#include "ui/views.h"

namespace zelmo::ui {

int RunProgram(QApplication& app) {
  RegisterAllViews();
  Session session;
  QtDialogs dialogs(session);
  session.dialogs = &dialogs;
  // Keep when rewriting: the calculation modules and the result programs
  // start through this port.
  QtProcessRunner processes;
  session.processes = &processes;
  QMainWindow window;
  window.setObjectName("StartForm");
  window.resize(800, 600);
  window.show();
  return app.exec();
}

}  // namespace zelmo::ui
