// Ports to the services of the platform. Each has a real implementation on
// Qt and the standard library and a fake for tests.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

// The per-user settings store: a key under application and section.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string Get(const std::string& application, const std::string& section,
                          const std::string& key, const std::string& fallback) = 0;
  virtual void Save(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& value) = 0;
};

// Window modes of a started program.
namespace window_mode {
inline constexpr int kNormal = 5;      // shown normally, taking the focus
inline constexpr int kNoActivate = 7;  // shown without taking the focus
}  // namespace window_mode

// Starts a program and waits for it to end. The arguments reach the program
// as they stand: no shell ever parses a command line.
class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;
  // False when the program could not be started (missing, not a program, not
  // allowed to run); true once it started and has ended, however it ended.
  virtual bool Run(const std::string& program, const std::vector<std::string>& arguments,
                   int window_mode) = 0;
  // Ends every program that Run waits for, with the programs each started in
  // turn; those Runs then return. Nothing when none runs.
  virtual void Stop() {}
};

// Help, the browser, printing and the programs registered for files.
class Desktop {
 public:
  virtual ~Desktop() = default;
  // Opens the compiled help file at a context number.
  virtual void ShowHelp(const std::string& help_file, int context) = 0;
  // Opens a file with the program registered for it; false when there is none.
  virtual bool OpenWithRegistered(const std::string& path) = 0;
  // The program registered for a file, or empty.
  virtual std::string FindExecutable(const std::string& path) = 0;
  // Prints text on the default printer.
  virtual void PrintText(const std::string& text) = 0;
  virtual void OpenUrl(const std::string& url) = 0;
};

}  // namespace zelmo
