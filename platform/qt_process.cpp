#include "platform/qt_process.h"

#include <QProcess>
#include <QStringList>

#include "platform/qt_text.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace zelmo::platform {

void QtProcessRunner::Run(const std::string& program, const std::vector<std::string>& arguments,
                          int window_mode) {
  QProcess process;
  process.setProgram(Q(program));
  QStringList list;
  for (const auto& argument : arguments) list << Q(argument);
  process.setArguments(list);
  // The started program writes where this one does and reads nothing, so a
  // module that asks a question cannot hold the window forever.
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.setStandardInputFile(QProcess::nullDevice());
#ifdef Q_OS_WIN
  // The show-window setting: 7 starts minimized and not active, so a module
  // never takes the focus; 5 shows a viewer normally.
  process.setCreateProcessArgumentsModifier([window_mode](QProcess::CreateProcessArguments* args) {
    args->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
    args->startupInfo->wShowWindow = static_cast<WORD>(window_mode);
  });
#else
  // Elsewhere a program started from here opens no window of its own unless
  // it is a windowed program, and the window manager decides on the focus;
  // the calculation modules are console programs, so they take none.
  (void)window_mode;
#endif
  process.start();
  process.waitForFinished(-1);
}

}  // namespace zelmo::platform
