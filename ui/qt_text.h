// Text for the screens: the program's single-byte text as Qt shows it.
#pragma once

#include <QString>
#include <string>

#include "platform/qt_text.h"

namespace zelmo::ui {

using platform::Q;
using platform::S;
// Text for the screen: a CR (with or without LF) is a line break.
QString Shown(const std::string& cp1252);
// A window's title for the screen. A window manager shows the program's name
// in an empty title; the system's empty titles stay empty, so they are given
// as one blank.
QString WindowTitle(const std::string& cp1252);
// Twips to pixels and back, by one fixed factor.
inline int Px(int twips) { return twips / 15; }
inline int Twips(int px) { return px * 15; }

}  // namespace zelmo::ui
