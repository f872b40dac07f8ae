// The HVAC block of the module input: one schedule of the case laid out as
// the calculation modules read it. The modules expand the periods to days.
#pragma once

#include <string>
#include <vector>

#include "schedules/schedule_store.h"

namespace zelmo {

// What an empty hourly cell of a column (1 to 36) is delivered as: unset
// powers are unlimited, an unset heating set point means no heating, an
// unset cooling set point no cooling, every other quantity 0.
const char* DeliveredBlank(int column);

// The lines of the block for the schedule last shown (CurrentSchedule, or 1
// when it is below 1), for the volumes 1 to VolumeCount. Monthly periods go
// out as Daily ones, from the first of the start month to the last day of
// the end month in `year`.
std::vector<std::string> HvacDeliveryLines(const ScheduleStore& store, int year);
// The same lines, each ended by CR LF, added to `out`.
void AppendHvacDelivery(std::string& out, const ScheduleStore& store, int year);

}  // namespace zelmo
