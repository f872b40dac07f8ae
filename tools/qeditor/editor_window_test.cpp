// The text viewer offscreen: a file shown read-only, found text selected,
// and the text written back as the file's own bytes.
#include "tools/qeditor/editor_window.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "tools/test_app.h"

namespace zelmo::qeditor {
namespace {

QApplication& App() { return tools::TestApp(); }

// A report with a Windows-1252 degree sign and CR LF line ends.
const std::string kReport =
    "MUK report\r\nVolume 1\tT_mean 21.5 \xB0"
    "C\r\nVolume 2\r\n";

TEST(EditorWindowTest, OpensReadOnlyAndWritesTheSameBytesBack) {
  App();
  testing::TempDir dir;
  ASSERT_TRUE(WriteAllBytes(dir / "MUK.LIS", kReport));
  EditorWindow window;
  ASSERT_TRUE(window.Open(dir / "MUK.LIS"));
  EXPECT_TRUE(window.text()->isReadOnly());
  EXPECT_FALSE(window.save()->isEnabled());
  EXPECT_EQ(window.text()->toPlainText(),
            QString::fromUtf8("MUK report\nVolume 1\tT_mean 21.5 \xC2\xB0"
                              "C\nVolume 2\n"));
  EXPECT_TRUE(window.windowTitle().contains("(read-only)"));
  ASSERT_TRUE(window.SaveTo(dir / "copy.LIS"));
  EXPECT_EQ(testing::ReadBytes(dir / "copy.LIS"), kReport);
  EXPECT_FALSE(window.Open(dir / "missing.LIS"));
  EXPECT_EQ(window.path(), dir / "copy.LIS");
}

TEST(EditorWindowTest, EditingOnlyWhenAllowed) {
  App();
  testing::TempDir dir;
  ASSERT_TRUE(WriteAllBytes(dir / "MUK.LIS", kReport));
  EditorWindow window;
  ASSERT_TRUE(window.Open(dir / "MUK.LIS"));
  window.allow_editing()->setChecked(true);
  EXPECT_FALSE(window.text()->isReadOnly());
  EXPECT_TRUE(window.save()->isEnabled());
  window.text()->moveCursor(QTextCursor::End);
  window.text()->insertPlainText("Volume 3");
  EXPECT_TRUE(window.windowTitle().endsWith("* - Text viewer"));
  ASSERT_TRUE(window.SaveTo(dir / "MUK.LIS"));
  EXPECT_EQ(testing::ReadBytes(dir / "MUK.LIS"), kReport + "Volume 3\r\n");
}

TEST(EditorWindowTest, FindSelectsEachOccurrenceAndWrapsAround) {
  App();
  testing::TempDir dir;
  ASSERT_TRUE(WriteAllBytes(dir / "MUK.LIS", kReport));
  EditorWindow window;
  ASSERT_TRUE(window.Open(dir / "MUK.LIS"));
  ASSERT_TRUE(window.FindNext("Volume"));
  EXPECT_EQ(window.text()->textCursor().selectionStart(), 11);
  ASSERT_TRUE(window.FindNext("Volume"));
  int second = window.text()->textCursor().selectionStart();
  EXPECT_GT(second, 11);
  ASSERT_TRUE(window.FindNext("Volume"));
  EXPECT_EQ(window.text()->textCursor().selectionStart(), 11);
  EXPECT_FALSE(window.FindNext("Cooling"));
  EXPECT_EQ(window.text()->textCursor().selectionStart(), 11);
  EXPECT_FALSE(window.FindNext(""));
}

}  // namespace
}  // namespace zelmo::qeditor
