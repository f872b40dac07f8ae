#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/text_file.h"
#include "modules/dane.h"
#include "modules/dat3.h"

namespace zelmo::modules {

namespace {

std::string Number(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", v);
  return text;
}

}  // namespace

size_t DaneResult::WindowOffset(size_t w) const {
  size_t offset = 0;
  for (size_t k = 0; k < w && k < windows.size(); ++k) offset += 3 + 2 * windows[k].panes;
  return offset;
}

std::vector<std::string> DaneResultLines(const DaneResult& r) {
  std::vector<std::string> lines;
  lines.reserve(r.hours.size() + r.windows.size() + 2);
  lines.push_back("Dane\t" + std::to_string(r.hours.size()) + "\t" +
                  std::to_string(r.outside.size()) + "\t" + std::to_string(r.windows.size()) +
                  "\t" + Number(r.elevation) + "\t" + Number(r.ground));
  std::string out = "Outside";
  for (int s : r.outside) out += "\t" + std::to_string(s);
  lines.push_back(out);
  for (const auto& w : r.windows) {
    lines.push_back("Window\t" + std::to_string(w.surface) + "\t" + std::to_string(w.panes));
  }
  for (const auto& h : r.hours) {
    std::string line = std::to_string(h.year) + "\t" + std::to_string(h.month) + "\t" +
                       std::to_string(h.day) + "\t" + std::to_string(h.hour) + "\t" +
                       Number(h.outdoor) + "\t" + Number(h.sky) + "\t" + Number(h.wind) + "\t" +
                       (h.curtain ? "1" : "0");
    for (double v : h.surfaces) line += "\t" + Number(v);
    for (double v : h.windows) line += "\t" + Number(v);
    lines.push_back(std::move(line));
  }
  return lines;
}

DaneResult ParseDaneResult(const std::string& path, const std::vector<std::string>& lines) {
  TextReader reader(path, lines);
  reader.Skip(0);
  auto fields = [](const std::string& line) {
    std::vector<std::string> out;
    size_t start = 0;
    while (true) {
      size_t tab = line.find('\t', start);
      out.push_back(line.substr(start, tab == std::string::npos ? std::string::npos : tab - start));
      if (tab == std::string::npos) return out;
      start = tab + 1;
    }
  };
  auto whole = [&](const std::string& text, double low, double high) {
    double v = ReadNumber(reader, text);
    if (v != std::floor(v) || v < low || v > high) reader.Fail("a count is out of range");
    return static_cast<int>(v);
  };
  // The values of an hour as DaneResultLines writes them: no blanks.
  auto value = [&](const std::string& text) {
    char* end = nullptr;
    double v = std::strtod(text.c_str(), &end);
    if (text.empty() || end != text.c_str() + text.size() || !std::isfinite(v)) {
      reader.Fail("\"" + text + "\" is no number");
    }
    return v;
  };
  DaneResult r;
  auto head = fields(reader.ReadLine());
  if (head.size() != 6 || head[0] != "Dane") reader.Fail("the head of DANE's results is damaged");
  int hours = whole(head[1], 0, 24 * 366 * kMaxPeriodYears);
  int outside = whole(head[2], 0, 1000);
  int windows = whole(head[3], 0, outside);
  r.elevation = ReadNumber(reader, head[4]);
  r.ground = ReadNumber(reader, head[5]);
  auto list = fields(reader.ReadLine());
  if (list.empty() || list[0] != "Outside" || static_cast<int>(list.size()) != outside + 1) {
    reader.Fail("the list of outside surfaces is damaged");
  }
  for (int k = 0; k < outside; ++k) r.outside.push_back(whole(list[k + 1], 0, 1e6));
  size_t window_values = 0;
  for (int k = 0; k < windows; ++k) {
    auto w = fields(reader.ReadLine());
    if (w.size() != 3 || w[0] != "Window") reader.Fail("a window line is damaged");
    DaneWindow dw{whole(w[1], 0, 1e6), whole(w[2], 1, 10)};
    window_values += 3 + 2 * dw.panes;
    r.windows.push_back(dw);
  }
  const size_t expected = 8 + 3 * static_cast<size_t>(outside) + window_values;
  r.hours.reserve(hours);
  for (int k = 0; k < hours; ++k) {
    auto f = fields(reader.ReadLine());
    if (f.size() != expected) reader.Fail("an hour line has the wrong number of values");
    DaneHour h;
    h.year = whole(f[0], 1, 9999);
    h.month = whole(f[1], 1, 12);
    h.day = whole(f[2], 1, 31);
    h.hour = whole(f[3], 1, 24);
    h.outdoor = ReadNumber(reader, f[4]);
    h.sky = ReadNumber(reader, f[5]);
    h.wind = ReadNumber(reader, f[6]);
    h.curtain = whole(f[7], 0, 1) == 1;
    h.surfaces.reserve(3 * outside);
    h.windows.reserve(window_values);
    for (int s = 0; s < 3 * outside; ++s) h.surfaces.push_back(value(f[8 + s]));
    for (size_t s = 0; s < window_values; ++s) h.windows.push_back(value(f[8 + 3 * outside + s]));
    r.hours.push_back(std::move(h));
  }
  if (!reader.AtEnd()) {
    reader.ReadLine();
    reader.Fail("more hours than the head says");
  }
  return r;
}

}  // namespace zelmo::modules
