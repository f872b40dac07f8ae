#include "core/text_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/guard.h"
#include "core/live_process.h"
#include "core/testing/fakes.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

TEST(TextFiles, WritesCrLfAndSingleByteLetters) {
  TempDir dir;
  const std::string path = dir / "SITE.INP";
  ASSERT_TRUE(WriteAllLines(path, {"G\xE5rd", "", "\t1\t"}));
  EXPECT_EQ(ReadBytes(path), "G\xE5rd\r\n\r\n\t1\t\r\n");
  // A UTF-8 literal reaches the file as one byte per letter.
  EXPECT_EQ(Cp1252FromUtf8("G\u00e5rd \u20ac"), "G\xE5rd \x80");
  EXPECT_EQ(Utf8FromCp1252("\xE5\x80"), "\u00e5\u20ac");
}

TEST(TextFiles, ReadsTheLastLineWithoutItsEndAndOpensOnlyFiles) {
  TempDir dir;
  WriteBytes(dir / "a.txt", "one\r\ntwo\r\n\r\nlast");
  EXPECT_EQ(ReadAllLines(dir / "a.txt").value(),
            (std::vector<std::string>{"one", "two", "", "last"}));
  WriteBytes(dir / "b.txt", "one\r\n");
  EXPECT_EQ(*ReadAllLines(dir / "b.txt"), std::vector<std::string>{"one"});
  WriteBytes(dir / "empty.txt", "");
  EXPECT_TRUE(FileCanOpen(dir / "empty.txt") && ReadAllLines(dir / "empty.txt")->empty());
  // A folder is no file; every other failure gives false too.
  for (const std::string& path :
       {dir / "missing.txt", dir / "no/dir.txt", std::string(), dir.path()}) {
    EXPECT_FALSE(FileCanOpen(path)) << path;
  }
}

TEST(TextFiles, FindsAndReplacesAFileUnderAnotherCase) {
  TempDir dir;
  WriteBytes(dir / "Wndtp.LIB", "old\r\n");
  EXPECT_TRUE(FileCanOpen(dir / "WNDTP.LIB"));
  EXPECT_EQ(*ReadAllLines(dir / "wndtp.lib"), std::vector<std::string>{"old"});
  ASSERT_TRUE(WriteAllLines(dir / "WNDTP.LIB", {"new"}));
  EXPECT_EQ(ReadBytes(dir / "Wndtp.LIB"), "new\r\n");
  EXPECT_FALSE(testing::Exists(dir / "WNDTP.LIB") && ReadBytes(dir / "WNDTP.LIB") != "new\r\n");
  EXPECT_EQ(FilesWithExtension(dir.path(), ".lib"), std::vector<std::string>{"Wndtp.LIB"});
  // Folders are found whatever their case too.
  WriteBytes(dir / "Case1/SURFACE.INP", "x\r\n");
  EXPECT_TRUE(FileCanOpen(dir / "CASE1/surface.inp"));
  // A case made as "Åsa" is opened again under its stored name "åsa".
  WriteBytes(dir / "\xC5sa/THERMAL.INP", "XXXXXX\r\n");
  EXPECT_TRUE(FileCanOpen(dir / "\xE5sa/THERMAL.INP"));
  ASSERT_TRUE(WriteAllLines(dir / "\xE5sa/THERMAL.INP", {"------"}));
  EXPECT_EQ(ReadBytes(dir / "\xC5sa/THERMAL.INP"), "------\r\n");
  // Lists run by name whatever the case of the letters.
  WriteBytes(dir / "muk.lib", "x\r\n");
  WriteBytes(dir / "PLOR.LIB", "x\r\n");
  EXPECT_EQ(FilesWithExtension(dir.path(), ".LIB"),
            (std::vector<std::string>{"muk.lib", "PLOR.LIB", "Wndtp.LIB"}));
  EXPECT_EQ(SubFolders(dir.path()), (std::vector<std::string>{"Case1", "\xC5sa"}));
}

