#include "ui/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTextDocument>
#include <QTextStream>
#include <QUrl>

#include "core/file_system.h"
#include "core/text_file.h"
#include "ui/help_manual.h"
#include "ui/help_window.h"
#include "ui/qt_text.h"

#ifdef Q_OS_WIN
#include <windows.h>
// windows.h first: shellapi.h needs its types.
#include <shellapi.h>
#endif

namespace zelmo::ui {

namespace {

// The path for Qt, in the form the file system holds it.
QString LocalFile(const std::string& path) {
  std::u8string utf8 = ResolvePath(ToFsPath(path)).u8string();
  return QDir::toNativeSeparators(
      QString::fromUtf8(reinterpret_cast<const char*>(utf8.data()), utf8.size()));
}

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
// One line of output of a short query program, or empty.
QString Query(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(program, arguments);
  if (!process.waitForFinished(3000)) {
    process.kill();
    process.waitForFinished(1000);
    return {};
  }
  if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) return {};
  return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

// The program of a .desktop entry: the first word of its Exec line.
QString ProgramOfDesktopEntry(const QString& entry) {
  QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry);
  QFile in(file);
  if (file.isEmpty() || !in.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
  QTextStream stream(&in);
  bool in_entry = false;
  while (!stream.atEnd()) {
    QString line = stream.readLine().trimmed();
    if (line.startsWith('[')) {
      in_entry = line == QLatin1String("[Desktop Entry]");
      continue;
    }
    if (!in_entry || !line.startsWith(QLatin1String("Exec="))) continue;
    QStringList words = QProcess::splitCommand(line.mid(5));
    if (words.isEmpty()) return {};
    QString program = words.front();
    if (QFileInfo(program).isAbsolute()) return program;
    return QStandardPaths::findExecutable(program);
  }
  return {};
}
#endif

}  // namespace

void QtDesktop::ShowHelp(const std::string& help_file, int context) {
  // The manual's pages lie in the folder of the help file the screens name.
  HelpManual manual(ParentFolder(help_file));
  HelpRequest request = ResolveHelp(manual, context);
  QWidget* parent = QApplication::activeWindow();
  if (request.page_path.empty()) {
    QMessageBox::information(parent, "Help", Shown(request.message));
    return;
  }
  HelpWindow window(std::move(manual), parent);
  window.ShowPage(request.page_path);
  window.exec();
}

bool QtDesktop::OpenWithRegistered(const std::string& path) {
  if (!FileCanOpen(path)) return false;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(LocalFile(path)));
}

std::string QtDesktop::FindExecutable(const std::string& path) {
  if (!FileCanOpen(path)) return {};
#if defined(Q_OS_WIN)
  wchar_t found[MAX_PATH] = {};
  std::wstring file = LocalFile(path).toStdWString();
  auto result = reinterpret_cast<INT_PTR>(::FindExecutableW(file.c_str(), nullptr, found));
  if (result <= 32) return {};
  return S(QString::fromWCharArray(found));
#elif defined(Q_OS_MACOS)
  // The system opens every file with its registered program through open.
  return "/usr/bin/open";
#else
  QString mime = Query(QStringLiteral("xdg-mime"),
                       {QStringLiteral("query"), QStringLiteral("filetype"), LocalFile(path)});
  if (mime.isEmpty()) return {};
  QString entry =
      Query(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), mime});
  if (entry.isEmpty()) return {};
  return S(ProgramOfDesktopEntry(entry.split(';').front()));
#endif
}

void QtDesktop::PrintText(const std::string& text) {
  QPrinter printer;
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return;
  QTextDocument document;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(5);
  document.setDefaultFont(font);
  document.setPlainText(Shown(text));
  document.print(&printer);
}

void QtDesktop::OpenUrl(const std::string& url) { QDesktopServices::openUrl(QUrl(Q(url))); }

}  // namespace zelmo::ui
