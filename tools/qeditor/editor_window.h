// The text viewer's window: one file shown in a fixed font, read-only until
// Edit, Allow editing is ticked; find and find again, print, save and save
// as. The file's bytes are Windows-1252 text with CR LF line ends, and are
// written back so.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <string>

namespace zelmo::qeditor {

class EditorWindow : public QMainWindow {
 public:
  EditorWindow();

  // Shows the file; false, with nothing changed, when it cannot be read.
  bool Open(const std::string& path);
  // Writes the text, each line ended by CR LF, as Windows-1252 text.
  bool SaveTo(const std::string& path);
  // Selects the next occurrence of the text after the cursor, from the top
  // again after the end; false when the text is nowhere.
  bool FindNext(const QString& text);

  QPlainTextEdit* text() const { return text_; }
  QAction* allow_editing() const { return allow_editing_; }
  QAction* save() const { return save_; }
  QLineEdit* find_box() const { return find_box_; }
  const std::string& path() const { return path_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void SetEditing(bool on);
  void UpdateTitle();
  void SaveAs();
  void Print();

  QPlainTextEdit* text_;
  QAction* allow_editing_;
  QAction* save_;
  QLineEdit* find_box_;
  std::string path_;
};

}  // namespace zelmo::qeditor
