// The error screen of the calculation modules and the table of error texts
// it shows, ErrorsZelmo.err in the program's ErrorCodesZelmo folder.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

struct Session;
struct Workspace;

// Errform: the text of one error and a button to close it.
class Errform : public Form {
 public:
  Errform();

  Label Label1{this, "Label1"};
  Button Command1{this, "Command1"};
};

// One entry of the error table: the rest of its head line behind the code
// (the module) and its text lines, each right-trimmed.
struct ErrorEntry {
  std::string module;
  std::vector<std::string> lines;
};

// `<program directory>/ErrorCodesZelmo/ErrorsZelmo.err`.
std::string ErrorTablePath(const Workspace& ws);

// Every entry of the table whose code equals `code`, in file order. A head
// is a line whose first word has the value of the code; its text runs up to
// the next line whose first word is digits only, or empty, and shorter than
// four characters.
std::vector<ErrorEntry> FindErrorEntries(const std::vector<std::string>& table_lines, int code);

// Shows each entry of the error table for `code` on the Errform screen, one
// after the other, with `text` above the entry's text when `show_text` is 1.
// Nothing is shown when the table cannot be opened or has no such entry.
void ShowModuleError(Session& session, int code, const std::string& text, int show_text);

// The error screen for a case whose last run ended with an error, built from
// its ECM.Dat (code 701).
void ShowPreviousRunError(Session& session, int code, const std::string& module);

}  // namespace zelmo
