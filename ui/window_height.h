// A window as high as its contents need rather than as its screen's layout
// height says, which would leave an empty band in it.
#pragma once

#include <QDialog>

namespace zelmo::ui {

inline constexpr const char* kHeightFromContents = "zelmoHeightFromContents";

// Marks the window, as its view builds it, for BuildScreen to size.
inline void HeightFromContents(QDialog& dialog) { dialog.setProperty(kHeightFromContents, true); }

}  // namespace zelmo::ui
