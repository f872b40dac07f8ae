// The Dialogs port: the only way a screen model speaks to the user. The real
// implementation lives with the Qt views; tests use a scripted fake.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace zelmo {

class Form;

// Message box styles, added together: buttons + icon + default button.
namespace mb {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kDefaultButton1 = 0;
inline constexpr int kDefaultButton2 = 256;
inline constexpr int kDefaultButton3 = 512;
inline constexpr int ButtonsOf(int style) { return style & 0x0F; }
inline constexpr int IconOf(int style) { return style & 0x70; }
inline constexpr int DefaultOf(int style) { return style & 0x300; }
}  // namespace mb

enum class Answer { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

struct FileChoice {
  std::string title;
  std::string folder;                // where the choice starts
  std::vector<std::string> filters;  // "*.CLI"; the case of the letters is ignored
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // A modal message box. `text` may hold CR for line breaks.
  virtual Answer MsgBox(const std::string& text, int style, const std::string& title) = 0;
  // Shows another screen modally; returns when it has been unloaded.
  virtual void ShowModal(Form& form) = 0;
  // A folder chosen by the user, or nothing.
  virtual std::optional<std::string> ChooseFolder(const std::string& title,
                                                  const std::string& start) = 0;
  // An existing file chosen by the user, or nothing.
  virtual std::optional<std::string> ChooseFile(const FileChoice& choice) = 0;
  // The hourglass pointer on or off.
  virtual void SetBusy(bool busy) = 0;
  // Width of a text in the screens' font, in twips.
  virtual int TextWidth(const std::string& text) = 0;
  // Lets the windows repaint and take the user's input for up to
  // `milliseconds`, while this thread waits for work done elsewhere.
  virtual void DoEvents(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
};

// The hourglass for as long as the object lives.
class BusyPointer {
 public:
  explicit BusyPointer(Dialogs& dialogs) : dialogs_(dialogs) { dialogs_.SetBusy(true); }
  ~BusyPointer() { dialogs_.SetBusy(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Dialogs& dialogs_;
};

}  // namespace zelmo
