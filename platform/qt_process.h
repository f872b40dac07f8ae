// The ProcessRunner port on QProcess: the program and its arguments go to the
// system as a list, so no shell parses them and blanks or quotes in a path
// pass intact.
#pragma once

#include <mutex>
#include <set>

#include "core/ports.h"

class QProcess;

namespace zelmo::platform {

class QtProcessRunner : public ProcessRunner {
 public:
  // `keep_window_alive`: the wait runs the thread's event loop, so that the
  // windows of a program with a display repaint and take clicks (a Stop
  // among them) while a module runs. Without it the wait handles no events,
  // as a program without a display, or a thread of its own, wants.
  explicit QtProcessRunner(bool keep_window_alive = false)
      : keep_window_alive_(keep_window_alive) {}
  // Starts the program with the working folder and environment of this
  // program and waits, without limit, until it ends. A program that cannot
  // start ends the wait at once with false; the exit code is not looked at:
  // modules report through their status file.
  bool Run(const std::string& program, const std::vector<std::string>& arguments,
           int window_mode) override;
  // Ends the programs being waited for and every program they started.
  void Stop() override;

 private:
  bool keep_window_alive_;
  std::mutex mutex_;
  std::set<QProcess*> running_;
};

}  // namespace zelmo::platform
