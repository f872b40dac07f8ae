#include "site/move_climatic_files.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

TEST(MoveClimaticFiles, CopiesTheListedFilesIntoTheClimateFolder) {
  testing::FakeSession fake;
  testing::TempDir dir;
  fake.ws().SystemPath = dir / "Zelmo";
  fake.ws().LocalPath = dir / "Downloads";
  CreateFolderTree(dir / "Zelmo/Climate");
  CreateFolder(dir / "Downloads");
  CreateFolder(dir / "Downloads/old");
  MoveClimaticFiles screen(fake.session);
  screen.Load();
  EXPECT_EQ(screen.caption, "Move climatic data files to ZELMO-QRN");
  EXPECT_EQ(screen.Selecteddirectory.caption, dir / "Downloads");
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"There are no files to copy", mb::kExclamation,
                                   "Check of copy climatic data files"}));

  WriteBytes(dir / "Downloads/Lund.cli", "lund");
  WriteBytes(dir / "Downloads/Kiruna.CLI", "kiruna");
  WriteBytes(dir / "Downloads/notes.txt", "x");
  // Into a sub-folder and back, by the folder list.
  screen.Dir1.list_index = static_cast<int>(screen.Dir1.items.size()) - 1;
  screen.Dir1.on_dbl_click();
  EXPECT_EQ(screen.Selecteddirectory.caption, dir / "Downloads/old");
  EXPECT_TRUE(screen.File1.items.empty());
  screen.Dir1.list_index -= 1;
  screen.Dir1.on_dbl_click();
  EXPECT_EQ(screen.File1.items, (std::vector<std::string>{"Kiruna.CLI", "Lund.cli"}));
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"Climatic files are successfully moved to ZELMO-QRN ",
                                   mb::kInformation, "Move message"}));
  EXPECT_EQ(ReadBytes(dir / "Zelmo/Climate/Lund.cli") + ReadBytes(dir / "Zelmo/Climate/Kiruna.CLI"),
            "lundkiruna");

  // A file gone before the move.
  DeleteFile(dir / "Downloads/Lund.cli");
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"Some problems occurred when moving, no files are moved",
                                   mb::kExclamation, "Error message"}));
  screen.Ok.on_click();
  EXPECT_TRUE(screen.unloaded);
}

}  // namespace
}  // namespace zelmo