TEST(TextFiles, AWholeFileWriteReplacesTheFileAndLeavesNoTemporaryFile) {
  TempDir dir;
  const std::string path = dir / "A.INP", link = dir / "link";
  // The new bytes go to a file of their own renamed over the old one: a
  // second link to the old file keeps the old bytes.
  const std::function<bool()> writes[] = {
      [&] { return WriteAllLines(path, {"new"}); }, [&] { return WriteAllBytes(path, "new\r\n"); },
      [&] { return RewriteListFile(path, [](const std::string&) { return "new"; }); }};
  for (const auto& write : writes) {
    WriteBytes(path, "old\r\n");
    std::filesystem::create_hard_link(ToFsPath(path), ToFsPath(link));
    ASSERT_TRUE(write());
    EXPECT_EQ(ReadBytes(path) + ReadBytes(link), "new\r\nold\r\n");
    DeleteFile(link);
  }
  EXPECT_EQ(FilesWithExtension(dir.path(), ""), std::vector<std::string>{"A.INP"});
  // A write into a folder that is not there fails and creates nothing.
  EXPECT_FALSE(WriteAllLines(dir / "none/A.INP", {"1"}));
  EXPECT_FALSE(testing::Exists(dir / "none"));
}

// The temporaries a killed save left go with the folder's next write; a
// write still running, here or in another process, keeps its own.
TEST(TextFiles, AWriteRemovesTheTemporariesOfKilledSavesFromItsFolder) {
  TempDir dir;
  const std::string self = std::to_string(CurrentProcess());
#ifdef _WIN32
  const std::string other = "4";  // the system's own process
#else
  const std::string other = "1";
#endif
  const auto two_hours_ago = std::filesystem::file_time_type::clock::now() - std::chrono::hours(2);
  const struct {
    std::string name;
    bool old;
    bool kept;
  } files[] = {
      {"HVAC_Cal.Inp.tmp~999999999", false, false},  // its process is gone
      {"DAT1.DAT.tmp~" + self, false, true},         // written by another thread of this one
      {"DAT2.DAT.tmp~" + self, true, false},
      {"DAT3.DAT.tmp~" + other, false, true},  // a process that runs
      {"DAT4.DAT.tmp~" + other, true, false},  // its number long since reused
      {"Notes.tmp~", false, true},             // not a temporary of a write
      {"Notes.tmp~12x", false, true},
      {".tmp~999999999", false, true},
      {"Notes.tmp~12345678901", false, true},
  };
  for (const auto& file : files) {
    WriteBytes(dir / file.name, "part");
    if (file.old) std::filesystem::last_write_time(ToFsPath(dir / file.name), two_hours_ago);
  }
  std::filesystem::create_directories(ToFsPath(dir / "Folder.tmp~999999999"));
  WriteBytes(dir / "sub/Old.INP.tmp~999999999", "part");
  ASSERT_TRUE(WriteAllLines(dir / "SURFACE.INP", {"Wall"}));
  for (const auto& file : files)
    EXPECT_EQ(testing::Exists(dir / file.name), file.kept) << file.name;
  EXPECT_TRUE(FolderExists(dir / "Folder.tmp~999999999"));
  EXPECT_TRUE(testing::Exists(dir / "sub/Old.INP.tmp~999999999"));
  EXPECT_EQ(ReadBytes(dir / "SURFACE.INP"), "Wall\r\n");
}

TEST(AppendLine, CreatesTheFileAndEndsWithCrLf) {
  TempDir dir;
  ASSERT_TRUE(AppendLine(dir / "CASES.LIB", "case1 - First"));
  ASSERT_TRUE(AppendLine(dir / "CASES.LIB", "case2 - Second"));
  EXPECT_EQ(ReadBytes(dir / "CASES.LIB"), "case1 - First\r\ncase2 - Second\r\n");
  // A last line without its end stays a record of its own.
  WriteBytes(dir / "PROJECTS.LIB", "demo\tdemo");
  ASSERT_TRUE(AppendLine(dir / "PROJECTS.LIB", "new\tnew"));
  EXPECT_EQ(ReadBytes(dir / "PROJECTS.LIB"), "demo\tdemo\r\nnew\tnew\r\n");
}

