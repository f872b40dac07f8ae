// The manual: every Help button of every screen opens an existing page of
// the staged program tree, in the help window, with its contents and search.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "ui/help_manual.h"
#include "ui/help_window.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

std::string StagedHelp() {
  const char* dist = std::getenv("ZELMO_DIST_DIR");
  return JoinPath(dist ? dist : "", "Help_English");
}

// Every context number a Help button or menu entry of the program opens,
// with the screen it belongs to and the title of its page.
struct Topic {
  int context;
  const char* screen;
  const char* title;
};
const Topic kTopics[] = {
    {12000, "main window button", "The main window"},
    {12100, "main window menu", "Contents of the manual"},
    {12113, "ThermLoad", "Simulation (ThermLoad)"},
    {12116, "ListOfBuildingElements", "List of surfaces facing outdoors"},
    {12120, "Results", "Results (TextFiles)"},
    {12130, "SysInit", "Settings (SysInit)"},
    {12163, "OpenProject", "Open project"},
    {12164, "RenProject", "Rename project"},
    {12165, "NewProject", "New project"},
    {12166, "NewCase", "New case"},
    {12167, "DelProject", "Delete project"},
    {12168, "CopyProject", "Copy project"},
    {12169, "CopyCase", "Copy case"},
    {12170, "OpenCase", "Open case"},
    {12002, "DelCase", "Delete case"},
    {12001, "RenCase", "Rename case"},
    {12110, "Surface", "Building elements (Surface)"},
    {12111, "HVAC", "Schedules (HVAC)"},
    {12114, "Out_put", "Output specification (Out_put)"},
    {12140, "Site", "Site / Period / Climate"},
    {12141, "MoveClimaticFiles", "Move climatic data files"},
    {12142, "Cv12TOv20", "Convert a project from version 1.2"},
    {12003, "Walls", "Walls"},
    {12004, "OpaqueMtrl, AddOpaque", "Opaque materials"},
    {12005, "Wind_Types", "Window types"},
    {12006, "Glass_types", "Glass types"},
    {12030, "Gases, AddGas", "Gas types"},
    {12040, "AddGaGl", "Add a glass or gas to a window type"},
    {12050, "MoveIns", "Interior curtains"},
    {12131, "MISched", "Curtain schedule"},
};

TEST(HelpPages, EveryHelpButtonOpensAnExistingPage) {
  TestApp();
  HelpManual manual(StagedHelp());
  ASSERT_TRUE(manual.Installed());
  for (const Topic& topic : kTopics) {
    HelpRequest request = ResolveHelp(manual, topic.context);
    ASSERT_EQ(request.message, "") << topic.screen;
    ASSERT_TRUE(FileCanOpen(request.page_path)) << topic.screen;
    HelpWindow window{HelpManual(StagedHelp())};
    window.ShowPage(request.page_path);
    EXPECT_EQ(window.browser()->documentTitle(), topic.title) << topic.screen;
    EXPECT_EQ(window.windowTitle(), QString(topic.title) + " - ZELMO-QRN Help");
    EXPECT_EQ(window.contents()->currentItem()->text(), topic.title) << topic.screen;
    SaveShot(&window, "help_" + std::to_string(topic.context));
  }
}

TEST(HelpPages, EveryPageOfTheContentsIsThereAndLinksBack) {
  HelpManual manual(StagedHelp());
  ASSERT_GE(manual.pages().size(), std::size(kTopics));
  EXPECT_EQ(manual.pages().front().file, "index.html");
  auto index = ReadAllBytes(manual.PathOf(manual.pages().front()));
  ASSERT_TRUE(index);
  for (const HelpPage& page : manual.pages()) {
    auto bytes = ReadAllBytes(manual.PathOf(page));
    ASSERT_TRUE(bytes) << page.file;
    EXPECT_NE(bytes->find("<title>" + page.title + "</title>"), std::string::npos) << page.file;
    if (page.file != "index.html") {
      EXPECT_NE(index->find("href=\"" + page.file + "\""), std::string::npos) << page.file;
    }
  }
}

TEST(HelpPages, MissingPagesAndManualsAreSaid) {
  testing::TempDir dir;
  EXPECT_EQ(ResolveHelp(HelpManual(dir.path()), 12000).message,
            "The help pages are not installed: " + (dir / "contexts.txt") + " cannot be read.");
  testing::WriteBytes(dir / "contexts.txt", "12000\tmain.html\tMain\r\nx\tbad line\r\n");
  HelpManual manual(dir.path());
  EXPECT_EQ(manual.pages().size(), 1u);
  EXPECT_EQ(ResolveHelp(manual, 12999).message,
            "There is no help page for this screen (help context 12999).");
  EXPECT_EQ(ResolveHelp(manual, 12000).message,
            "The help page " + (dir / "main.html") + " is missing.");
  EXPECT_EQ(ResolveHelp(manual, 0).message,
            "There is no help page for this screen (help context 0).");
}

TEST(HelpPages, SearchFindsThePagesWithEveryWord) {
  TestApp();
  HelpWindow window{HelpManual(StagedHelp())};
  window.RunSearch("comfort volume PMV");
  std::vector<QString> titles;
  for (int i = 0; i < window.found()->count(); ++i)
    titles.push_back(window.found()->item(i)->text());
  EXPECT_NE(std::find(titles.begin(), titles.end(),
                      "Result programs: line diagram, comfort, text viewer"),
            titles.end());
  EXPECT_EQ(std::find(titles.begin(), titles.end(), "Walls"), titles.end());
  window.RunSearch("xyzzy");
  ASSERT_EQ(window.found()->count(), 1);
  EXPECT_EQ(window.found()->item(0)->text(), "No page holds these words.");
}

}  // namespace
}  // namespace zelmo::ui
