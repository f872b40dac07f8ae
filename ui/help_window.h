// The help window: the manual's contents and a search on the left, the page
// on the right with its links, back, forward and the contents page.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>
#include <string>

#include "ui/help_manual.h"

namespace zelmo::ui {

class HelpWindow : public QDialog {
 public:
  HelpWindow(HelpManual manual, QWidget* parent = nullptr);

  // Shows a page of the manual's folder.
  void ShowPage(const std::string& path);
  // Lists the pages that hold every word of the text.
  void RunSearch(const QString& text);

  QTextBrowser* browser() const { return browser_; }
  QListWidget* contents() const { return contents_; }
  QLineEdit* search_box() const { return search_box_; }
  QListWidget* found() const { return found_; }

 private:
  HelpManual manual_;
  QTextBrowser* browser_;
  QListWidget* contents_;
  QLineEdit* search_box_;
  QListWidget* found_;
};

}  // namespace zelmo::ui
