// Helpers shared by the screens.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/dialogs.h"

namespace zelmo {

struct Session;
struct Workspace;

// Centres a form on the screen, 500 twips lower to leave room for the main
// window's title and menu.
void CenterForm(Form& form, const Workspace& ws);

// "Do you want to save changes ?", with `text` below it after two line breaks
// when it is not empty. `text` receives what was shown.
Answer AskSaveChanges(Dialogs& dialogs, std::string& text);
Answer AskSaveChanges(Dialogs& dialogs);

// Ok and Cancel of a screen that edits a file. Ok: when `check` passes,
// `save` writes and the form closes. Cancel: without changes the form closes;
// with changes AskSaveChanges names `what`, and Yes is Ok, No closes without
// saving and Cancel leaves the form open.
void OkAndClose(Form& form, const std::function<bool()>& check, const std::function<void()>& save);
void CancelAskingToSave(Form& form, Dialogs& dialogs, bool dirty, const std::string& what,
                        const std::function<bool()>& check, const std::function<void()>& save);

// One item per line of CASES.LIB: the name in lower case, " - ", the headline.
void FillCaseList(const Workspace& ws, Control& list);
// A line of CASES.LIB as the lists show it: "<lower name> - <headline>".
std::string CaseListItem(const std::string& cases_line);

// Blanks the 29 fields of an element, numbered from 1 as in the element
// table (position 0 unused), and puts "0" into its shape and its three
// coordinates: a rectangle at the origin.
void ClearElementRow(std::vector<std::string>& fields);

// Asks for one line of text through the input box. The check kind is 0 for
// free text and -1 for a number between the limits. Returns the answer,
// empty on Cancel.
std::string AskInput(Session& session, const std::string& prompt, const std::string& default_text,
                     const std::string& title, int max_length, int check_kind, float min_value,
                     float max_value, bool mask);

}  // namespace zelmo
