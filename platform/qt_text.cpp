#include "platform/qt_text.h"

#include "core/text_file.h"

namespace zelmo::platform {

QString Q(const std::string& cp1252) { return QString::fromUtf8(Utf8FromCp1252(cp1252)); }

std::string S(const QString& text) { return Cp1252FromUtf8(text.toUtf8().toStdString()); }

}  // namespace zelmo::platform
