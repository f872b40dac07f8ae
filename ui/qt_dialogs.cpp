#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include "core/form_helpers.h"
#include "core/guard.h"
#include "core/session.h"
#include "ui/binder.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

// The toolkit's message box wraps a line that is wider than half the screen
// at a blank; the system's messages break only where their text does, so the
// box grows to its longest line instead.
class WholeLineMessageBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void showEvent(QShowEvent* event) override {
    QMessageBox::showEvent(event);
    if (auto* label = findChild<QLabel*>("qt_msgbox_label"); label && label->wordWrap()) {
      label->setWordWrap(false);
      setFixedSize(layout()->totalSizeHint().expandedTo(size()));
    }
  }
};

}  // namespace

Answer QtDialogs::MsgBox(const std::string& text, int style, const std::string& title) {
  WholeLineMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(WindowTitle(title));
  box.setText(Shown(text));
  switch (mb::IconOf(style)) {
    case mb::kCritical:
      box.setIcon(QMessageBox::Critical);
      break;
    case mb::kQuestion:
      box.setIcon(QMessageBox::Question);
      break;
    case mb::kExclamation:
      box.setIcon(QMessageBox::Warning);
      break;
    case mb::kInformation:
      box.setIcon(QMessageBox::Information);
      break;
    default:
      box.setIcon(QMessageBox::NoIcon);
  }
  std::vector<std::pair<QPushButton*, Answer>> buttons;
  auto add = [&](const char* caption, QMessageBox::ButtonRole role, Answer answer) {
    buttons.emplace_back(box.addButton(QString::fromLatin1(caption), role), answer);
  };
  switch (mb::ButtonsOf(style)) {
    case mb::kOkCancel:
      add("OK", QMessageBox::AcceptRole, Answer::kOk);
      add("Cancel", QMessageBox::RejectRole, Answer::kCancel);
      break;
    case mb::kAbortRetryIgnore:
      add("&Abort", QMessageBox::RejectRole, Answer::kAbort);
      add("&Retry", QMessageBox::AcceptRole, Answer::kRetry);
      add("&Ignore", QMessageBox::AcceptRole, Answer::kIgnore);
      break;
    case mb::kYesNoCancel:
      add("&Yes", QMessageBox::YesRole, Answer::kYes);
      add("&No", QMessageBox::NoRole, Answer::kNo);
      add("Cancel", QMessageBox::RejectRole, Answer::kCancel);
      break;
    case mb::kYesNo:
      add("&Yes", QMessageBox::YesRole, Answer::kYes);
      add("&No", QMessageBox::NoRole, Answer::kNo);
      break;
    case mb::kRetryCancel:
      add("&Retry", QMessageBox::AcceptRole, Answer::kRetry);
      add("Cancel", QMessageBox::RejectRole, Answer::kCancel);
      break;
    default:
      add("OK", QMessageBox::AcceptRole, Answer::kOk);
  }
  size_t default_index = mb::DefaultOf(style) / 256;
  if (default_index < buttons.size()) box.setDefaultButton(buttons[default_index].first);
  box.exec();
  for (const auto& [button, answer] : buttons) {
    if (box.clickedButton() == button) return answer;
  }
  // Closed by Escape or the close box: the answer of the cancel button.
  switch (mb::ButtonsOf(style)) {
    case mb::kYesNo:
      return Answer::kNo;
    case mb::kOkOnly:
      return Answer::kOk;
    default:
      return Answer::kCancel;
  }
}

ScreenDialog::ScreenDialog(Form& form, Dialogs& dialogs)
    : QDialog(QApplication::activeWindow()), form_(form), dialogs_(dialogs) {
  setObjectName(QString::fromStdString(form.name()));
}

void ScreenDialog::Bind() {
  binder_ = new Binder(form_, this, dialogs_, [this] { done(0); });
  if (auto* button = findChild<QPushButton*>(QString::fromStdString(form_.default_button))) {
    button->setDefault(true);
  }
  setWindowTitle(WindowTitle(form_.caption));
  binder_->Sync();
}

