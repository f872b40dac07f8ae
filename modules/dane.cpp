#include "modules/dane.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <numbers>

#include "core/text_file.h"
#include "modules/climate_file.h"
#include "modules/dat1.h"
#include "modules/dat3.h"
#include "modules/fent.h"
#include "modules/neb.h"
#include "modules/plor.h"
#include "modules/sky.h"
#include "modules/solar_position.h"

namespace zelmo::modules {

namespace {

constexpr double kSigma = 5.670374419e-8;
constexpr double kKelvin = 273.15;

std::string Number(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%.6g", v);
  return text;
}

// The first two lines of DAT4.DAT: the switches and the climate file.
struct Dat4Head {
  bool no_sun = false, fixed = false;
  double set_temperature = 0;
  std::string climate;
  std::string bytes;  // of the two lines, for the fingerprint
};

Dat4Head ReadDat4Head(const std::string& case_folder) {
  std::string path = CaseFile(case_folder, "DAT4.DAT");
  std::string bytes = ReadInput(path, kDaneDat4Missing);
  std::vector<std::string> lines;
  size_t start = 0;
  while (lines.size() < 2 && start < bytes.size()) {
    size_t end = bytes.find('\n', start);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
    start = end + 1;
  }
  Dat4Head head;
  head.bytes = bytes.substr(0, std::min(start, bytes.size()));
  try {
    TextReader reader(path, lines);
    auto first = ReadNumbers(reader, reader.ReadLine(), 5);
    head.no_sun = first[1] == 1;
    head.fixed = first[2] == 1;
    head.set_temperature = first[3];
    if (head.fixed && (head.set_temperature < -100 || head.set_temperature > 100)) {
      reader.Fail("the set temperature is out of range");
    }
    head.climate = TrimBlanks(reader.ReadLine());
  } catch (const FileError& e) {
    throw ModuleFailure(kDaneDat4Damaged, e.UserText());
  }
  return head;
}

bool Exists(const std::string& path) { return !path.empty() && FileCanOpen(path); }

std::string NameOf(std::string path) {
  size_t cut = path.find_last_of("/\\");
  return cut == std::string::npos ? path : path.substr(cut + 1);
}

}  // namespace

std::string FindClimateFile(const std::string& written, const std::string& case_folder) {
  if (Exists(written)) return written;
  std::string turned = written;
  std::replace(turned.begin(), turned.end(), '\\', '/');
  if (Exists(turned)) return turned;
  // The program tree's Climate folder: the projects' folder lies beside it.
  std::string name = NameOf(turned);
  // A relative case folder ("./") has its parents only as an absolute path.
  std::error_code error;
  std::string folder = FromFsPath(std::filesystem::absolute(ToFsPath(case_folder), error));
  if (error) folder = case_folder;
  for (int up = 0; up < 4 && !name.empty(); ++up) {
    while (!folder.empty() && (folder.back() == '/' || folder.back() == '\\')) folder.pop_back();
    size_t cut = folder.find_last_of("/\\");
    if (cut == std::string::npos) break;
    folder = folder.substr(0, cut);
    std::string candidate = CaseFile(JoinPath(folder, "Climate"), name);
    if (Exists(candidate)) return candidate;
  }
  return "";
}

namespace {

struct DaneInput {
  Dat3 period;
  Dat4Head head;
  std::string climate_path;
  std::string climate_bytes;
};

DaneInput ReadInputs(const std::string& case_folder) {
  DaneInput in;
  std::string dat3 = CaseFile(case_folder, "DAT3.DAT");
  std::string bytes = ReadInput(dat3, kDaneDat3Missing);
  try {
    in.period = ParseDat3(dat3, bytes);
  } catch (const FileError& e) {
    throw ModuleFailure(kDaneDat3Damaged, e.UserText());
  }
  in.head = ReadDat4Head(case_folder);
  in.climate_path = FindClimateFile(in.head.climate, case_folder);
  if (in.climate_path.empty()) {
    throw ModuleFailure(kDaneClimateMissing, "Cannot find the climate file " + in.head.climate);
  }
  in.climate_bytes = ReadInput(in.climate_path, kDaneClimateMissing);
  in.period.months.shrink_to_fit();
  return in;
}

std::string FingerprintOf(const std::string& case_folder, const DaneInput& in) {
  std::string dat3 = ReadInput(CaseFile(case_folder, "DAT3.DAT"), kDaneDat3Missing);
  return Fingerprint()
      .Add(FentFingerprint(case_folder))
      .Add(dat3)
      .Add(in.head.bytes)
      .Add(in.climate_bytes)
      .Text();
}

double SkyTemperature(const ClimateHour& w) {
  double ir = w.infrared_horizontal();
  if (std::isfinite(ir) && ir > 0) return std::pow(ir / kSigma, 0.25) - kKelvin;
  double tdp = std::isfinite(w.dew_point()) ? w.dew_point() : w.dry_bulb() - 10;
  double eps = 0.711 + 0.56 * (tdp / 100) + 0.73 * (tdp / 100) * (tdp / 100);
  return std::pow(std::clamp(eps, 0.3, 1.0), 0.25) * (w.dry_bulb() + kKelvin) - kKelvin;
}

}  // namespace

std::string DaneFingerprint(const std::string& case_folder) {
  return FingerprintOf(case_folder, ReadInputs(case_folder));
}

void RunDane(const std::string& case_folder) {
  DaneInput in = ReadInputs(case_folder);
  const std::string fingerprint = FingerprintOf(case_folder, in);
  ClimateData climate;
  try {
    climate = ParseClimateText(in.climate_path, in.climate_bytes);
  } catch (const FileError& e) {
    throw ModuleFailure(kDaneClimateDamaged, e.UserText());
  }
  PlorResult plor = ReadPlorResult(case_folder, kDanePredecessor);
  NebResult neb = ReadNebResult(case_folder, kDanePredecessor);
  FentResult fent = ReadFentResult(case_folder, kDanePredecessor);
  Dat1Building building = ReadCaseDat1(case_folder);

  DaneResult result;
  result.elevation = climate.header.elevation;
  double sum = 0;
  int count = 0;
  for (const auto& h : climate.hours) {
    if (std::isfinite(h.dry_bulb())) {
      sum += h.dry_bulb();
      ++count;
    }
  }
  result.ground = count > 0 ? sum / count : 10;

  // The surfaces facing outdoors, their shading and their windows' optics.
  struct Outside {
    int surface;
    Direction normal;
    double sky_ratio;
    int neb = -1;
    const FentWindow* window = nullptr;
  };
  std::vector<Outside> outside;
  for (const auto& o : plor.outside) {
    Outside out{o.surface, {o.outward.x, o.outward.y, o.outward.z}, 1.0};
    for (size_t k = 0; k < neb.surfaces.size(); ++k) {
      if (neb.surfaces[k].surface == o.surface) {
        out.neb = static_cast<int>(k);
        out.sky_ratio = o.sky > 1e-9 ? std::clamp(neb.surfaces[k].sky_view / o.sky, 0.0, 1.0) : 0;
      }
    }
    const Surface& s = plor.surfaces[o.surface];
    if (s.kind == SurfaceKind::kWindow) {
      const Dat1Element& el = building.elements.at(s.element);
      const std::string& type = s.in_hole ? el.hole.window_type : el.main.window_type;
      int number = static_cast<int>(std::strtol(type.c_str(), nullptr, 10));
      out.window = fent.Window(number);
      if (!out.window) {
        throw ModuleFailure(kDaneNoWindowType, "Window type " + TrimBlanks(type) + " of element " +
                                                   el.name + " has no optics from FENT");
      }
      result.windows.push_back({o.surface, static_cast<int>(out.window->panes.size())});
    }
    result.outside.push_back(o.surface);
    outside.push_back(out);
  }

  // The climate file's hours by date: the date itself, or the same day of a
  // typical year (February 29 from February 28).
  std::map<long, size_t> exact, typical;
  for (size_t i = 0; i < climate.hours.size(); ++i) {
    const auto& h = climate.hours[i];
    if (h.hour != 1) continue;
    exact.emplace(h.year * 10000L + h.month * 100 + h.day, i);
    typical.emplace(h.month * 100 + h.day, i);
  }
  const Dat3& p = in.period;
  SolarSite site;
  site.latitude = p.latitude;
  site.longitude = p.longitude;
  site.time_meridian = p.meridian;
  site.elevation = climate.header.elevation;
  site.rotation = p.rotation;
  SunPath sun_path(site);
  int y = p.first_year, m = p.first_month, d = p.first_day;
  while (true) {
    auto found = exact.find(y * 10000L + m * 100 + d);
    size_t first;
    if (found != exact.end()) {
      first = found->second;
    } else {
      auto t = typical.find(m * 100 + (m == 2 && d == 29 ? 28 : d));
      if (t == typical.end()) {
        char date[32];
        std::snprintf(date, sizeof date, "%04d.%02d.%02d", y, m, d);
        throw ModuleFailure(kDaneClimateShort,
                            "The climate file " + in.climate_path + " has no weather for " + date);
      }
      first = t->second;
    }
    if (first + 24 > climate.hours.size()) {
      throw ModuleFailure(kDaneClimateShort, "The climate file " + in.climate_path + " ends early");
    }
    const Dat3Month* month = nullptr;
    for (const auto& mm : p.months) {
      if (mm.year == y && mm.month == m) month = &mm;
    }
    for (int hour = 1; hour <= 24; ++hour) {
      const ClimateHour& w = climate.hours[first + hour - 1];
      DaneHour out;
      out.year = y;
      out.month = m;
      out.day = d;
      out.hour = hour;
      out.outdoor = in.head.fixed ? in.head.set_temperature : w.dry_bulb();
      out.sky = in.head.fixed ? in.head.set_temperature : SkyTemperature(w);
      out.wind = std::isfinite(w.wind_speed()) ? w.wind_speed() : 0;
      if (!std::isfinite(out.outdoor)) {
        throw ModuleFailure(kDaneClimateDamaged, "The climate file " + in.climate_path +
                                                     " has no air temperature at line " +
                                                     std::to_string(first + hour + 10));
      }
      SunPosition sun = sun_path.ForClimateHour(y, m, d, hour);
      if (month) {
        out.curtain = month->mode == 0   ? !sun.up()
                      : month->mode == 1 ? sun.up()
                                         : month->hours[hour - 1];
      }
      bool dark = in.head.no_sun;
      PerezSky sky = PerezSkyAt(sun, dark ? 0 : w.direct_normal(),
                                dark ? 0 : w.diffuse_horizontal(), DayOfYear(y, m, d));
      Vec3 toward{sun.direction.x, sun.direction.y, sun.direction.z};
      for (const auto& o : outside) {
        SurfaceIrradiance irr = PerezTilted(sky, o.normal);
        double lit = irr.beam > 0 && o.neb >= 0 ? SunlitFraction(neb, o.neb, toward) : 1.0;
        double beam = irr.beam * lit;
        double diffuse = (irr.isotropic + irr.horizon) * o.sky_ratio + irr.circumsolar * lit;
        double ground = irr.ground_per_albedo;
        out.surfaces.push_back(beam);
        out.surfaces.push_back(diffuse);
        out.surfaces.push_back(ground);
        if (!o.window) continue;
        double angle = std::acos(std::clamp(irr.cos_incidence, 0.0, 1.0)) * 180 / std::numbers::pi;
        WindowOptics front = o.window->FrontAt(angle);
        const WindowOptics& hemi = o.window->front_diffuse;
        out.windows.push_back(beam * front.tau);
        out.windows.push_back(diffuse * hemi.tau);
        out.windows.push_back(ground * hemi.tau);
        for (size_t k = 0; k < o.window->panes.size(); ++k) {
          double ab = k < front.absorbed.size() ? front.absorbed[k] : 0;
          double ad = k < hemi.absorbed.size() ? hemi.absorbed[k] : 0;
          out.windows.push_back(beam * ab + diffuse * ad);
          out.windows.push_back(ground * ad);
        }
      }
      result.hours.push_back(std::move(out));
    }
    if (y == p.last_year && m == p.last_month && d == p.last_day) break;
    if (++d > DaysInMonth(y, m)) {
      d = 1;
      if (++m > 12) {
        m = 1;
        ++y;
      }
    }
  }

  WriteResult(CaseFile(case_folder, kDaneResultFile), kDane, fingerprint, DaneResultLines(result));
  // The report: the period and per surface its yearly solar.
  std::vector<std::string> report;
  report.push_back("DANE - the outdoor side");
  report.push_back(p.headline);
  char line[256];
  std::snprintf(line, sizeof line, "Period: %04d.%02d.%02d - %04d.%02d.%02d, %zu hours",
                p.first_year, p.first_month, p.first_day, p.last_year, p.last_month, p.last_day,
                result.hours.size());
  report.push_back(line);
  report.push_back("Climate file: " + in.climate_path);
  std::snprintf(line, sizeof line,
                "Latitude %.2f, longitude %.2f, time meridian %.2f, rotation %.2f degrees",
                p.latitude, p.longitude, p.meridian, p.rotation);
  report.push_back(line);
  if (in.head.no_sun) report.push_back("No sun: every hour without solar radiation");
  if (in.head.fixed)
    report.push_back("Outdoor air held at " + Number(in.head.set_temperature) + " C");
  report.push_back("Ground temperature " + Number(result.ground) + " C");
  report.push_back("");
  report.push_back("Surface\tTilt\tAzimuth\tBeam [kWh/m2]\tSky [kWh/m2]\tGround/refl. [kWh/m2]");
  for (size_t k = 0; k < outside.size(); ++k) {
    double sums[3] = {0, 0, 0};
    for (const auto& h : result.hours) {
      for (int c = 0; c < 3; ++c) sums[c] += h.surfaces[3 * k + c] / 1000;
    }
    const Surface& s = plor.surfaces[outside[k].surface];
    std::snprintf(line, sizeof line, "%d\t%.1f\t%.1f\t%.1f\t%.1f\t%.1f", s.number, s.tilt,
                  s.azimuth, sums[0], sums[1], sums[2]);
    report.push_back(line);
  }
  WriteResult(CaseFile(case_folder, kDaneReportFile), kDane, fingerprint, report);
}

DaneResult ReadDaneResult(const std::string& case_folder, int code) {
  std::string path = CaseFile(case_folder, kDaneResultFile);
  auto lines = ReadResult(path, kDane, DaneFingerprint(case_folder), code);
  return ParseDaneResult(path, lines);
}

}  // namespace zelmo::modules
