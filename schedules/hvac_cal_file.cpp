#include "schedules/hvac_cal_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

constexpr const char* kOutOfRange = "Subscript out of range";
constexpr const char* kBadFlag = "Invalid property value";
const std::string kNeverSetCell = " ";

// The stamped dates of the two halves of the year under Weekend and Weekday.
constexpr const char* kWeekendDates = "1/1\t30/6";
constexpr const char* kWeekdayDates = "1/7\t31/12";

std::string HvacCalPath(const Workspace& ws) { return JoinPath(ws.CasePath, kHvacCalFile); }

// A whole number read by the number rule, as the runtime's integers take it.
double WholeOf(const std::string& text) { return std::nearbyint(Val(text)); }

// A number read by the number rule that must lie in low..high; anything
// else means the file has lost its shape.
int Within(const TextReader& reader, const std::string& text, int low, int high,
           const char* what = kOutOfRange) {
  double value = WholeOf(text);
  if (!(value >= low && value <= high)) reader.Fail(what);
  return static_cast<int>(value);
}

// The field `n` (from 0) of a TAB line, or empty.
std::string TabField(const std::string& line, size_t n) {
  auto fields = SplitTabs(line);
  return n < fields.size() ? fields[n] : std::string();
}

// Copies the few characters of a cell in moves of known size, a cell being
// most often no more than five characters long.
void CopyShort(char* to, const char* from, size_t size) {
  switch (size) {
    case 0:
      return;
    case 1:
      std::memcpy(to, from, 1);
      return;
    case 2:
      std::memcpy(to, from, 2);
      return;
    case 3:
      std::memcpy(to, from, 3);
      return;
    case 4:
      std::memcpy(to, from, 4);
      return;
    case 5:
      std::memcpy(to, from, 5);
      return;
    default:
      std::memcpy(to, from, size);
  }
}

// A cell's new text. A table keeps its room from the last file, and a text
// of the same length is copied over in place.
void CopyInto(std::string& cell, const char* text, size_t size) {
  if (cell.size() == size) {
    CopyShort(cell.data(), text, size);
  } else {
    cell.assign(text, size);
  }
}

// Where the TABs of a line stand, up to `room` of them; returns how many.
// A line is looked at eight characters at a time: the hour lines are the
// bulk of the file and their fields are a few characters long.
size_t FindTabs(std::string_view line, size_t* tabs, size_t room) {
  size_t found = 0;
  size_t at = 0;
  if constexpr (std::endian::native == std::endian::little) {
    constexpr uint64_t kOnes = 0x0101010101010101ULL;
    constexpr uint64_t kHighs = 0x8080808080808080ULL;
    for (; at + 8 <= line.size(); at += 8) {
      uint64_t word;
      std::memcpy(&word, line.data() + at, 8);
      const uint64_t x = word ^ (kOnes * '\t');
      // A high bit for each byte of x that is zero; exact for the lowest,
      // and a borrow can only mark bytes above a true zero.
      uint64_t zeros = (x - kOnes) & ~x & kHighs;
      while (zeros) {
        const size_t byte = static_cast<size_t>(std::countr_zero(zeros)) / 8;
        if (line[at + byte] == '\t') {
          if (found == room) return found;
          tabs[found++] = at + byte;
        }
        zeros &= zeros - 1;
      }
    }
  }
  for (; at < line.size(); ++at) {
    if (line[at] != '\t') continue;
    if (found == room) return found;
    tabs[found++] = at;
  }
  return found;
}

