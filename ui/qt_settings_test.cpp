#include "ui/qt_settings.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "ui/qt_desktop.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

TEST(QtSettings, KeysUnderApplicationAndSectionKeepTheirText) {
  TestApp();
  testing::TempDir dir;
  QString file = Q(dir / "settings.ini");
  {
    QtSettings store(file);
    EXPECT_EQ(store.Get("Zelmo-QRN", "Project", "LocalPath", "fallback"), "fallback");
    store.Save("Zelmo-QRN", "Project", "LocalPath", Cp1252FromUtf8("/srv/Zelmo Data/Malmö"));
    store.Save("Zelmo-QRN", "Project", "AccuracyLevelTL", "2-New coeff. each timestep");
  }
  QtSettings again(file);
  EXPECT_EQ(again.Get("Zelmo-QRN", "Project", "LocalPath", ""),
            Cp1252FromUtf8("/srv/Zelmo Data/Malmö"));
  EXPECT_EQ(again.Get("Zelmo-QRN", "Project", "AccuracyLevelTL", ""), "2-New coeff. each timestep");
  EXPECT_EQ(again.Get("Zelmo-QRN", "Other", "LocalPath", "none"), "none");
}

TEST(QtDesktop, MissingFilesOpenNothing) {
  TestApp();
  testing::TempDir dir;
  QtDesktop desktop;
  // No help file installed: the help call does nothing.
  desktop.ShowHelp(dir / "Help_English/ZELMO_e.chm", 12000);
  EXPECT_FALSE(desktop.OpenWithRegistered(dir / "missing.txt"));
  EXPECT_EQ(desktop.FindExecutable(dir / "missing.xls"), "");
}

}  // namespace
}  // namespace zelmo::ui
