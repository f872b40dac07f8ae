// For the tests of the views: one application for the test program, and
// screenshots of a window when ZELMO_SHOT_DIR names a folder.
#pragma once

#include <QApplication>
#include <QWidget>
#include <string>

#include "ui/views.h"

namespace zelmo::ui {

inline QApplication& TestApp() {
  static int argc = 1;
  static char name[] = "zelmo-test";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    auto* created = new QApplication(argc, argv);
    RegisterAllViews();
    return created;
  }();
  return *app;
}

inline void SaveShot(QWidget* widget, const std::string& name) {
  QByteArray dir = qgetenv("ZELMO_SHOT_DIR");
  if (dir.isEmpty() || !widget) return;
  widget->grab().save(QString::fromLocal8Bit(dir) + "/" + QString::fromStdString(name) + ".png");
}

}  // namespace zelmo::ui