// One hour line: two hour fields, the eight loads, then one field per pair of
// the present volumes. Cells keep their blanks; missing fields are empty.
void ReadHourLine(std::string_view line, int pairs, std::string* row) {
  constexpr size_t kRoom = kHourColumns + 2;
  size_t tabs[kRoom];
  const size_t count = FindTabs(line, tabs, kRoom);
  // Field k runs from behind TAB k - 1 to TAB k (or the end of the line).
  auto field = [&](size_t k) -> std::string_view {
    if (k > count) return {};
    const size_t from = k == 0 ? 0 : tabs[k - 1] + 1;
    const size_t to = k < count ? tabs[k] : line.size();
    return line.substr(from, to - from);
  };
  const int present = kLoadColumns + pairs;
  for (int column = 0; column < present; ++column) {
    std::string_view text = field(static_cast<size_t>(column) + 2);
    CopyInto(row[column], text.data(), text.size());
  }
  // The pairs of volumes the case no longer has are not read.
  for (int column = present; column < kHourColumns; ++column) row[column].assign(" ");
}

// One volume block. Without a store the block is only walked, so that a
// damaged file is found before the store is touched.
void ReadVolumeBlock(TextReader& reader, int pairs, ScheduleStore* store, int schedule,
                     int volume) {
  const std::string& type_line = reader.NextLine();
  int type = Within(reader, TrimBlanks(FieldBefore(type_line, kTab)), kWeekendWeekday, kMonthly);
  int count =
      Within(reader, reader.NextLine(), 0, type == kWeekendWeekday ? kDayKinds : kMaxPeriods);
  if (store) {
    store->PeriodType(schedule, volume) = static_cast<int16_t>(type);
    // Weekend/Weekday always has its two slots; its count is not kept.
    if (type != kWeekendWeekday) {
      store->PeriodCount(schedule, volume, type) = static_cast<int16_t>(count);
    }
  }
  for (int period = 1; period <= count; ++period) {
    int slot = PeriodSlot(type, period);
    const std::string& dates = reader.NextLine();
    if (store) {
      store->PeriodDates(schedule, volume, slot, 1) = TrimBlanks(FieldBefore(dates, kTab));
      store->PeriodDates(schedule, volume, slot, 2) = TrimBlanks(FieldAfter(dates, kTab));
    }
    int hours = Within(reader, reader.NextLine(), 0, kHours);
    if (!store) {
      reader.Skip(static_cast<size_t>(hours));
      continue;
    }
    if (hours == 0) continue;
    auto& cells = store->PeriodCellsToFill(schedule, volume, slot);
    for (int hour = 1; hour <= hours; ++hour) {
      ReadHourLine(reader.NextView(), pairs, &cells[(hour - 1) * kHourColumns]);
    }
    for (size_t cell = hours * kHourColumns; cell < cells.size(); ++cell) cells[cell].assign(" ");
  }
}

// The whole walk; with a store, its values are set on the way. A run fills
// only the periods of the schedule it delivers (`for_run`).
void WalkHvacCal(TextReader& reader, int volume_count, bool every_block, ScheduleStore* store,
                 bool for_run = false) {
  const std::string& settings = reader.NextLine();
  bool ild = Within(reader, TabField(settings, 0), 0, 1, kBadFlag) == 1;
  bool heat_exchanger = Within(reader, TabField(settings, 1), 0, 1, kBadFlag) == 1;
  bool bypass = Within(reader, TabField(settings, 3), 0, 1, kBadFlag) == 1;
  if (store) {
    store->ClearSchedules();
    store->VolumeCount = volume_count;
    store->UseInternalLoadFile = ild;
    store->HasHeatExchanger = heat_exchanger;
    store->HeatExchangerEfficiency = TabField(settings, 2);
    store->HasBypass = bypass;
  }
  std::string ild_file = TabField(reader.NextLine(), 0);
  const std::string& counts = reader.NextLine();
  const int schedules = std::max(0, Within(reader, TabField(counts, 0), -32768, kMaxSchedules));
  // The schedule shown is one of those in use; with none in use, none.
  const int current =
      schedules > 0 ? Within(reader, TabField(counts, 1), 0, schedules, kBadFlag) : 0;
  if (store) {
    store->InternalLoadFile = ild_file;
    store->ScheduleCount = schedules;
    store->CurrentSchedule = current;
  }
  if (schedules == 0 && !every_block) return;
  const int pairs = PairCount(std::min(volume_count, kMaxVolumes));
  const int delivered = std::max(current, 1);
  for (int schedule = 1; schedule <= kMaxSchedules; ++schedule) {
    std::string name = TrimBlanks(reader.NextLine());
    if (store) store->ScheduleName(schedule) = name;
    ScheduleStore* into = for_run && schedule != delivered ? nullptr : store;
    for (int volume = 1; volume <= kMaxVolumes; ++volume) {
      ReadVolumeBlock(reader, pairs, into, schedule, volume);
    }
  }
}

