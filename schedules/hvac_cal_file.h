// HVAC_Cal.Inp: the schedules of a case, read and written whole.
//
//   ILD <TAB> HX <TAB> Efficiency <TAB> Bypass <TAB>
//   .ILD path <TAB>
//   ScheduleCount <TAB> CurrentSchedule <TAB> VolumeCount    (" 2", " 1", " 3")
// then always four schedule blocks, each its name and always eight volume
// blocks: the type line (" 1" <TAB> "1E+20" <TAB> "1E+20"), the count line
// ("2" for Weekend/Weekday, " 3 " for the others) and per period a date line
// (start <TAB> end), the line "24" and 24 hour lines: h <TAB> h <TAB> and the
// 36 cells. Only the calendar in force for a volume is in the file.
#pragma once

#include <string>
#include <vector>

#include "schedules/schedule_store.h"

namespace zelmo {

struct Workspace;
class TextReader;

inline constexpr const char* kHvacCalFile = "HVAC_Cal.Inp";
// The two reserved fields of a type line, written so and never read.
inline constexpr const char* kReservedField = "1E+20";
// What a blank efficiency becomes when the file is written.
inline constexpr const char* kDefaultEfficiency = "85";
// An unused schedule slot is written under this name and its number.
inline constexpr const char* kUnusedScheduleName = "Default_schedule-";
// The one calendar a run assumes for a case without the file.
inline constexpr const char* kRunDefaultScheduleName = "Default_Schedule-1 ";

// The number of volumes of the case, as its building elements name them
// (SURFACE.INP). A damaged SURFACE.INP throws FileError.
int CaseVolumeCount(const Workspace& ws);

// Loads `store` from `CasePath`/HVAC_Cal.Inp, taking the pair columns by the
// present `volume_count`, which becomes the store's VolumeCount. A missing
// file leaves a cleared store with no schedule. A damaged file (cut short, a
// count or type beyond its table, a flag that is no option) throws FileError
// naming the line, and `store` stays as it was.
void ReadHvacCal(const Workspace& ws, int volume_count, ScheduleStore& store);

// The reading of a run: all 32 blocks are walked whatever ScheduleCount says,
// and a missing file gives one calendar, schedule 1 named "Default_Schedule-1 "
// with Weekend/Weekday periods "1/1"-"30/6" and "1/7"-"31/12" for every
// volume, no heat exchanger and the efficiency "85". Of a file, only the
// schedule a run delivers (the current one, or 1) gets its periods; the
// others keep their names alone.
void ReadHvacCalForRun(const Workspace& ws, int volume_count, ScheduleStore& store);

// The walk of both readers over lines already read.
void ReadHvacCalFrom(TextReader& reader, int volume_count, bool every_block, ScheduleStore& store,
                     bool for_run = false);

// A blank efficiency is "85" from the moment the file is written.
void DefaultBlankEfficiency(ScheduleStore& store);

// The bytes of the file for the store as it stands, lines ended by CR LF.
std::string HvacCalText(const ScheduleStore& store);

// Sets a blank efficiency to "85" and rewrites HVAC_Cal.Inp whole. False when
// it could not be written; the old file then stands.
bool WriteHvacCal(const Workspace& ws, ScheduleStore& store);

}  // namespace zelmo
