// Helpers shared by the screens.
#pragma once

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

// One item per line of CASES.LIB: the name in lower case, " - ", the headline.
void FillCaseList(const Workspace& ws, Control& list);

// Blanks the 29 fields of an element and puts "0" into its shape and its
// three coordinates.
void ClearElementRow(std::vector<std::string>& fields);

// Asks for one line of text through the input box. The check kind is 0 for
// free text and -1 for a number between the limits. Returns the answer,
// empty on Cancel.
std::string AskInput(Session& session, const std::string& prompt, const std::string& default_text,
                     const std::string& title, int max_length, int check_kind, float min_value,
                     float max_value, bool mask);

}  // namespace zelmo
