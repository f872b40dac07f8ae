#include "cli/stream_dialogs.h"

#include "core/controls.h"
#include "core/text_file.h"

namespace zelmo::cli {

std::string OneLine(const std::string& text) {
  std::string line;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      line += ' ';
    } else {
      line += text[i];
    }
  }
  return line;
}

Answer StreamDialogs::MsgBox(const std::string& text, int style, const std::string& title) {
  line_(OneLine(title) + ": " + OneLine(text));
  switch (mb::ButtonsOf(style)) {
    case mb::kYesNo:
      return Answer::kNo;
    case mb::kOkCancel:
    case mb::kYesNoCancel:
    case mb::kRetryCancel:
      return Answer::kCancel;
    case mb::kAbortRetryIgnore:
      return Answer::kAbort;
    default:
      return Answer::kOk;
  }
}

void StreamDialogs::ShowModal(Form& form) {
  std::string text;
  for (const Control* control : form.controls()) {
    if (control->kind() != ControlKind::kLabel || control->caption.empty()) continue;
    if (!text.empty()) text += ' ';
    text += TrimBlanks(OneLine(control->caption));
  }
  line_(OneLine(form.caption) + ": " + text);
  form.Unload();
}

}  // namespace zelmo::cli
