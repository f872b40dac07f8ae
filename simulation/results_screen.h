// Results ("TextFiles"): the result files of the cases of the project, shown
// in a text box, printed, or handed to the text editor, the word processor or
// the spreadsheet.
#pragma once

#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;

class Results : public Form {
 public:
  explicit Results(Session& session);
  void Load() override;

  // Points the file list to the chosen case's folder.
  void CaseListClick();
  // Sets the file list's pattern to the chosen type.
  void TypeListClick();
  // Shows a chosen file of any type but "TXT" in the text box.
  void FileClick();
  // Opens a file: "TXT" with the word processor or the spreadsheet, any
  // other type with the text editor.
  void FileOpen();
  void Print();
  void Help();

  // The folder and the pattern of the file list, as a directory listing
  // holds them.
  const std::string& FilePath() const { return file_path_; }
  const std::string& FilePattern() const { return file_pattern_; }

  Label Label1{this, "Label1"};
  ListBox CaseList{this, "CaseList"};
  Label Label2{this, "Label2"};
  ListBox TypeList{this, "TypeList"};
  Label Label3{this, "Label3"};
  ListBox File1{this, "File1"};
  TextBox Text1{this, "Text1"};
  OptionButton Option1{this, "Option1"};
  OptionButton Option2{this, "Option2"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void ListFiles();
  std::string SelectedType() const;
  std::string SelectedFilePath() const;
  void OpenAsTable(const std::string& path);
  void OpenAsReport(const std::string& path);

  Session& session_;
  std::string file_path_;
  std::string file_pattern_ = "*.*";
};

// Rewrites a table's decimal separators for the spreadsheet: with a comma as
// the system's separator every "." becomes ",", otherwise every "," becomes
// ".". The new text goes to "T" + the file's name beside it, which is then
// copied back and deleted. False when the file could not be rewritten; then
// it stands as it was.
bool RewriteDecimalSeparators(const std::string& path, bool decimal_comma);

}  // namespace zelmo
