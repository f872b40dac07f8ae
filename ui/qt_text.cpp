#include "ui/qt_text.h"

namespace zelmo::ui {

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
