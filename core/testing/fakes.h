// Scripted fakes of the ports, for tests: they record what the program showed
// and answer what the test says.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/dialogs.h"
#include "core/ports.h"
#include "core/session.h"

namespace zelmo::testing {

using Strings = std::vector<std::string>;

struct ShownMessage {
  std::string text;
  int style = 0;
  std::string title;
  bool operator==(const ShownMessage&) const = default;
};
void PrintTo(const ShownMessage& message, std::ostream* out);

class FakeDialogs : public Dialogs {
 public:
  Answer MsgBox(const std::string& text, int style, const std::string& title) override;
  void ShowModal(Form& form) override;
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override;
  std::optional<std::string> ChooseFile(const FileChoice& choice) override;
  void SetBusy(bool busy) override { busy_calls.push_back(busy); }
  int TextWidth(const std::string& text) override { return 100 * static_cast<int>(text.size()); }
  // Waits as the port does, or as a test of a shown window says.
  void DoEvents(int milliseconds) override {
    if (do_events) return do_events(milliseconds);
    Dialogs::DoEvents(milliseconds);
  }
  std::function<void(int)> do_events;

  // Answers for the next message boxes, in order; when none is queued a box
  // is answered with its default button's usual answer (OK, Yes or Retry).
  std::deque<Answer> answers;
  // What a modal screen does while it is shown, by the form's name. A screen
  // with no script is loaded and closed as it stands.
  std::map<std::string, std::function<void(Form&)>> screens;
  std::deque<std::optional<std::string>> folders;
  std::deque<std::optional<std::string>> files;

  std::vector<ShownMessage> messages;
  std::vector<std::string> shown_forms;
  std::vector<FileChoice> file_choices;
  std::vector<bool> busy_calls;

  // The texts of every message shown, in order.
  std::vector<std::string> Texts() const;
  const ShownMessage& Last() const;
  void Clear();
};

class FakeSettings : public SettingsStore {
 public:
  std::string Get(const std::string& application, const std::string& section,
                  const std::string& key, const std::string& fallback) override;
  void Save(const std::string& application, const std::string& section, const std::string& key,
            const std::string& value) override;
  std::map<std::string, std::string> values;  // "application/section/key"
  int saves = 0;
};

struct RunCall {
  std::string program;
  std::vector<std::string> arguments;
  int window_mode = 0;
  bool operator==(const RunCall&) const = default;
};
void PrintTo(const RunCall& call, std::ostream* out);

class FakeProcessRunner : public ProcessRunner {
 public:
  // Records the call; a program of `cannot_start` is recorded too, but does
  // not run and reports false.
  bool Run(const std::string& program, const std::vector<std::string>& arguments,
           int window_mode) override;
  std::vector<RunCall> calls;
  std::function<void(const RunCall&)> on_run;
  std::set<std::string> cannot_start;
  std::mutex mutex;
};

class FakeDesktop : public Desktop {
 public:
  void ShowHelp(const std::string& help_file, int context) override;
  bool OpenWithRegistered(const std::string& path) override;
  std::string FindExecutable(const std::string& path) override;
  void PrintText(const std::string& text) override { printed.push_back(text); }
  void OpenUrl(const std::string& url) override { urls.push_back(url); }

  std::vector<std::pair<std::string, int>> help_calls;
  std::vector<std::string> opened;
  std::vector<std::string> printed;
  std::vector<std::string> urls;
  bool has_registered_program = true;
  std::string registered_program = "/usr/bin/editor";
};

// A session wired to the fakes.
struct FakeSession {
  FakeSession();
  Session session;
  FakeDialogs dialogs;
  FakeSettings settings;
  FakeProcessRunner processes;
  FakeDesktop desktop;
  Workspace& ws() { return session.ws; }
};

// A fresh folder under the system's temporary folder, removed with the
// object.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }
  // path() joined with a relative name.
  std::string operator/(const std::string& name) const;

 private:
  std::string path_;
};

// File helpers for tests: bytes in and out.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::string& bytes);
bool Exists(const std::string& path);

// What the user is told of the FileError an operation throws (the fault,
// the file and the line), or "no error".
std::string FileErrorText(const std::function<void()>& operation);

// The words of a text, split at blanks: a long list of names on few lines.
Strings Words(const std::string& text);

// Fills a screen's controls as a user leaves them, without their events:
// "Name=text" sets a text, "Name#3" a list index or the value of a check or
// option box.
void Fill(Form& form, const Strings& settings);
// The user's acts on a screen in turn, each with its event: "Name=text"
// types a text (a change), "Name#3" picks an item or sets a box (a click),
// "Name" clicks, and a "*" at the end double-clicks instead.
void Act(Form& form, const Strings& acts);

// The cells of a grid, a string a row with its cells joined by "|".
std::vector<std::string> GridRows(const Grid& grid);

}  // namespace zelmo::testing
