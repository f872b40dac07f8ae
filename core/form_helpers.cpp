#include "core/form_helpers.h"

#include "core/fields.h"
#include "core/inpbox.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

void CenterForm(Form& form, const Workspace& ws) {
  form.left = (ws.ScreenWidth - form.width) / 2;
  form.top = (ws.ScreenHeight + 500 - form.height) / 2;
  form.centered = true;
}

Answer AskSaveChanges(Dialogs& dialogs, std::string& text) {
  std::string shown = "Do you want to save changes ?";
  if (!text.empty()) shown += "\r\r" + text;
  text = shown;
  return dialogs.MsgBox(shown, mb::kYesNoCancel + mb::kExclamation + mb::kDefaultButton1, "Save");
}

Answer AskSaveChanges(Dialogs& dialogs) {
  std::string text;
  return AskSaveChanges(dialogs, text);
}

void OkAndClose(Form& form, const std::function<bool()>& check, const std::function<void()>& save) {
  if (!check()) return;
  save();
  form.Unload();
}

void CancelAskingToSave(Form& form, Dialogs& dialogs, bool dirty, const std::string& what,
                        const std::function<bool()>& check, const std::function<void()>& save) {
  if (!dirty) {
    form.Unload();
    return;
  }
  std::string text = what;
  switch (AskSaveChanges(dialogs, text)) {
    case Answer::kYes:
      OkAndClose(form, check, save);
      break;
    case Answer::kNo:
      form.Unload();
      break;
    default:
      break;
  }
}

void FillCaseList(const Workspace& ws, Control& list) {
  auto lines = ReadAllLines(JoinPath(ws.ProjectPath, "CASES.LIB"));
  if (!lines) return;
  for (const auto& raw : *lines) list.AddItem(CaseListItem(raw));
}

std::string CaseListItem(const std::string& cases_line) {
  std::string line = TrimBlanks(cases_line);
  return ToLower(FieldBefore(line, " -")) + " - " + FieldAfter(line, " - ");
}

void ClearElementRow(std::vector<std::string>& fields) {
  fields.assign(30, "");
  for (int field : {1, 4, 5, 6}) fields[field] = "0";
}

std::string AskInput(Session& session, const std::string& prompt, const std::string& default_text,
                     const std::string& title, int max_length, int check_kind, float min_value,
                     float max_value, bool mask) {
  Workspace& ws = session.ws;
  ws.InpBoxCheckKind = static_cast<int16_t>(check_kind);
  ws.InpBoxMinValue = min_value;
  ws.InpBoxMaxValue = max_value;
  ws.InpBoxResult.clear();
  InpBox box(session);
  box.Prepare(prompt, default_text, title, max_length, mask);
  session.dialogs->ShowModal(box);
  return ws.InpBoxResult;
}

}  // namespace zelmo
