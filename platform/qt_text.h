// Conversion between the program's single-byte text and Qt's Unicode. It
// happens here and nowhere else.
#pragma once

#include <QString>
#include <string>

namespace zelmo::platform {

QString Q(const std::string& cp1252);
std::string S(const QString& text);

}  // namespace zelmo::platform
