#include "modules/dat4.h"

#include <cmath>

#include "core/text_file.h"
#include "modules/dat3.h"

namespace zelmo::modules {

namespace {

std::vector<std::string_view> Tabs(std::string_view line) {
  std::vector<std::string_view> fields;
  size_t start = 0;
  while (true) {
    size_t tab = line.find('\t', start);
    if (tab == std::string_view::npos) {
      fields.push_back(line.substr(start));
      return fields;
    }
    fields.push_back(line.substr(start, tab - start));
    start = tab + 1;
  }
}

int Whole(const TextReader& reader, double value, int low, int high, const std::string& what) {
  if (value != std::floor(value) || value < low || value > high) {
    reader.Fail(what + " out of range");
  }
  return static_cast<int>(value);
}

bool Switch(const TextReader& reader, std::string_view field, const char* what) {
  return Whole(reader, ReadNumber(reader, field), 0, 1, what) == 1;
}

HvacVolume ReadHvacVolume(TextReader& reader) {
  HvacVolume v;
  std::string type_line = reader.ReadLine();
  auto type = Tabs(type_line);
  v.type = Whole(reader, ReadNumber(reader, type[0]), 0, 1, "the schedule's type");
  int count = Whole(reader, ReadNumber(reader, reader.ReadLine()), 0, 12, "the number of periods");
  if (v.type == 0 && count != 2) reader.Fail("a weekend and weekday schedule needs two periods");
  for (int p = 0; p < count; ++p) {
    HvacPeriod period;
    auto dates = ReadNumbers(reader, reader.ReadLine(), 4);
    period.start_day = Whole(reader, dates[0], 1, 31, "a day");
    period.start_month = Whole(reader, dates[1], 1, 12, "a month");
    period.end_day = Whole(reader, dates[2], 1, 31, "a day");
    period.end_month = Whole(reader, dates[3], 1, 12, "a month");
    int hours = Whole(reader, ReadNumber(reader, reader.ReadLine()), 24, 24, "the number of hours");
    for (int h = 0; h < hours; ++h) {
      std::string line = reader.ReadLine();
      auto fields = Tabs(line);
      // h, h, eight columns, then the 28 openings each followed by an empty
      // field (the last by none).
      if (fields.size() < 2 + 8 + 2 * kHvacPairs - 1) reader.Fail("an hour line is too short");
      if (Whole(reader, ReadNumber(reader, fields[0]), h + 1, h + 1, "the hour") != h + 1) break;
      auto& row = period.hours[h];
      for (int c = 0; c < 8; ++c) row[c] = ReadNumber(reader, fields[2 + c]);
      for (int k = 0; k < kHvacPairs; ++k) row[8 + k] = ReadNumber(reader, fields[10 + 2 * k]);
    }
    v.periods.push_back(period);
  }
  return v;
}

}  // namespace

int OpeningColumn(int a, int b) {
  int column = kFirstOpening;
  for (int i = 1; i <= 7; ++i) {
    for (int j = i + 1; j <= 8; ++j) {
      if (i == a && j == b) return column;
      ++column;
    }
  }
  return -1;
}

int Weekday(int year, int month, int day) {
  if (month < 3) {
    month += 12;
    --year;
  }
  int k = year % 100, j = year / 100;
  int h = (day + 13 * (month + 1) / 5 + k + k / 4 + j / 4 + 5 * j) % 7;  // 0 Saturday
  return (h + 5) % 7;
}

const std::array<double, kHvacColumns>* HvacVolume::Row(int month, int day, int weekday,
                                                        int hour) const {
  if (hour < 1 || hour > 24) return nullptr;
  if (type == 0) {
    if (periods.size() < 2) return nullptr;
    return &periods[weekday >= 5 ? 0 : 1].hours[hour - 1];
  }
  int key = day + 100 * month;
  for (const auto& p : periods) {
    if (key >= p.start_day + 100 * p.start_month && key <= p.end_day + 100 * p.end_month) {
      return &p.hours[hour - 1];
    }
  }
  return nullptr;
}

Dat4 ParseDat4(const std::string& path, std::string_view bytes, int volumes) {
  TextReader reader(path, SplitInputLines(bytes));
  Dat4 d;
  {
    auto first = ReadNumbers(reader, reader.ReadLine(), 5);
    d.accuracy = Whole(reader, first[0], 1, 9, "the accuracy level");
    d.no_sun = Whole(reader, first[1], 0, 1, "the sun switch") == 1;
    d.fixed_temperature = Whole(reader, first[2], 0, 1, "the temperature switch") == 1;
    d.set_temperature = first[3];
    if (d.fixed_temperature && (d.set_temperature < -100 || d.set_temperature > 100)) {
      reader.Fail("the set temperature is out of range");
    }
    d.terrain = Whole(reader, first[4], 0, 4, "the terrain");
  }
  d.climate_file = TrimBlanks(reader.ReadLine());
  d.headline = reader.ReadLine();
  d.external_ir = !Switch(reader, reader.ReadLine(), "the radiation switch");
  d.loops = Whole(reader, ReadNumber(reader, reader.ReadLine()), 0, 99, "the loops");
  d.output_type = Whole(reader, ReadNumber(reader, reader.ReadLine()), 0, 2, "the output type");
  {
    auto general = ReadNumbers(reader, reader.ReadLine(), 4);
    d.soil_resistance = general[0];
    d.exterior_film = general[1];
    d.interior_film = general[2];
    d.ground_reflectivity = general[3];
    if (d.soil_resistance <= 0 || d.exterior_film <= 0 ||
        (d.interior_film <= 0 && d.interior_film != -1) || d.ground_reflectivity < 0 ||
        d.ground_reflectivity > 1) {
      reader.Fail("a general parameter is out of range");
    }
  }
  {
    auto selection = ReadNumbers(reader, reader.ReadLine(), 2);
    d.outputs.assign(volumes, {});
    if (selection[0] == 1) {
      if (selection[1] != -volumes) reader.Fail("the output choice is for another building");
      for (int v = 0; v < volumes; ++v) {
        std::string line = reader.ReadLine();
        std::vector<int> ticked;
        size_t i = 0;
        while (i < line.size()) {
          while (i < line.size() && line[i] == ' ') ++i;
          size_t start = i;
          while (i < line.size() && line[i] != ' ') ++i;
          if (i > start) {
            int q =
                Whole(reader, ReadNumber(reader, std::string_view(line).substr(start, i - start)),
                      0, 6, "an output quantity");
            if (q > 0) ticked.push_back(q);
          }
        }
        d.outputs[v] = ticked;
      }
    }
  }
  {
    std::string comfort = TrimBlanks(reader.ReadLine());
    if (comfort.size() != 9 || comfort.find_first_not_of("01") != std::string::npos) {
      reader.Fail("the comfort choice is damaged");
    }
    for (int v = 0; v < 8; ++v) d.comfort[v] = comfort[v] == '1';
  }
  {
    std::string hvac_line = reader.ReadLine();
    auto hvac = Tabs(hvac_line);
    if (hvac.size() < 4) reader.Fail("the heat exchanger line is too short");
    d.internal_load_file = Switch(reader, hvac[0], "the load file switch");
    d.heat_exchanger = Switch(reader, hvac[1], "the heat exchanger switch");
    double efficiency = ReadNumber(reader, hvac[2]);
    if (efficiency < 0 || efficiency > 100) reader.Fail("the heat exchanger's efficiency");
    d.heat_exchanger_efficiency = efficiency / 100;
    d.bypass = Switch(reader, hvac[3], "the bypass switch");
    d.internal_load_path = TrimBlanks(reader.ReadLine());
    d.schedule_name = reader.ReadLine();
    for (int v = 0; v < volumes; ++v) d.hvac.push_back(ReadHvacVolume(reader));
  }
  for (int v = 0; v < volumes; ++v) {
    ReadNumber(reader, reader.ReadLine());
    ReadNumber(reader, reader.ReadLine());
    std::vector<double> flows;
    for (int k = v + 1; k <= volumes; ++k) flows.push_back(ReadNumber(reader, reader.ReadLine()));
    d.forced.push_back(flows);
  }
  while (!reader.AtEnd()) {
    std::string line = TrimBlanks(reader.ReadLine());
    if (line.empty()) continue;
    d.curtain_mode = Whole(reader, ReadNumber(reader, line), 0, 2, "the curtain mode");
    while (!reader.AtEnd()) {
      std::string c = reader.ReadLine();
      if (TrimBlanks(c).empty()) {
        d.curtains.push_back({});
        continue;
      }
      auto v = ReadNumbers(reader, c, 3);
      if (v[0] < 0 || v[0] > 1 || v[1] <= 0 || v[2] < 0 || v[2] > 1 || v[0] + v[2] > 1) {
        reader.Fail("a curtain's data are out of range");
      }
      d.curtains.push_back({v[0], v[1], v[2]});
    }
  }
  return d;
}

}  // namespace zelmo::modules