TEST(FailurePolicy, ReadingPastTheEndIsReportedWithFileAndLine) {
  TempDir dir;
  const std::string path = dir / "SURFACE.INP";
  WriteBytes(path, "Wall\r\n0\r\n");
  testing::FakeDialogs dialogs;
  bool wrote = false;
  bool finished = RunGuarded(dialogs, [&] {
    TextReader reader(path);
    reader.ReadLine();
    reader.ReadTrimmedLine();
    reader.ReadLine();  // the third line is not there
    wrote = WriteAllLines(dir / "OUT.INP", {"never"});
  });
  EXPECT_FALSE(finished);
  EXPECT_FALSE(wrote);
  EXPECT_FALSE(testing::Exists(dir / "OUT.INP"));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.Last().text, "Input past end of file\r" + path + ", line 3");
  EXPECT_EQ(dialogs.Last().title, "Error message");
  EXPECT_EQ(dialogs.Last().style, mb::kCritical);
  // The program runs on: the next operation works.
  EXPECT_TRUE(RunGuarded(dialogs, [] {}));
  // A trimmed line keeps its TABs.
  TextReader reader("mem", {"  a\t ", " b "});
  const std::string first = reader.ReadTrimmedLine();
  EXPECT_EQ(first + reader.ReadTrimmedLine(), "a\tb");
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_EQ(reader.LineNumber(), 2);
  // A CR or a LF alone ends a line too; passing over lines counts them.
  WriteBytes(path, "a\rb\nc\r\n\r\nd");
  TextReader lines(path);
  lines.Skip(2);
  EXPECT_EQ(lines.NextView(), "c");
  EXPECT_EQ(lines.NextLine(), "");
  EXPECT_EQ(lines.ReadLine(), "d");
  lines.Rewind();
  lines.Skip(1);
  EXPECT_EQ(lines.NextLine(), "b");
  try {
    lines.Skip(4);
    ADD_FAILURE() << "skipped past the end";
  } catch (const FileError& error) {
    EXPECT_EQ(error.UserText(), "Input past end of file\r" + path + ", line 6");
  }
}

TEST(FileSystem, NamesThatWouldEscapeTheirFolder) {
  for (const char* name : {".", "..", "a/b", "a\\b"}) EXPECT_TRUE(EscapesFolder(name)) << name;
  for (const char* name : {"case.1", "abc"}) EXPECT_FALSE(EscapesFolder(name)) << name;
}

TEST(FileSystem, CopyDeleteAndDropResultFilesWhateverTheirCase) {
  TempDir dir;
  WriteBytes(dir / "src/Case1/THERMAL.INP", "XX-XXX\r\n");
  WriteBytes(dir / "src/Case1/out.txt", "r");
  WriteBytes(dir / "src/Case1/RES.Lis", "r");
  WriteBytes(dir / "src/Case1/a.ddd", "r");
  // A save's temporary, killed or running, is not copied.
  WriteBytes(dir / "src/Case1/HVAC_Cal.Inp.tmp~" + std::to_string(CurrentProcess()), "part");
  WriteBytes(dir / "src/Case1/Old.INP.tmp~999999999", "part");
  ASSERT_TRUE(CopyFolderTree(dir / "src", dir / "dst"));
  DeleteFilesWithExtensions(dir / "dst/Case1", {".TXT", ".LIS", ".DDD", ".GGG", ".PPP"});
  EXPECT_EQ(FilesWithExtension(dir / "dst/Case1", ""), std::vector<std::string>{"THERMAL.INP"});
  EXPECT_EQ(ReadBytes(dir / "dst/Case1/THERMAL.INP"), "XX-XXX\r\n");
  EXPECT_TRUE(DeleteFolderTree(dir / "src"));
  EXPECT_FALSE(FolderExists(dir / "src"));
  EXPECT_FALSE(DeleteFolderTree(dir / "src"));
}

}  // namespace
}  // namespace zelmo
