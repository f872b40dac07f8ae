// HOURLY.TXT and COMFORT.TXT as the result viewers read them, and the lines
// and the CSV of the whole year drawn from what was read.
#include <string_view>

#include "fuzz/fuzz_case.h"
#include "tools/results/diagram.h"
#include "tools/results/hourly_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    results::HourlyTable table = results::ParseHourlyTable(
        "HOURLY.TXT", std::string_view(reinterpret_cast<const char*>(data), size));
    std::vector<int> columns = results::DefaultColumns(table);
    results::BuildSeries(table, columns, results::YearPeriod());
    results::SliceCsv(table, columns, results::WeekPeriod({1, 15}));
  });
  return 0;
}
