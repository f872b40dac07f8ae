#include "ui/app_main.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>

#include "core/session.h"
#include "platform/qt_process.h"
#include "platform/qt_settings.h"
#include "ui/commands.h"
#include "ui/qt_desktop.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/start_window.h"
#include "ui/views.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"

namespace zelmo::ui {

int RunProgram(QApplication& app) {
  RegisterAllViews();
  Session session;
  QtDialogs dialogs(session);
  session.dialogs = &dialogs;
  platform::QtSettings settings;
  session.settings = &settings;
  QtDesktop desktop;
  session.desktop = &desktop;
  // The process runner: the calculation modules and the result programs
  // start through this port.
  // The windows stay alive while a module runs.
  platform::QtProcessRunner processes(true);
  session.processes = &processes;

  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    session.ws.ScreenWidth = Twips(screen->availableGeometry().width());
    session.ws.ScreenHeight = Twips(screen->availableGeometry().height());
  }
  StartForm main(session);
  StartUp(session, main, S(QCoreApplication::applicationFilePath()));
  WireCommands(main);

  StartWindow window(main, session);
  window.show();
  return app.exec();
}

}  // namespace zelmo::ui
