// OUTPUT.INP: what the calculation modules report for a case. Three head
// lines (output type, the Vol_load and the Surf_tmp flag), then one row per
// volume: its name and seven flags, each cell followed by a TAB.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr const char* kOutputFile = "OUTPUT.INP";

// Output types, the index of the screen's option.
inline constexpr int kMonthlySummaries = 0;
inline constexpr int kDailyDetails = 1;
inline constexpr int kHourlyValues = 2;

// The flags of a row, in file order: temperature, heating, cooling, solar
// radiation out, in and absorbed, and the comfort calculation.
inline constexpr int kOutputQuantities = 6;
inline constexpr int kOutputFlags = kOutputQuantities + 1;
inline constexpr int kComfortFlag = kOutputQuantities;

struct OutputRow {
  std::string volume;                           // the first cell, trimmed
  std::array<std::string, kOutputFlags> flags;  // "0" or "-1", trimmed
};

struct OutputSpec {
  // Lines 1 to 3 as they stand.
  std::array<std::string, 3> head;
  // The rows in file order.
  std::vector<OutputRow> rows;

  // The row of the volume numbered `volume` (the number read from its first
  // cell); the last such row, or null.
  const OutputRow* RowOf(int volume) const;
  // The output type read from line 1, and the two file flags as booleans:
  // any value but 0 is on, whatever its sign.
  int OutputType() const;
  bool WriteVolLoad() const;
  bool WriteSurfTmp() const;
};

// `CasePath`/OUTPUT.INP, or nothing when it cannot be opened. A file cut
// before its third line, or an output type other than 0, 1 and 2, throws
// FileError naming the line.
std::optional<OutputSpec> ReadOutputSpec(const Workspace& ws);

// A flag as a row or a head line holds it.
bool IsFlagOn(const std::string& text);

// The file: the output type, the two file flags (" 0 " or "-1 "), then the
// rows, every cell ended by a TAB. False when the file could not be written.
struct OutputChoice {
  int type = kMonthlySummaries;
  bool vol_load = false;
  bool surf_tmp = false;
  struct Row {
    std::string volume;
    std::array<bool, kOutputFlags> flags{};
  };
  std::vector<Row> rows;
};
bool WriteOutputSpec(const Workspace& ws, const OutputChoice& choice);

}  // namespace zelmo
