#include "tools/qeditor/editor_window.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>

#include "core/file_system.h"
#include "core/text_file.h"
#include "platform/qt_text.h"

namespace zelmo::qeditor {

using platform::Q;
using platform::S;

namespace {
const QString kName = "Text viewer";
}

EditorWindow::EditorWindow() {
  text_ = new QPlainTextEdit;
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setReadOnly(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setCentralWidget(text_);
  connect(text_->document(), &QTextDocument::modificationChanged, this, [this] { UpdateTitle(); });

  QMenu* file = menuBar()->addMenu("&File");
  file->addAction("&Open...", QKeySequence::Open, this, [this] {
    QString name = QFileDialog::getOpenFileName(this, "Open a file", Q(ParentFolder(path_)));
    if (!name.isEmpty() && !Open(S(name))) {
      QMessageBox::warning(this, kName, "The file " + name + " cannot be read.");
    }
  });
  save_ = file->addAction("&Save", QKeySequence::Save, this, [this] {
    if (!SaveTo(path_)) {
      QMessageBox::warning(this, kName, "The file " + Q(path_) + " cannot be written.");
    }
  });
  file->addAction("Save &as...", QKeySequence::SaveAs, this, [this] { SaveAs(); });
  file->addAction("&Print...", QKeySequence::Print, this, [this] { Print(); });
  file->addSeparator();
  file->addAction("&Close", QKeySequence::Close, this, [this] { close(); });

  QMenu* edit = menuBar()->addMenu("&Edit");
  allow_editing_ = edit->addAction("Allow &editing");
  allow_editing_->setCheckable(true);
  connect(allow_editing_, &QAction::toggled, this, [this](bool on) { SetEditing(on); });
  edit->addAction("&Find", QKeySequence::Find, this, [this] {
    find_box_->setFocus();
    find_box_->selectAll();
  });
  edit->addAction("Find &next", QKeySequence::FindNext, this, [this] {
    if (!FindNext(find_box_->text())) statusBar()->showMessage("Not found: " + find_box_->text());
  });

  QToolBar* bar = addToolBar("Find");
  bar->setMovable(false);
  find_box_ = new QLineEdit;
  find_box_->setPlaceholderText("Find");
  find_box_->setMaximumWidth(260);
  bar->addWidget(find_box_);
  bar->addAction("Find next", this, [this] {
    if (!FindNext(find_box_->text())) statusBar()->showMessage("Not found: " + find_box_->text());
  });
  connect(find_box_, &QLineEdit::returnPressed, this, [this] {
    if (!FindNext(find_box_->text())) statusBar()->showMessage("Not found: " + find_box_->text());
  });
  SetEditing(false);
  resize(900, 700);
}

bool EditorWindow::Open(const std::string& path) {
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) return false;
  std::string text;
  text.reserve(bytes->size());
  for (size_t i = 0; i < bytes->size(); ++i) {
    // CR LF and a lone CR both end a line.
    if ((*bytes)[i] == '\r') {
      text += '\n';
      if (i + 1 < bytes->size() && (*bytes)[i + 1] == '\n') ++i;
    } else {
      text += (*bytes)[i];
    }
  }
  path_ = path;
  text_->setPlainText(Q(text));
  text_->document()->setModified(false);
  allow_editing_->setChecked(false);
  UpdateTitle();
  return true;
}

bool EditorWindow::SaveTo(const std::string& path) {
  std::string text = S(text_->toPlainText());
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 20);
  for (char c : text) {
    if (c == '\n') {
      bytes += "\r\n";
    } else {
      bytes += c;
    }
  }
  if (!bytes.empty() && bytes.back() != '\n') bytes += "\r\n";
  if (!WriteAllBytes(path, bytes)) return false;
  path_ = path;
  text_->document()->setModified(false);
  UpdateTitle();
  return true;
}

bool EditorWindow::FindNext(const QString& text) {
  if (text.isEmpty()) return false;
  if (text_->find(text)) return true;
  QTextCursor start = text_->textCursor();
  text_->moveCursor(QTextCursor::Start);
  if (text_->find(text)) return true;
  text_->setTextCursor(start);
  return false;
}

void EditorWindow::SetEditing(bool on) {
  text_->setReadOnly(!on);
  text_->setTextInteractionFlags(on ? Qt::TextEditorInteraction
                                    : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  save_->setEnabled(on && !path_.empty());
  UpdateTitle();
}

void EditorWindow::UpdateTitle() {
  QString title = path_.empty() ? kName : Q(path_);
  if (text_->isReadOnly()) title += " (read-only)";
  if (text_->document()->isModified()) title += " *";
  setWindowTitle(title + " - " + kName);
}

void EditorWindow::SaveAs() {
  QString name = QFileDialog::getSaveFileName(this, "Save as", Q(path_));
  if (!name.isEmpty() && !SaveTo(S(name))) {
    QMessageBox::warning(this, kName, "The file " + name + " cannot be written.");
  }
}

void EditorWindow::Print() {
  QPrinter printer;
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) text_->print(&printer);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
  if (text_->document()->isModified()) {
    auto answer = QMessageBox::question(this, kName, "Save the changes to " + Q(path_) + "?",
                                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Cancel || (answer == QMessageBox::Yes && !SaveTo(path_))) {
      event->ignore();
      return;
    }
  }
  event->accept();
}

}  // namespace zelmo::qeditor
