#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <optional>
#include <vector>

#include "core/form_helpers.h"
#include "core/guard.h"
#include "core/session.h"
#include "ui/binder.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"
#include "ui/window_height.h"

namespace zelmo::ui {

namespace {

// A modal message box. The toolkit's own box wraps a line wider than half
// the screen at a blank; the system's messages break only where their text
// does, so this box grows to its longest line instead.
class MessageBox : public QDialog {
 public:
  MessageBox(const std::string& text, int style, const std::string& title)
      : QDialog(QApplication::activeWindow()) {
    setWindowTitle(WindowTitle(title));
    auto* root = new QVBoxLayout(this);
    auto* body = new QHBoxLayout;
    body->setSpacing(Px(240));
    if (QStyle::StandardPixmap icon = IconOf(style); icon != QStyle::SP_CustomBase) {
      auto* picture = new QLabel(this);
      const int size = this->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
      picture->setPixmap(this->style()->standardIcon(icon, nullptr, this).pixmap(size, size));
      picture->setAlignment(Qt::AlignTop);
      body->addWidget(picture);
    }
    auto* label = new QLabel(Shown(text), this);
    label->setObjectName("MessageText");
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(false);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    body->addWidget(label, 1);
    root->addLayout(body);
    buttons_ = new QHBoxLayout;
    buttons_->addStretch();
    root->addLayout(buttons_);
    root->setSizeConstraint(QLayout::SetFixedSize);
    // A short text under a long title: the box is as wide as its title.
    root->addStrut(TitleBarWidth(*this, windowTitle()));
  }

  void AddButton(const char* caption, Answer answer, bool is_default) {
    auto* button = new QPushButton(QString::fromLatin1(caption), this);
    button->setDefault(is_default);
    button->setAutoDefault(true);
    if (is_default) button->setFocus();
    connect(button, &QPushButton::clicked, this, [this, answer] {
      answer_ = answer;
      accept();
    });
    buttons_->addWidget(button);
  }
  std::optional<Answer> answer() const { return answer_; }

 private:
  static QStyle::StandardPixmap IconOf(int style) {
    switch (mb::IconOf(style)) {
      case mb::kCritical:
        return QStyle::SP_MessageBoxCritical;
      case mb::kQuestion:
        return QStyle::SP_MessageBoxQuestion;
      case mb::kExclamation:
        return QStyle::SP_MessageBoxWarning;
      case mb::kInformation:
        return QStyle::SP_MessageBoxInformation;
      default:
        return QStyle::SP_CustomBase;
    }
  }

  QHBoxLayout* buttons_;
  std::optional<Answer> answer_;
};

}  // namespace

Answer QtDialogs::MsgBox(const std::string& text, int style, const std::string& title) {
  MessageBox box(text, style, title);
  struct Choice {
    const char* caption;
    Answer answer;
  };
  std::vector<Choice> choices;
  switch (mb::ButtonsOf(style)) {
    case mb::kOkCancel:
      choices = {{"OK", Answer::kOk}, {"Cancel", Answer::kCancel}};
      break;
    case mb::kAbortRetryIgnore:
      choices = {
          {"&Abort", Answer::kAbort}, {"&Retry", Answer::kRetry}, {"&Ignore", Answer::kIgnore}};
      break;
    case mb::kYesNoCancel:
      choices = {{"&Yes", Answer::kYes}, {"&No", Answer::kNo}, {"Cancel", Answer::kCancel}};
      break;
    case mb::kYesNo:
      choices = {{"&Yes", Answer::kYes}, {"&No", Answer::kNo}};
      break;
    case mb::kRetryCancel:
      choices = {{"&Retry", Answer::kRetry}, {"Cancel", Answer::kCancel}};
      break;
    default:
      choices = {{"OK", Answer::kOk}};
  }
  const size_t default_index = mb::DefaultOf(style) / 256;
  for (size_t i = 0; i < choices.size(); ++i) {
    box.AddButton(choices[i].caption, choices[i].answer, i == default_index);
  }
  box.exec();
  if (box.answer()) return *box.answer();
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
  FitTitle(*this);
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
    const bool own_height = dialog->property(kHeightFromContents).toBool();
    dialog->resize(Px(form.width), own_height ? dialog->sizeHint().height() : Px(form.height));
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

void QtDialogs::DoEvents(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace zelmo::ui