void ScreenDialog::closeEvent(QCloseEvent* event) {
  if (form_.unloaded) {
    event->accept();
    return;
  }
  binder_->Fire([this] { form_.QueryUnload(); });
  if (form_.unloaded) {
    event->accept();
  } else {
    event->ignore();
  }
}

void ScreenDialog::reject() {
  if (form_.unloaded) {
    QDialog::reject();
    return;
  }
  Control* cancel = form_.cancel_button.empty() ? nullptr : form_.Find(form_.cancel_button);
  if (cancel && cancel->enabled && cancel->visible) {
    binder_->Fire(cancel->on_click);
  } else if (!cancel) {
    binder_->Fire([this] { form_.QueryUnload(); });
  }
}

QDialog* BuildScreen(Form& form, Session& session) {
  Dialogs& dialogs = *session.dialogs;
  form.unloaded = false;
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    session.ws.ScreenWidth = Twips(screen->availableGeometry().width());
    session.ws.ScreenHeight = Twips(screen->availableGeometry().height());
  }
  if (!RunGuarded(dialogs, [&form] { form.Load(); })) form.unloaded = true;
  if (form.unloaded) return nullptr;
  const ViewBuilder* builder = FindView(form.name());
  if (!builder) {
    dialogs.MsgBox("The screen " + form.name() + " is not available in this version.",
                   mb::kExclamation, "Error message");
    return nullptr;
  }
  auto* dialog = new ScreenDialog(form, dialogs);
  (*builder)(form, *dialog, session);
  if (form.width > 0 && form.height > 0) {
    dialog->resize(Px(form.width), Px(form.height));
  }
  // Bound first, so that the size takes in the captions the model fills.
  dialog->Bind();
  if (!form.resizable) dialog->setFixedSize(dialog->sizeHint().expandedTo(dialog->size()));
  if (form.width > 0 || form.left > 0) PlaceWindow(*dialog, form);
  return dialog;
}

void PlaceWindow(QWidget& window, const Form& form) {
  QScreen* screen = QGuiApplication::primaryScreen();
  if (!form.centered || !screen) {
    window.move(Px(form.left), Px(form.top));
    return;
  }
  const QRect area = screen->availableGeometry();
  window.move(area.x() + (area.width() - window.width()) / 2,
              area.y() + (area.height() + Px(500) - window.height()) / 2);
}

void QtDialogs::ShowModal(Form& form) {
  QDialog* dialog = BuildScreen(form, session_);
  if (!dialog) return;
  dialog->exec();
  form.unloaded = true;
  delete dialog;
}

std::optional<std::string> QtDialogs::ChooseFolder(const std::string& title,
                                                   const std::string& start) {
  QString folder =
      QFileDialog::getExistingDirectory(QApplication::activeWindow(), Q(title), Q(start));
  if (folder.isEmpty()) return std::nullopt;
  return S(QDir::toNativeSeparators(folder));
}

std::optional<std::string> QtDialogs::ChooseFile(const FileChoice& choice) {
  QStringList patterns;
  for (const auto& filter : choice.filters) {
    patterns << Q(filter) << Q(filter).toLower() << Q(filter).toUpper();
  }
  patterns.removeDuplicates();
  QString filter = patterns.isEmpty() ? QString() : QStringLiteral("(%1)").arg(patterns.join(' '));
  QString file = QFileDialog::getOpenFileName(QApplication::activeWindow(), Q(choice.title),
                                              Q(choice.folder), filter);
  if (file.isEmpty()) return std::nullopt;
  return S(QDir::toNativeSeparators(file));
}

void QtDialogs::SetBusy(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

int QtDialogs::TextWidth(const std::string& text) {
  return Twips(QFontMetrics(QApplication::font()).horizontalAdvance(Q(text)));
}

}  // namespace zelmo::ui
