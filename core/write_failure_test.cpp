// Whole-file writes that fail or are cut off: the old file stands whole.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <filesystem>
#include <random>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {
namespace {

namespace fs = std::filesystem;

TEST(WriteFailure, AReadOnlyFileIsNotReplacedAndTheFailureNamesItAsOnDisk) {
  TempDir dir;
  WriteBytes(dir / "Site.inp", "old\r\n");
  fs::permissions(ToFsPath(dir / "Site.inp"),
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  EXPECT_FALSE(WriteAllLines(dir / "SITE.INP", {"new"}));
  EXPECT_EQ(ReadBytes(dir / "Site.inp"), "old\r\n");
  try {
    FailWrite(dir / "SITE.INP");
  } catch (const FileError& error) {
    EXPECT_EQ(error.UserText(), "The file could not be written.\r" + (dir / "Site.inp"));
  }
}

TEST(WriteFailure, AnAppendThatCannotBeCompletedLeavesTheListAsItWas) {
  TempDir dir;
  const std::string list = dir / "CASES.LIB";
  WriteBytes(list, "a - first");
  // Nothing can be written beside the list: its temporary name is a folder.
  fs::create_directory(ToFsPath(TemporaryOf(list)));
  EXPECT_FALSE(AppendLine(list, "b - second"));
  EXPECT_EQ(ReadBytes(list), "a - first");
  fs::remove(ToFsPath(TemporaryOf(list)));
  // The open last line is ended before the new one.
  EXPECT_TRUE(AppendLine(list, "b - second"));
  EXPECT_EQ(ReadBytes(list), "a - first\r\nb - second\r\n");
}

#ifndef _WIN32
// A list rewritten over and over by a child process that is killed at a
// random moment, a thousand times: the list is always the old one or the new
// one, never empty, cut or missing.
TEST(WriteFailure, AListRewriteKilledAtAnyMomentLeavesTheOldOrTheNewList) {
  TempDir dir;
  const std::string list = dir / "CASES.LIB";
  const std::string first = "a - first\r\nb - second\r\nc - third\r\n";
  const std::string second = "a - first\r\nc - third\r\n";
  WriteBytes(list, first);
  std::mt19937 random(20261123);
  std::uniform_int_distribution<int> moment(0, 1500);
  for (int kill = 0; kill < 1000; ++kill) {
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (bool drop = true;; drop = !drop) {
        RewriteListFile(list, [drop](const std::string& line) -> std::optional<std::string> {
          if (drop && line.rfind("b -", 0) == 0) return std::nullopt;
          return line;
        });
        if (!drop) AppendLine(list, "b - second");
      }
    }
    usleep(static_cast<useconds_t>(moment(random)));
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string bytes = ReadBytes(list);
    ASSERT_TRUE(bytes == first || bytes == second ||
                bytes == "a - first\r\nc - third\r\nb - second\r\n")
        << "after kill " << kill << ": [" << bytes << "]";
    WriteBytes(list, first);
  }
}

#endif

}  // namespace
}  // namespace zelmo::testing
