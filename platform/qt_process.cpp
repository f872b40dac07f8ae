#include "platform/qt_process.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QStringList>
#include <QThread>
#include <optional>

#include "platform/qt_text.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <unistd.h>

#include <csignal>
#endif

namespace zelmo::platform {

bool QtProcessRunner::Run(const std::string& program, const std::vector<std::string>& arguments,
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
  // A group of its own, so that a stop reaches the programs it starts too.
  process.setChildProcessModifier([] { setpgid(0, 0); });
#endif
  // Only the thread of the windows keeps them alive; a case run in a thread
  // of its own just waits.
  QCoreApplication* app = QCoreApplication::instance();
  const bool alive = keep_window_alive_ && app && QThread::currentThread() == app->thread();
  std::optional<QEventLoop> loop;
  if (alive) {
    loop.emplace();
    QObject::connect(&process, &QProcess::finished, &*loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &*loop, [&loop, &process] {
      if (process.state() == QProcess::NotRunning) loop->quit();
    });
  }
  process.start();
  if (!process.waitForStarted(-1)) return false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    running_.insert(&process);
  }
  if (alive) {
    if (process.state() != QProcess::NotRunning) loop->exec();
  } else {
    process.waitForFinished(-1);
  }
  std::lock_guard<std::mutex> lock(mutex_);
  running_.erase(&process);
  return true;
}

void QtProcessRunner::Stop() {
  std::lock_guard<std::mutex> lock(mutex_);
  for (QProcess* process : running_) {
#ifdef Q_OS_WIN
    process->kill();
#else
    const qint64 pid = process->processId();
    if (pid > 0) ::kill(-static_cast<pid_t>(pid), SIGKILL);
#endif
  }
}

}  // namespace zelmo::platform
