#include "core/inpbox.h"

#include <algorithm>

#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

InpBox::InpBox(Session& session) : Form("InpBox"), session_(session) {
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  default_button = "Command1";
  cancel_button = "Command2";
  height = 1800;
}

void InpBox::Prepare(const std::string& prompt, const std::string& default_text,
                     const std::string& title, int max_length, bool mask) {
  caption = title;
  Label1.caption = prompt;
  // The field never holds more than its maximum length, a default included.
  Text1.text = max_length > 0 ? default_text.substr(0, max_length) : default_text;
  Text1.max_length = max_length;
  Text1.password_char = mask ? '*' : 0;
  // The window fits the longer of the prompt and a field of maximum length.
  Dialogs& dialogs = *session_.dialogs;
  int prompt_width = dialogs.TextWidth(prompt);
  int field_width = dialogs.TextWidth(std::string(std::max(max_length, 1), 'M'));
  width = std::max(std::max(prompt_width, field_width) + 400, 3855);
  Label1.width = width - 400;
  Text1.width = std::min(field_width + 200, width - 400);
}

void InpBox::Load() {
  CenterForm(*this, session_.ws);
  Text1.SelectAll();
  Text1.SetFocus();
}

void InpBox::Ok() {
  const Workspace& ws = session_.ws;
  std::string fault;
  if (ws.InpBoxCheckKind != 0) {
    std::string trimmed = TrimBlanks(Text1.text);
    if (!IsSignedNumberText(trimmed)) {
      fault = "Input must be a value";
    } else {
      float value = static_cast<float>(Val(trimmed));
      if (value < ws.InpBoxMinValue || value > ws.InpBoxMaxValue) {
        fault = "Input value (Min: " + NumText(ws.InpBoxMinValue) +
                ", Max: " + NumText(ws.InpBoxMaxValue) + ")";
      }
    }
  }
  if (!fault.empty()) {
    session_.dialogs->MsgBox(fault, mb::kExclamation, "MESSAGE");
    Text1.SelectAll();
    Text1.SetFocus();
    return;
  }
  // The answer goes into files of one record a line.
  session_.ws.InpBoxResult = OneLineText(Text1.text);
  Unload();
}

void InpBox::Cancel() {
  session_.ws.InpBoxResult.clear();
  Unload();
}

}  // namespace zelmo