void RunDefaults(int volume_count, ScheduleStore& store) {
  store.ClearSchedules();
  store.UseInternalLoadFile = false;
  store.InternalLoadFile.clear();
  store.HasHeatExchanger = false;
  store.HasBypass = false;
  store.HeatExchangerEfficiency = kDefaultEfficiency;
  store.ScheduleName(1) = kRunDefaultScheduleName;
  for (int volume = 1; volume <= volume_count && volume <= kMaxVolumes; ++volume) {
    store.PeriodType(1, volume) = kWeekendWeekday;
    store.PeriodDates(1, volume, kWeekendSlot, 1) = "1/1";
    store.PeriodDates(1, volume, kWeekendSlot, 2) = "30/6";
    store.PeriodDates(1, volume, kWeekdaySlot, 1) = "1/7";
    store.PeriodDates(1, volume, kWeekdaySlot, 2) = "31/12";
  }
  store.VolumeCount = volume_count;
}

// Cells of Weekend/Weekday hours go out as held (a cell never set is one
// blank); those of Daily and Monthly hours trimmed. The hour lines are the
// bulk of the file, so each is laid down in one piece of known length.
void AppendHourLine(std::string& text, int hour, const std::string* row, bool as_held,
                    bool closing_tab) {
  const std::string label = std::to_string(hour);
  // Filled just below, cell by cell.
  const char* starts[kHourColumns];
  size_t sizes[kHourColumns];
  size_t length = 2 * label.size() + 1 + kHourColumns + 3;
  for (int column = 0; column < kHourColumns; ++column) {
    const std::string& cell = row ? row[column] : kNeverSetCell;
    const char* start = cell.data();
    size_t size = cell.size();
    if (!as_held) {
      while (size > 0 && *start == ' ') ++start, --size;
      while (size > 0 && start[size - 1] == ' ') --size;
    }
    starts[column] = start;
    sizes[column] = size;
    length += size;
  }
  size_t at = text.size();
  text.resize(at + length);
  char* out = text.data() + at;
  auto put = [&out](const char* from, size_t size) {
    CopyShort(out, from, size);
    out += size;
  };
  put(label.data(), label.size());
  *out++ = '\t';
  put(label.data(), label.size());
  for (int column = 0; column < kHourColumns; ++column) {
    *out++ = '\t';
    put(starts[column], sizes[column]);
  }
  if (closing_tab) *out++ = '\t';
  *out++ = '\r';
  *out++ = '\n';
  text.resize(static_cast<size_t>(out - text.data()));
}

void AppendLine(std::string& text, const std::string& line) {
  text += line;
  text += "\r\n";
}

void AppendPeriod(std::string& text, const ScheduleStore& store, int schedule, int volume, int type,
                  int slot, const std::string& dates) {
  AppendLine(text, dates);
  AppendLine(text, std::to_string(kHours));
  const std::vector<std::string>* cells = store.PeriodCells(schedule, volume, slot);
  for (int hour = 1; hour <= kHours; ++hour) {
    // Monthly hour lines end at their last cell; the others with a TAB.
    AppendHourLine(text, hour, cells ? &(*cells)[(hour - 1) * kHourColumns] : nullptr,
                   type == kWeekendWeekday, type != kMonthly);
  }
}

}  // namespace

