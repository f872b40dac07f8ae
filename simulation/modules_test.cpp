#include "simulation/modules.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "modules/dat1_test_buildings.h"
#include "modules/neb.h"
#include "modules/plor.h"
#include "simulation/launchers.h"
#include "simulation/module_error.h"
#include "simulation/results_screen.h"

namespace zelmo {
namespace {

using testing::FakeSession;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

// What the status file of the case says: "ok" or "failed", the code, the
// module, the text and the number.
std::string Status(const Workspace& ws, int code = -99) {
  std::string module = "unset", text = "unset";
  double number = -1;
  bool ok = ReadStatusFile(ws, code, module, text, number);
  std::ostringstream status;
  status << (ok ? "ok " : "failed ") << code << "|" << module << "|" << text << "|" << number;
  return status.str();
}

TEST(StatusFile, InitCodesAndTheFileCutShort) {
  TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  ASSERT_TRUE(InitStatusFile(ws));
  EXPECT_EQ(ReadBytes(dir / "ECM.Dat"), "    0 Start     \r\nTOM\r\n0\r\n");
  EXPECT_EQ(Status(ws), "ok 0|Start|TOM|0");
  const std::tuple<const char*, const char*, const char*> files[] = {
      {"ECM.Dat", "    0 PLOR      \r\nDone\r\n 12.5\r\n", "ok 0|PLOR|Done|12.5"},
      // A negative code is no error, and comes back as its absolute value.
      {"ECM.Dat", "   -7 NEB\r\nx\r\n0\r\n", "ok 7|NEB|x|0"},
      // Free format: a comma ends a field, a quoted text is taken whole.
      {"ECM.Dat", "203,\"CORV, pass 2\"\r\n  Wall 5 , more\r\n3\r\n",
       "failed 203|CORV, pass 2|Wall 5|3"},
      // The file's name is found whatever its case.
      {"ecm.dat", "  401 FENT      \r\nTOM\r\n0\r\n", "failed 401|FENT|TOM|0"}};
  for (const auto& [name, bytes, status] : files) {
    DeleteFile(dir / "ECM.Dat");
    WriteBytes(dir / name, bytes);
    EXPECT_EQ(Status(ws), status);
  }
  // No file: module "??", failure, the code as it was.
  DeleteFile(dir / "ecm.dat");
  EXPECT_EQ(Status(ws, 5).substr(0, 12), "failed 5|??|");
  // A file cut short is reported with its name and line.
  WriteBytes(dir / "ECM.Dat", "    3 DANE\r\n");
  EXPECT_EQ(testing::FileErrorText([&ws] { Status(ws); }),
            "Input past end of file\r" + (dir / "ECM.Dat") + ", line 2");
}

TEST(RunModule, StartsTheModuleOnTheCaseFolderWithoutFocus) {
  FakeSession fake;
  fake.ws().ThermalDirectory = "/opt/zelmo/TZELMO";
  fake.ws().CasePath = "/data/my proj/case1";
  RunModule(fake.session, "PLOR.EXE");
  EXPECT_EQ(
      fake.processes.calls,
      (std::vector<testing::RunCall>{
          {JoinPath("/opt/zelmo/TZELMO", "PLOR.EXE"), {JoinPath("/data/my proj/case1", "")}, 7}}));
}

// The error table walk: the title and text of each Errform shown.
testing::Strings ShowError(const std::string& table, int code, const std::string& text,
                           int show_text) {
  TempDir dir;
  FakeSession fake;
  fake.ws().ProgramDirectory = dir.path();
  if (!table.empty()) WriteBytes(dir / "ErrorCodesZelmo/ErrorsZelmo.err", table);
  testing::Strings shown;
  fake.dialogs.screens["Errform"] = [&shown](Form& form) {
    auto& err = static_cast<Errform&>(form);
    shown.push_back(err.caption + "|" + err.Label1.caption);
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
  EXPECT_EQ(ShowError(table, 12, "ignored", 0),
            (testing::Strings{
                "Error  12 in module PLOR|First line of 12. 1234 is part of the text ",
                "Error  12 in module CORV second|Again 12 ", "Error  12 in module FENT|Third "}));
  EXPECT_EQ(ShowError(table, 123, "Previous text   ", 1),
            testing::Strings{"Error  123 in module NEB|Previous text\r\nText of 123 "});

  EXPECT_TRUE(ShowError(table, 55, "x", 1).empty());
  EXPECT_TRUE(ShowError("", 12, "x", 1).empty());  // no table: nothing shown
}

TEST(ModuleError, TheShippedTableHasATextForEveryModule) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  ASSERT_TRUE(source);
  auto lines = ReadAllLines(std::string(source) + "/system/tree/ErrorCodesZelmo/ErrorsZelmo.err");
  ASSERT_TRUE(lines);
  for (int code : {101, 201, 301, 401, 501, 601, 701, 702}) {
    auto entries = FindErrorEntries(*lines, code);
    ASSERT_EQ(entries.size(), 1u) << code;
    EXPECT_FALSE(entries[0].lines.empty()) << code;
  }
  EXPECT_EQ(FindErrorEntries(*lines, 701)[0].module, "ZELMO-QRN");
  EXPECT_EQ(FindErrorEntries(*lines, kCannotStartCode)[0].module, "ZELMO-QRN");
}

// The geometry modules on input they cannot take: the code and the line
// they leave in ECM.Dat, and the window the shipped error table makes of it.
TEST(ModuleError, PlorAndNebExplainWhatFailedAndWhatToDo) {
  namespace m = modules;
  const std::string box = m::test_buildings::Dat1Text(1, m::test_buildings::ValidationBox());
  std::string damaged = box;
  damaged.replace(damaged.find("South 1") + 20, 5, "  9x0");
  std::string too_many = box;
  too_many.replace(too_many.find("\r\n") + 2, 14, "   1.00 101.00");
  std::vector<m::test_buildings::ElementSpec> open = m::test_buildings::ValidationBox();
  open.pop_back();
  std::vector<m::test_buildings::ElementSpec> flat = m::test_buildings::ValidationBox();
  flat[3].dims[1] = 0;
  const struct {
    const char* module;
    std::string dat1;      // empty: none
    const char* plor_res;  // written over PLOR's results when set
    int code;
    const char* line;  // of ECM.Dat, the case folder shown as <case>
    const char* first_words;
  } rows[] = {
      {"PLOR", "", nullptr, 101, "Cannot read <case>DAT1.DAT",
       "The geometry file DAT1.DAT cannot be opened"},
      {"PLOR", damaged, nullptr, 102,
       "A number was expected in columns 21 to 30: <case>DAT1.DAT, line 4",
       "The geometry file DAT1.DAT is damaged"},
      {"PLOR", m::test_buildings::Dat1Text(1, flat), nullptr, 103,
       "Element 4 (East): it has no area", "A building element named above"},
      {"PLOR", too_many, nullptr, 104,
       "<case>DAT1.DAT holds 101.00 elements; the modules take at most 100",
       "The case has more volumes"},
      {"PLOR", m::test_buildings::Dat1Text(1, open), nullptr, 105,
       "Volume 1: its elements leave an opening of 48.00 m2 facing tilt 180, azimuth 0",
       "A volume named above is not closed"},
      {"NEB", "", nullptr, 201, "Cannot read <case>DAT1.DAT",
       "The geometry file DAT1.DAT cannot be opened"},
      {"NEB", box, "", 202, "The results of PLOR (PLOR.RES) are missing: run PLOR again",
       "The results of PLOR are missing"},
      {"NEB", box, "COUNTS\t1\t7", 203,
       "A line COUNTS with 3 values was expected: <case>PLOR.RES, line 2",
       "The results of PLOR (PLOR.RES) are damaged"},
  };
  for (const auto& row : rows) {
    TempDir dir;
    FakeSession fake;
    fake.ws().ProgramDirectory = std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree";
    fake.ws().CasePath = dir.path();
    const std::string folder = dir.path() + "/";
    if (!row.dat1.empty()) WriteBytes(dir / "DAT1.DAT", row.dat1);
    if (row.plor_res && *row.plor_res) {
      m::RunPlor(folder);
      WriteBytes(dir / "PLOR.RES",
                 "ZELMO-QRN PLOR " + m::PlorFingerprint(folder) + "\r\n" + row.plor_res + "\r\n");
    }
    std::string program = row.module;
    std::vector<char*> argv = {program.data(), const_cast<char*>(folder.c_str())};
    const bool plor = program == "PLOR";
    EXPECT_EQ(m::RunModule(2, argv.data(), plor ? m::kPlor : m::kNeb,
                           plor ? m::kPlorDat1Damaged : m::kNebPlorDamaged,
                           plor ? m::RunPlor : m::RunNeb),
              1);
    int code = 0;
    std::string module, text;
    double number = 0;
    EXPECT_FALSE(ReadStatusFile(fake.ws(), code, module, text, number));
    std::string expected = row.line;
    for (size_t at; (at = expected.find("<case>")) != std::string::npos;) {
      expected.replace(at, 6, folder);
    }
    EXPECT_EQ(std::to_string(code) + " " + module + ": " + text,
              std::to_string(row.code) + " " + row.module + ": " + expected);
    testing::Strings shown;
    fake.dialogs.screens["Errform"] = [&shown](Form& form) {
      auto& err = static_cast<Errform&>(form);
      shown.push_back(err.caption + "|" + err.Label1.caption);
      err.Command1.on_click();
    };
    ShowModuleError(fake.session, code, text, 1);
    ASSERT_EQ(shown.size(), 1u) << row.code;
    EXPECT_EQ(shown[0].substr(0, shown[0].find('|')),
              "Error  " + std::to_string(row.code) + " in module " + row.module);
    EXPECT_EQ(
        shown[0].substr(shown[0].find('|') + 1, expected.size() + 2 + strlen(row.first_words)),
        expected + "\r\n" + row.first_words);
  }
}

using testing::RunCall;

// A case with a finished run and a volume chosen for comfort.
struct ComfortCase {
  ComfortCase() {
    ws().CasePath = dir / "proj/case1";
    ws().ComfortDirectory = "/z/FELT";
    ws().DiagramDirectory = "/z/DIAGRAM";
    ws().ProgramDirectory = dir.path();
    WriteBytes(dir / "proj/case1/ECM.Dat", "    0 MUK       \r\nTOM\r\n0\r\n");
    // One element between Volume 1 and Volume 2.
    std::string element = "Wall\r\n";
    for (int field = 1; field <= 29; ++field) {
      element += std::string("\t") + (field == 7 ? "1" : field == 8 ? "2" : "0") + "\r\n";
    }
    WriteBytes(dir / "proj/case1/SURFACE.INP", element);
    WriteBytes(dir / "proj/case1/OUTPUT.INP",
               "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n2\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
    // Felt.EXE leaves Felt.GGG in the case folder.
    fake.processes.on_run = [this](const RunCall& call) {
      if (call.program == JoinPath("/z/FELT", "Felt.EXE")) WriteBytes(case_file("Felt.GGG"), "");
    };
  }
  Workspace& ws() { return fake.ws(); }
  std::string case_file(const std::string& name) { return JoinPath(ws().CasePath, name); }
  TempDir dir;
  FakeSession fake;
};

TEST(Launchers, LineDiagramAndComfortCommandLines) {
  ComfortCase c;
  std::string arg = JoinPath(c.ws().CasePath, "");
  RunLineDiagram(c.fake.session);
  RunThermalComfort(c.fake.session);
  const RunCall felt{JoinPath("/z/FELT", "Felt.EXE"), {arg}, 7};
  EXPECT_EQ(c.fake.processes.calls,
            (std::vector<RunCall>{{JoinPath("/z/DIAGRAM", "RSDiagram.EXE"), {arg}, 5},
                                  felt,
                                  {JoinPath("/z/FELT", "TrvComf.EXE"), {arg + "Felt"}, 5}}));
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
}

TEST(Launchers, VisualComfortSaysItIsNoPartOfTheProgram) {
  ComfortCase c;
  RunVisualComfort(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_EQ(c.fake.dialogs.messages,
            (std::vector<testing::ShownMessage>{
                {"Visual comfort (daylight) calculations are not part of this program. The "
                 "thermal comfort of a case is under Results, Diagram, Comfort, Thermal.",
                 mb::kInformation, "Visual comfort"}}));
}

// A program of the tree that cannot be started is named to the user, and
// what would follow it is not started.
TEST(Launchers, AProgramThatCannotStartIsNamed) {
  const struct {
    const char* folder;
    const char* program;
    void (*launch)(Session&);
    size_t calls;
  } rows[] = {
      {"/z/DIAGRAM", "RSDiagram.EXE", RunLineDiagram, 1},
      {"/z/FELT", "Felt.EXE", RunThermalComfort, 1},
      {"/z/FELT", "TrvComf.EXE", RunThermalComfort, 2},
  };
  for (const auto& row : rows) {
    ComfortCase c;
    const std::string missing = JoinPath(row.folder, row.program);
    c.fake.processes.cannot_start = {missing};
    row.launch(c.fake.session);
    EXPECT_EQ(c.fake.processes.calls.size(), row.calls) << missing;
    EXPECT_EQ(c.fake.dialogs.messages,
              (std::vector<testing::ShownMessage>{{"The program could not be started:\r" + missing,
                                                   mb::kExclamation, "Error message"}}))
        << missing;
  }
}

TEST(Launchers, ComfortRefusals) {
  ComfortCase c;
  // No Felt.GGG after Felt.EXE: the viewer is not started.
  c.fake.processes.on_run = nullptr;
  RunThermalComfort(c.fake.session);
  EXPECT_EQ(c.fake.processes.calls.size(), 1u);
  const testing::ShownMessage none{"No Comfort calculations has been done", mb::kExclamation,
                                   "Comfort"};
  EXPECT_EQ(c.fake.dialogs.messages, std::vector<testing::ShownMessage>{none});

  // No volume chosen for comfort, or only one the elements no longer name:
  // nothing starts.
  c.fake.processes.calls.clear();
  WriteBytes(c.case_file("OUTPUT.INP"), "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n");
  RunThermalComfort(c.fake.session);
  WriteBytes(c.case_file("OUTPUT.INP"),
             "2\r\n-1 \r\n-1 \r\n1\t0\t0\t0\t0\t0\t0\t0\t\r\n3\t0\t0\t0\t0\t0\t0\t-1\t\r\n");
  RunThermalComfort(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_EQ(c.fake.dialogs.messages, std::vector<testing::ShownMessage>(3, none));

  // After a failed run the error screen shows code 701 and nothing starts.
  WriteBytes(c.dir / "ErrorCodesZelmo/ErrorsZelmo.err", "701 ZELMO-QRN\r\nRun again.\r\n");
  WriteBytes(c.case_file("ECM.Dat"), "  202 NEB       \r\nTOM\r\n0\r\n");
  std::string title, label;
  c.fake.dialogs.screens["Errform"] = [&](Form& form) {
    title = form.caption;
    label = static_cast<Errform&>(form).Label1.caption;
  };
  RunThermalComfort(c.fake.session);
  EXPECT_TRUE(c.fake.processes.calls.empty());
  EXPECT_EQ(title, "Error  701 in module ZELMO-QRN");
  EXPECT_EQ(label,
            "Previous calculation for this case has ended with en error 202 in module "
            "NEB.\r\nRun again. ");
}

TEST(Launchers, UsersManualThroughTheRegisteredReader) {
  TempDir dir;
  FakeSession fake;
  fake.ws().MainDirectory = dir / "TGZELMO";
  std::filesystem::create_directories(ToFsPath(fake.ws().MainDirectory));
  fake.desktop.registered_program = "C:\\Reader\\AcroRd32.exe /s";
  ShowUsersManual(fake.session);
  std::string root = FromFsPath(ToFsPath(dir.path()).root_path());
  const std::vector<RunCall> reader = {
      {"C:\\Reader\\AcroRd32.exe", {root + JoinPath("document", "CD_Zelmo4w4.pdf")}, 5}};
  EXPECT_EQ(fake.processes.calls, reader);
  EXPECT_TRUE(FileCanOpen(dir / "TGZELMO/pq.pdf"));

  fake.desktop.has_registered_program = false;
  ShowUsersManual(fake.session);
  EXPECT_EQ(fake.processes.calls, reader);
  EXPECT_EQ(fake.dialogs.Texts(), testing::Strings{"No Excel program was found ! "});
}

using testing::Exists;

struct ResultsCase {
  ResultsCase() {
    ws().ProjectName = "Office";
    ws().ProjectPath = dir / "office";
    ws().CaseName = "case2";
    ws().CasePath = dir / "office/case2";
    ws().MainDirectory = dir / "TGZELMO";
    ws().ProgramDirectory = dir.path();
    WriteBytes(dir / "office/CASES.LIB", "case1 - First\r\ncase2 - Second\r\n");
    WriteBytes(dir / "office/case1/a.LIS", "one\r\n");
    WriteBytes(dir / "office/case2/PLOR.LIS", "PLOR report\r\nline 2");
    WriteBytes(dir / "office/case2/muk.lis", "MUK\r\n");
    WriteBytes(dir / "office/case2/LOADS.TXT", "1,5\t2,25\r\n3.0\r\n");
    std::filesystem::create_directories(ToFsPath(ws().MainDirectory));
    screen.Load();
  }
  Workspace& ws() { return fake.ws(); }
  TempDir dir;
  FakeSession fake;
  Results screen{fake.session};
};

TEST(Results, ListsCasesTypesAndFiles) {
  ResultsCase c;
  Results& screen = c.screen;
  EXPECT_EQ(screen.caption + "|" + screen.Label1.caption,
            "TextFiles|Existing cases - Project : office");
  EXPECT_EQ(screen.CaseList.items, (testing::Strings{"case1 - First", "case2 - Second"}));
  EXPECT_EQ(screen.CaseList.list_index, 1);
  EXPECT_EQ(screen.TypeList.items, (testing::Strings{"LIS", "TXT"}));
  EXPECT_EQ(screen.File1.items.size(), 3u);  // no type chosen: every file
  testing::Act(screen, {"TypeList#0"});
  EXPECT_EQ(screen.File1.items, (testing::Strings{"muk.lis", "PLOR.LIS"}));
  testing::Act(screen, {"CaseList#0"});
  EXPECT_EQ(screen.File1.items, testing::Strings{"a.LIS"});

  // A case folder without result files: an empty list, and nothing happens.
  WriteBytes(c.dir / "office/CASES.LIB", "case3 - Empty\r\n");
  Results empty(c.fake.session);
  c.ws().CaseName = "case3";
  empty.Load();
  EXPECT_TRUE(empty.File1.items.empty());
  testing::Act(empty, {"File1", "File1*"});
  EXPECT_TRUE(c.fake.processes.calls.empty() && c.fake.dialogs.messages.empty());
}

TEST(Results, ShowsPrintsAndOpensAReport) {
  ResultsCase c;
  Results& screen = c.screen;
  testing::Act(screen, {"TypeList#0"});
  EXPECT_FALSE(screen.Command1.visible);
  testing::Act(screen, {"File1#1"});
  EXPECT_EQ(screen.Text1.text, "PLOR report\r\nline 2\r\n");
  EXPECT_TRUE(screen.Command1.visible);
  testing::Act(screen, {"Command1"});
  EXPECT_EQ(c.fake.desktop.printed, testing::Strings{screen.Text1.text});

  // Without the editor in the program tree the registered program opens it.
  std::string path = c.dir / "office/case2/PLOR.LIS";
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.desktop.opened, testing::Strings{path});
  EXPECT_TRUE(c.fake.processes.calls.empty());
  WriteBytes(c.dir / "TGZELMO/QEDITOR.EXE", "");
  testing::Act(screen, {"File1*"});
  const std::vector<testing::RunCall> editor = {{c.dir / "TGZELMO/QEDITOR.EXE", {path}, 5}};
  EXPECT_EQ(c.fake.processes.calls, editor);
  EXPECT_EQ(screen.caption, "Results - " + ToLower(path));
  // An editor there that cannot be started is named.
  c.fake.processes.cannot_start = {editor[0].program};
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.dialogs.Last(),
            (testing::ShownMessage{"The program could not be started:\r" + editor[0].program,
                                   mb::kExclamation, "Error message"}));
  c.fake.processes.cannot_start.clear();
  c.fake.processes.calls = editor;

  std::filesystem::remove(ToFsPath(path));
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.processes.calls, editor);
  EXPECT_EQ(c.fake.dialogs.Last(),
            (testing::ShownMessage{"Can not find the file " + path, mb::kExclamation, "MESSAGE"}));
  testing::Act(screen, {"Command3", "Command2"});
  EXPECT_EQ(
      c.fake.desktop.help_calls,
      (std::vector<std::pair<std::string, int>>{{c.dir / "Help_English/ZELMO_e.chm", 12120}}));
  EXPECT_TRUE(screen.unloaded);
}

TEST(Results, TablesGoToTheSpreadsheetWithTheSystemsSeparator) {
  ResultsCase c;
  c.ws().DecimalComma = true;
  c.fake.desktop.registered_program = "C:\\Office\\EXCEL.EXE \"%1\"";
  Results& screen = c.screen;
  testing::Act(screen, {"TypeList#1", "File1#0"});
  ASSERT_EQ(screen.File1.SelectedItem(), "LOADS.TXT");
  EXPECT_EQ(screen.Text1.text, "");  // tables are not shown in the box
  EXPECT_FALSE(screen.Command1.visible);

  std::string path = c.dir / "office/case2/LOADS.TXT";
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(ReadBytes(path), "1,5\t2,25\r\n3,0\r\n");
  EXPECT_FALSE(Exists(c.dir / "office/case2/TLOADS.TXT"));
  EXPECT_TRUE(Exists(c.dir / "TGZELMO/pq.xls"));
  std::vector<testing::RunCall> calls = {
      {"C:\\Office\\EXCEL.EXE", {c.dir / "TGZELMO/pq.xls", path}, 5}};
  EXPECT_EQ(c.fake.processes.calls, calls);

  // A point system turns every comma into a point; a last line gets its end.
  WriteBytes(path, "1,5\t2,25\r\n3.0");
  c.ws().DecimalComma = false;
  EXPECT_TRUE(RewriteDecimalSeparators(path, false));
  EXPECT_EQ(ReadBytes(path), "1.5\t2.25\r\n3.0\r\n");

  c.fake.desktop.has_registered_program = false;
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.dialogs.Last().text, "No Excel program was found ! ");
  EXPECT_EQ(ReadBytes(path), "1.5\t2.25\r\n3.0\r\n");

  // "Reports": the program registered for the file.
  c.fake.desktop.has_registered_program = true;
  c.fake.desktop.registered_program = "/usr/bin/editor";
  testing::Fill(screen, {"Option1#0", "Option2#1"});
  testing::Act(screen, {"File1*"});
  calls.push_back({"/usr/bin/editor", {path}, 5});
  EXPECT_EQ(c.fake.processes.calls, calls);
}

}  // namespace
}  // namespace zelmo
