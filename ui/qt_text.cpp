#include "ui/qt_text.h"

#include "core/text_file.h"

namespace zelmo::ui {

QString Q(const std::string& cp1252) { return QString::fromUtf8(Utf8FromCp1252(cp1252)); }

std::string S(const QString& text) { return Cp1252FromUtf8(text.toUtf8().toStdString()); }

QString WindowTitle(const std::string& cp1252) {
  return cp1252.empty() ? QStringLiteral(" ") : Q(cp1252);
}

QString Shown(const std::string& cp1252) {
  QString text = Q(cp1252);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QChar('\r'), QChar('\n'));
  return text;
}

}  // namespace zelmo::ui
