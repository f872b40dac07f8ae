// The glass, gas and window type files, the two read-only lists and Wndw.Lib.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "core/numbers.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/library_test_case.h"
#include "libraries/window_library_export.h"
#include "libraries/window_types_lib.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

TEST(LibraryFiles, ExampleFilesSurviveAReadWriteRoundTripThroughTheirOtherNames) {
  LibraryCase c;
  const Workspace& ws = c.fake.ws();
  const std::string glass = c.Bytes("GLASSTP.INP"), gas = c.Bytes("GASTP.INP"),
                    windows = c.Bytes("WNDTP.LIB");
  const GlassTable glass_table = ReadGlassTypes(ws);
  EXPECT_EQ(std::pair(glass_table.GlassCount, ReadGasTypes(ws).GasCount), std::pair(8, 5));
  ASSERT_TRUE(WriteGlassTypes(ws, glass_table) && WriteGasTypes(ws, ReadGasTypes(ws)) &&
              WriteWindowTypes(ws, ReadWindowTypes(ws)));
  // Readers trim the number of angle rows; only the screen stores it with
  // its sign blank again.
  EXPECT_EQ(c.Bytes("GLASSTP.INP"),
            Replaced(Replaced(glass, "\t 11\t\r\n", "\t11\t\r\n"), "\t 0\t\r\n", "\t0\t\r\n"));
  EXPECT_EQ(c.Bytes("GASTP.INP") + c.Bytes("WNDTP.LIB"), gas + windows);
  // One file each, whatever the case of the names.
  EXPECT_EQ(FilesWithExtension(ws.ProjectPath, ".INP").size(), 2u);
  EXPECT_EQ(FilesWithExtension(ws.ProjectPath, ".LIB"),
            (std::vector<std::string>{"CASES.LIB", "WNDTP.LIB"}));

  // The fifth pane loses its reversed coating on reading.
  c.Put("Wndtp.LIB",
        "7\tFive\t 5\tA\tYes\t1\tG\tB\tNo\t2\tG\tC\tNo\t3\tG\tD\tNo\t4\tG\tE\tYes\r\n");
  const WindowTable table = ReadWindowTypes(ws);
  EXPECT_EQ(table.Panes(7), 5);
  EXPECT_EQ(table.Cell(7, ReversedColumn(1)) + table.Cell(7, GlassColumn(5)) + "|" +
                table.Cell(7, ReversedColumn(5)),
            "YesE|");
  ASSERT_TRUE(WriteWindowTypes(ws, table));
  EXPECT_EQ(c.Bytes("Wndtp.LIB"),
            "7\tFive\t 5\tA\tYes\t1\tG\tB\tNo\t2\tG\tC\tNo\t3\tG\tD\tNo\t4\tG\tE\t\r\n");
}

