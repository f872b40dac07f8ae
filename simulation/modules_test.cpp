#include "simulation/modules.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "simulation/module_error.h"

namespace zelmo {
namespace {

using testing::FakeSession;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

struct Status {
  bool ok = false;
  int code = -99;
  std::string module = "unset", text = "unset";
  double number = -1;
};

Status Read(const Workspace& ws, int code_before = -99) {
  Status s;
  s.code = code_before;
  s.ok = ReadStatusFile(ws, s.code, s.module, s.text, s.number);
  return s;
}

TEST(StatusFile, InitWritesTheStartBytesAndReadsAsSuccess) {
  TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  ASSERT_TRUE(InitStatusFile(ws));
  EXPECT_EQ(ReadBytes(dir / "ECM.Dat"), "    0 Start     \r\nTOM\r\n0\r\n");
  Status s = Read(ws);
  EXPECT_TRUE(s.ok);
  EXPECT_EQ(s.code, 0);
  EXPECT_EQ(s.module, "Start");
  EXPECT_EQ(s.text, "TOM");
  EXPECT_EQ(s.number, 0);
}

TEST(StatusFile, CodesZeroNegativePositiveAndNone) {
  TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  WriteBytes(dir / "ECM.Dat", "    0 PLOR      \r\nDone\r\n 12.5\r\n");
  Status s = Read(ws);
  EXPECT_TRUE(s.ok);
  EXPECT_EQ(s.module, "PLOR");
  EXPECT_EQ(s.text, "Done");
  EXPECT_EQ(s.number, 12.5);

  // A negative code is no error, and comes back as its absolute value.
  WriteBytes(dir / "ECM.Dat", "   -7 NEB\r\nx\r\n0\r\n");
  s = Read(ws);
  EXPECT_TRUE(s.ok);
  EXPECT_EQ(s.code, 7);
  EXPECT_EQ(s.module, "NEB");

  // Free format: a comma ends a field, a quoted text is taken whole.
  WriteBytes(dir / "ECM.Dat", "203,\"CORV, pass 2\"\r\n  Wall 5 , more\r\n3\r\n");
  s = Read(ws);
  EXPECT_FALSE(s.ok);
  EXPECT_EQ(s.code, 203);
  EXPECT_EQ(s.module, "CORV, pass 2");
  EXPECT_EQ(s.text, "Wall 5");
  EXPECT_EQ(s.number, 3);

  // The file's name is found whatever its case.
  std::filesystem::remove(ToFsPath(dir / "ECM.Dat"));
  WriteBytes(dir / "ecm.dat", "  401 FENT      \r\nTOM\r\n0\r\n");
  s = Read(ws);
  EXPECT_FALSE(s.ok);
  EXPECT_EQ(s.code, 401);
  EXPECT_EQ(s.module, "FENT");

  // No file: module "??", failure, the code as it was.
  std::filesystem::remove(ToFsPath(dir / "ecm.dat"));
  s = Read(ws, 5);
  EXPECT_FALSE(s.ok);
  EXPECT_EQ(s.code, 5);
  EXPECT_EQ(s.module, "??");

  // A file cut short is reported with its name and line.
  WriteBytes(dir / "ECM.Dat", "    3 DANE\r\n");
  try {
    Read(ws);
    FAIL() << "a file cut short must be reported";
  } catch (const FileError& e) {
    EXPECT_EQ(e.line(), 2);
    EXPECT_EQ(e.path(), dir / "ECM.Dat");
  }
}

TEST(RunModule, StartsTheModuleOnTheCaseFolderWithoutFocus) {
  FakeSession fake;
  fake.ws().ThermalDirectory = "/opt/zelmo/TZELMO";
  fake.ws().CasePath = "/data/my proj/case1";
  RunModule(fake.session, "PLOR.EXE");
  ASSERT_EQ(fake.processes.calls.size(), 1u);
  const auto& call = fake.processes.calls[0];
  EXPECT_EQ(call.program, JoinPath("/opt/zelmo/TZELMO", "PLOR.EXE"));
  EXPECT_EQ(call.arguments, std::vector<std::string>{JoinPath("/data/my proj/case1", "")});
  EXPECT_EQ(call.window_mode, 7);
}

// The error table walk, with the Errform screen recorded as it is shown.
struct ShownError {
  std::string title, text;
};

std::vector<ShownError> ShowError(const std::string& table, int code, const std::string& text,
                                  int show_text) {
  TempDir dir;
  FakeSession fake;
  fake.ws().ProgramDirectory = dir.path();
  if (!table.empty()) WriteBytes(dir / "ErrorCodesZelmo/ErrorsZelmo.err", table);
  std::vector<ShownError> shown;
  fake.dialogs.screens["Errform"] = [&shown](Form& form) {
    auto& err = static_cast<Errform&>(form);
    shown.push_back({err.caption, err.Label1.caption});
    err.Command1.on_click();
    EXPECT_TRUE(err.unloaded);
  };
  ShowModuleError(fake.session, code, text, show_text);
  return shown;
}

TEST(ModuleError, WalksTheTableEntryByEntry) {
  const std::string table =
      "12 PLOR\r\n"
      "First line of 12.   \r\n"
      "1234 is part of the text\r\n"
      "123 NEB\r\n"
      "Text of 123\r\n"
      "\r\n"
      "12 CORV second\r\n"
      "Again 12\r\n"
      "99\r\n"
      "Not an entry\r\n"
      "012 FENT\r\n"
      "Third";
  auto shown = ShowError(table, 12, "ignored", 0);
  ASSERT_EQ(shown.size(), 3u);
  EXPECT_EQ(shown[0].title, "Error  12 in module PLOR");
  EXPECT_EQ(shown[0].text, "First line of 12. 1234 is part of the text ");
  EXPECT_EQ(shown[1].title, "Error  12 in module CORV second");
  EXPECT_EQ(shown[1].text, "Again 12 ");
  EXPECT_EQ(shown[2].title, "Error  12 in module FENT");
  EXPECT_EQ(shown[2].text, "Third ");

  shown = ShowError(table, 123, "Previous text   ", 1);
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].title, "Error  123 in module NEB");
  EXPECT_EQ(shown[0].text, "Previous text\r\nText of 123 ");

  EXPECT_TRUE(ShowError(table, 55, "x", 1).empty());
  EXPECT_TRUE(ShowError("", 12, "x", 1).empty());  // no table: nothing shown
}

TEST(ModuleError, TheShippedTableHasATextForEveryModule) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  ASSERT_TRUE(source);
  auto lines = ReadAllLines(std::string(source) + "/system/tree/ErrorCodesZelmo/ErrorsZelmo.err");
  ASSERT_TRUE(lines);
  for (int code : {101, 201, 301, 401, 501, 601, 701}) {
    auto entries = FindErrorEntries(*lines, code);
    ASSERT_EQ(entries.size(), 1u) << code;
    EXPECT_FALSE(entries[0].lines.empty()) << code;
  }
  EXPECT_EQ(FindErrorEntries(*lines, 701)[0].module, "ZELMO-QRN");
}

}  // namespace
}  // namespace zelmo
