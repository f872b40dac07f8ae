#include "simulation/module_error.h"

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

std::string RightTrimmed(const std::string& line) {
  size_t last = line.find_last_not_of(' ');
  return last == std::string::npos ? std::string() : line.substr(0, last + 1);
}

// The text before the first blank, or the whole line when it has none.
std::string FirstWord(const std::string& line) {
  size_t blank = line.find(' ');
  return blank == std::string::npos ? line : line.substr(0, blank);
}

// A line that ends an entry's text: its first word is a short code or
// nothing at all. Longer numbers are part of the text.
bool EndsEntry(const std::string& line) {
  std::string word = FirstWord(line);
  return IsDigitsOrEmpty(word) && word.size() < 4;
}

}  // namespace

Errform::Errform() : Form("Errform") {
  caption = "Error";
  Command1.caption = "&Close";
  Command1.on_click = [this] { Unload(); };
  default_button = "Command1";
  cancel_button = "Command1";
  width = 6600;
  height = 3000;
}

std::string ErrorTablePath(const Workspace& ws) {
  return JoinPath(JoinPath(ws.ProgramDirectory, "ErrorCodesZelmo"), "ErrorsZelmo.err");
}

std::vector<ErrorEntry> FindErrorEntries(const std::vector<std::string>& table_lines, int code) {
  std::vector<ErrorEntry> entries;
  size_t i = 0;
  while (i < table_lines.size()) {
    std::string line = RightTrimmed(table_lines[i++]);
    std::string word = FirstWord(line);
    if (word.empty() || Val(word) != code) continue;
    ErrorEntry entry;
    entry.module = FieldAfter(line, " ");
    // The line that ends the text is looked at again as a head, so a second
    // entry with the same code right behind the first is found too.
    while (i < table_lines.size() && !EndsEntry(RightTrimmed(table_lines[i]))) {
      entry.lines.push_back(RightTrimmed(table_lines[i++]));
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

void ShowModuleError(Session& session, int code, const std::string& text, int show_text) {
  std::string shown_text;
  if (show_text == 1) shown_text = RightTrimmed(text) + "\r\n";
  auto table = ReadAllLines(ErrorTablePath(session.ws));
  if (!table) return;
  for (const ErrorEntry& entry : FindErrorEntries(*table, code)) {
    Errform form;
    form.caption = "Error " + NumText(code) + " in module " + entry.module;
    form.Label1.caption = shown_text;
    for (const auto& line : entry.lines) form.Label1.caption += line + " ";
    CenterForm(form, session.ws);
    session.dialogs->ShowModal(form);
  }
}

void ShowPreviousRunError(Session& session, int code, const std::string& module) {
  ShowModuleError(session, 701,
                  "Previous calculation for this case has ended with en error " +
                      std::to_string(code) + " in module " + module + ".",
                  1);
}

}  // namespace zelmo