TEST(LibraryFiles, DamagedFilesNameTheirLine) {
  const std::string glass_head = "G\t84\t84\t1\t\t\t\t 2\t\r\n";
  const std::string blocks = "\t\t\r\n\t\t\r\n\t\t\r\n";
  std::string gases, glass_lib, many_glasses;
  for (int i = 0; i < 11; ++i) gases += "Air\t1\t1\t1\t1\t1\t1\t1\t1\t\r\n";
  for (int i = 0; i < 100; ++i) glass_lib += "G\t1\t2\t3\r\n";
  for (int i = 0; i < 41; ++i) many_glasses += glass_head + blocks;
  const std::map<std::string, std::function<void(const Workspace&)>> readers = {
      {"Glasstp.INP", [](auto& ws) { ReadGlassTypes(ws); }},
      {"Gastp.INP", [](auto& ws) { ReadGasTypes(ws); }},
      {"Wndtp.LIB", [](auto& ws) { ReadWindowTypes(ws); }},
      {"GLASS.LIB", [](auto& ws) { ReadGlassLib(ws); }},
      {"WINDS.LIB", [](auto& ws) { ReadWindsLib(ws); }}};
  const std::string range = "Subscript out of range";
  const struct {
    const char* file;
    std::string bytes, what;
    int line;
  } damages[] = {
      {"Glasstp.INP", glass_head + "\t\r\n", "Input past end of file", 3},
      {"Glasstp.INP", "G\t84\t84\t1\t\t\t\t 12\t\r\n" + blocks, range, 1},
      {"Glasstp.INP", many_glasses, range, 161},
      {"Gastp.INP", gases, range, 11},
      {"Wndtp.LIB", "41\tW\t 1\tG\tNo\r\n", range, 1},
      {"Wndtp.LIB", "1\tW\t 1\tG\tNo\r\n\r\n", range, 2},
      {"Wndtp.LIB", "1\tW\t 6\tG\tNo\r\n", range, 1},
      {"GLASS.LIB", glass_lib, range, 100},
      {"WINDS.LIB", "77\ta\tb\tc\td\r\n", range, 1},
  };
  for (const auto& damage : damages) {
    LibraryCase c(false);
    c.Put(damage.file, damage.bytes);
    try {
      readers.at(damage.file)(c.fake.ws());
      ADD_FAILURE() << damage.file << " " << damage.what;
    } catch (const FileError& error) {
      EXPECT_EQ(error.what() + (" " + error.path()) + " " + std::to_string(error.line()),
                damage.what + " " + c.Path(damage.file) + " " + std::to_string(damage.line));
    }
  }
}

TEST(LibraryFiles, TheReadOnlyListsAndEmptyGlassGroups) {
  LibraryCase c(false);
  const Workspace& ws = c.fake.ws();
  EXPECT_TRUE(ReadGlassLib(ws).empty());
  EXPECT_EQ(ReadWindsLib(ws).highest, 0);
  c.Put("GLASS.LIB", "Clear \t 80\t8\t rest\r\n");
  c.Put("WINDS.LIB", "3\tA\tB\tC\tD E\r\n\tone\r\n\t two\r\n1\tX\r\n\tx\r\n");
  EXPECT_EQ(ReadGlassLib(ws),
            (std::vector<std::array<std::string, 4>>{{"Clear", "80", "8", "rest"}}));
  const WindsLib winds = ReadWindsLib(ws);
  EXPECT_EQ(winds.highest, 3);
  EXPECT_EQ(winds.windows[3].fields, (std::array<std::string, 4>{"A", "B", "C", "D E"}));
  EXPECT_EQ(winds.windows[3].entries, (std::vector<std::string>{"one", " two"}));
  EXPECT_EQ(winds.windows[1].entries, (std::vector<std::string>{"x"}));
  // A glass without a name is dropped; its four lines are passed over.
  c.Put("Glasstp.INP", "\t1\t\r\n\t\r\n\t\r\n\t\r\nB\t2\t\r\n\t\r\n\t\r\n\t\r\n");
  const GlassTable glass = ReadGlassTypes(ws);
  EXPECT_EQ(glass.GlassCount, 1);
  EXPECT_EQ(glass.Cell(1, 1) + "|" + glass.Cell(2, 2), "B|");

  // Window references are sought in every case, in the main and the hole
  // window of an element.
  c.Elements({{{20, ""}, {27, ""}}, {{20, "4"}, {27, "7"}}}, "case2");
  for (int number : {1, 2, 3, 5, 6}) EXPECT_FALSE(WindowIsReferenced(ws, number));
  EXPECT_TRUE(WindowIsReferenced(ws, 4) && WindowIsReferenced(ws, 7));
}

