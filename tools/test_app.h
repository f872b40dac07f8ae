// The one application of a tool's test program, for the tests of its
// windows; the test main chooses the offscreen platform.
#pragma once

#include <QApplication>

namespace zelmo::tools {

inline QApplication& TestApp() {
  static int argc = 1;
  static char name[] = "zelmo-tool-test";
  static char* argv[] = {name, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  return *app;
}

}  // namespace zelmo::tools