int CaseVolumeCount(const Workspace& ws) {
  return static_cast<int>(BuildVolumeList(ReadSurfaceVolumes(ws)).size());
}

void ReadHvacCalFrom(TextReader& reader, int volume_count, bool every_block, ScheduleStore& store,
                     bool for_run) {
  // The file is walked twice: first for its shape, then into the store, so
  // a damaged file leaves the store as it was and a sound one fills it in
  // place, in the tables it already has.
  WalkHvacCal(reader, volume_count, every_block, nullptr);
  reader.Rewind();
  WalkHvacCal(reader, volume_count, every_block, &store, for_run);
}

void ReadHvacCal(const Workspace& ws, int volume_count, ScheduleStore& store) {
  const std::string path = HvacCalPath(ws);
  if (!FileCanOpen(path)) {
    store.ClearSchedules();
    store.VolumeCount = volume_count;
    return;
  }
  TextReader reader(path);
  ReadHvacCalFrom(reader, volume_count, false, store);
}

void ReadHvacCalForRun(const Workspace& ws, int volume_count, ScheduleStore& store) {
  const std::string path = HvacCalPath(ws);
  if (!FileCanOpen(path)) {
    RunDefaults(volume_count, store);
    return;
  }
  TextReader reader(path);
  ReadHvacCalFrom(reader, volume_count, true, store, true);
}

void DefaultBlankEfficiency(ScheduleStore& store) {
  if (TrimBlanks(store.HeatExchangerEfficiency).empty()) {
    store.HeatExchangerEfficiency = kDefaultEfficiency;
  }
}

std::string HvacCalText(const ScheduleStore& store) {
  std::string text;
  text.reserve(1 << 20);
  // The bypass works only behind a heat exchanger.
  AppendLine(text, std::string(store.UseInternalLoadFile ? "1" : "0") + kTab +
                       (store.HasHeatExchanger ? "1" : "0") + kTab + store.HeatExchangerEfficiency +
                       kTab + (store.HasHeatExchanger && store.HasBypass ? "1" : "0") + kTab);
  AppendLine(text, TrimBlanks(store.InternalLoadFile) + kTab);
  AppendLine(text, NumText(store.ScheduleCount) + kTab + NumText(store.CurrentSchedule) + kTab +
                       NumText(store.VolumeCount));
  for (int schedule = 1; schedule <= kMaxSchedules; ++schedule) {
    std::string name = TrimBlanks(store.ScheduleName(schedule));
    if (name.empty()) name = kUnusedScheduleName + std::to_string(schedule);
    AppendLine(text, name);
    for (int volume = 1; volume <= kMaxVolumes; ++volume) {
      const int type = store.PeriodType(schedule, volume);
      AppendLine(text, NumText(type) + kTab + kReservedField + kTab + kReservedField);
      if (type == kWeekendWeekday) {
        AppendLine(text, std::to_string(kDayKinds));
        AppendPeriod(text, store, schedule, volume, type, kWeekendSlot, kWeekendDates);
        AppendPeriod(text, store, schedule, volume, type, kWeekdaySlot, kWeekdayDates);
      } else if (type == kDaily || type == kMonthly) {
        const int count = store.PeriodCount(schedule, volume, type);
        AppendLine(text, NumText(count) + " ");
        for (int period = 1; period <= count; ++period) {
          int slot = PeriodSlot(type, period);
          AppendPeriod(text, store, schedule, volume, type, slot,
                       TrimBlanks(store.PeriodDates(schedule, volume, slot, 1)) + kTab +
                           TrimBlanks(store.PeriodDates(schedule, volume, slot, 2)));
        }
      }
    }
  }
  return text;
}

bool WriteHvacCal(const Workspace& ws, ScheduleStore& store) {
  DefaultBlankEfficiency(store);
  return WriteAllBytes(HvacCalPath(ws), HvacCalText(store));
}

}  // namespace zelmo