TEST(WindowLibrary, EveryDataTypeGasAndSlotWithADummyForTheGap) {
  LibraryCase c(false);
  c.Put("Glasstp.INP",
        "Clear\t84\t84\t1\t\t\t\t 2\t\r\n80\t0\t\r\n8\t100\t\r\n8\t100\t\r\n"
        "Float\t84\t84\t2\t4\t1.526\t25\t 0\t\r\n\t\r\n\t\r\n\t\r\n"
        "Hard\t15\t84\t3\t66\t13\t\t 0\t\r\n\t\r\n\t\r\n\t\r\n");
  c.Put("Gastp.INP",
        "Air\t0.02496\t7.8e-5\t1.761e-5\t4.9e-8\t1.2466\t-0.00440\t0.7112\t-2.436e-4\t\r\n");
  c.Put("Wndtp.LIB",
        "1\tDouble\t 2\tClear\tNo\t12\tAir\tHard\tYes\t\r\n3\tSingle\t 1\tFloat\tNo\t\r\n");
  EXPECT_TRUE(WriteWindowLibrary(c.fake.ws()));
  EXPECT_EQ(c.Bytes("Wndw.Lib"),
            "3 ! Number of glass types\r\n \r\n"
            "Clear  0.84  0.84 1\r\n 2\r\n 0.800 0.000\r\n 0.080 1.000\r\n 0.080 1.000\r\n \r\n"
            "Float  0.84  0.84 2\r\n    4.00    1.53   25.00\r\n \r\n"
            "Hard  0.15  0.84 3\r\n   0.66  0.13\r\n \r\n"
            "1 ! Number of gas types  k   dk   u   du   r   dr   p   dp\r\n \r\n"
            "Air 0.02496 7.8e-5 1.761e-5 4.9e-8 1.2466 -0.00440 0.7112 -2.436e-4\r\n \r\n"
            "3 ! Number of window types\r\n \r\n"
            " Double 2\r\n Clear 0\r\n 12 Air\r\n Hard 1\r\n \r\n"
            " Dummy 1\r\n  Clear 0\r\n \r\n"
            " Single 1\r\n Float 0\r\n \r\n");
}

TEST(WindowLibrary, EmptyLibrariesAndATypeWithoutPanes) {
  LibraryCase c(false);
  EXPECT_TRUE(WriteWindowLibrary(c.fake.ws()));
  const std::string empty =
      "0 ! Number of glass types\r\n \r\n"
      "0 ! Number of gas types  k   dk   u   du   r   dr   p   dp\r\n \r\n \r\n";
  EXPECT_EQ(c.Bytes("Wndw.Lib"), empty + "0 ! Number of window types\r\n \r\n");
  // The file is written to its end, and the fault is its caller's to report.
  c.Put("Wndtp.LIB", "2\tNone\t 0\t\r\n");
  EXPECT_FALSE(WriteWindowLibrary(c.fake.ws()));
  EXPECT_EQ(c.Bytes("Wndw.Lib"),
            empty + "2 ! Number of window types\r\n \r\n Dummy 1\r\n   0\r\n \r\n None 0\r\n \r\n");
}

// The example's libraries are the defaults, whose glass, gas and window
// types hold together; its elements name three of the window types. Eleven
// angle rows make lines of 66.
TEST(WindowLibrary, TheExampleElementsNameItsWindowTypes) {
  LibraryCase c;
  const WindowTable windows = ReadWindowTypes(c.fake.ws());
  const auto surface = *ReadAllLines(std::string(std::getenv("ZELMO_SOURCE_DIR")) +
                                     "/system/tree/ZELMOPROJ/Example/Case1/SURFACE.INP");
  int used = 0;
  for (size_t element = 0; element + 27 < surface.size(); element += 30) {
    for (size_t line : {20, 27}) {
      const double number = Val(surface[element + line].substr(1));
      if (number == 0) continue;
      ++used;
      EXPECT_FALSE(windows.Cell(static_cast<int>(number), 1).empty()) << number;
    }
  }
  EXPECT_EQ(used, 3);
  EXPECT_TRUE(WriteWindowLibrary(c.fake.ws()));
  const auto lines = *ReadAllLines(c.Path("Wndw.Lib"));
  EXPECT_EQ(lines[2] + "|" + lines[3], "Clear4mm  0.84  0.84 1| 11");
  EXPECT_EQ(lines[4].size(), 66u);
  EXPECT_EQ(lines[4].substr(0, 12) + "|" + lines[6].substr(60), " 0.829 0.829| 1.000");
}

}  // namespace
}  // namespace zelmo
