// The ProcessRunner port on QProcess: the program and its arguments go to the
// system as a list, so no shell parses them and blanks or quotes in a path
// pass intact.
#pragma once

#include "core/ports.h"

namespace zelmo::platform {

class QtProcessRunner : public ProcessRunner {
 public:
  // Starts the program with the working folder and environment of this
  // program and waits, without limit and without handling window events,
  // until it ends. A program that cannot start ends the wait at once; the
  // exit code is not looked at: modules report through their status file.
  void Run(const std::string& program, const std::vector<std::string>& arguments,
           int window_mode) override;
};

}  // namespace zelmo::platform
