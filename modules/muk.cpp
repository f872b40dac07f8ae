#include "modules/muk.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/text_file.h"
#include "modules/corv.h"
#include "modules/dane.h"
#include "modules/dat1.h"
#include "modules/dat3.h"
#include "modules/dat4.h"
#include "modules/fent.h"
#include "modules/glazing.h"
#include "modules/plor.h"

namespace zelmo::modules {

namespace {

std::string Fixed(const char* format, double v) {
  char text[48];
  std::snprintf(text, sizeof text, format, v);
  return text;
}

double Height(const Surface& s) {
  double low = std::numeric_limits<double>::max(), high = -low;
  for (const auto& p : s.outline) {
    low = std::min(low, p.z);
    high = std::max(high, p.z);
  }
  return s.outline.empty() ? 0 : high - low;
}

// How each surface of PLOR enters the heat balance.
struct Placed {
  int plor = 0;          // index in PLOR's surfaces
  bool flipped = false;  // the element's front faces the volume
  bool window = false;
  int curtain = -1;  // index in DAT4's curtains
};

struct Building {
  HbModel model;
  std::vector<Placed> placed;       // per heat-balance surface
  std::vector<int> hb_of_plor;      // -1 where a PLOR surface is left out
  std::vector<double> leakage;      // per volume, m3/s
  std::vector<double> window_area;  // per volume, facing outdoors
  std::vector<double> window_height;
  struct Opening {
    int a, b;  // volumes from 0
    double area, height;
  };
  std::vector<Opening> openings;
};

Building Build(const Dat1Building& dat1, const PlorResult& plor, const CorvResult& corv,
               const FentResult& fent, const Dat4& dat4, double elevation) {
  Building b;
  const int nv = plor.volumes;
  if (nv < 1) throw ModuleFailure(kMukNoVolumes, "The building has no volumes");
  b.model.volumes.resize(nv);
  for (int v = 0; v < nv && v < static_cast<int>(plor.volume_data.size()); ++v) {
    b.model.volumes[v].air_volume = plor.volume_data[v].air_volume;
  }
  b.hb_of_plor.assign(plor.surfaces.size(), -1);
  b.leakage.assign(nv, 0.0);
  b.window_area.assign(nv, 0.0);
  b.window_height.assign(nv, 0.0);
  int curtain_count = 0;
  for (size_t i = 0; i < plor.surfaces.size(); ++i) {
    const Surface& s = plor.surfaces[i];
    const Dat1Element& el = dat1.elements.at(s.element);
    const Dat1Part& part = s.in_hole ? el.hole : el.main;
    bool front_in = s.front >= 1 && s.front <= nv, back_in = s.back >= 1 && s.back <= nv;
    if (s.kind == SurfaceKind::kOpening) {
      if (front_in && back_in && s.front != s.back) {
        b.openings.push_back(
            {std::min(s.front, s.back) - 1, std::max(s.front, s.back) - 1, s.area, Height(s)});
      }
      continue;
    }
    if (s.kind == SurfaceKind::kShadingScreen || (!front_in && !back_in)) continue;
    HbSurface h;
    Placed p;
    p.plor = static_cast<int>(i);
    p.flipped = !back_in;
    int inside = p.flipped ? s.front : s.back, outside = p.flipped ? s.back : s.front;
    h.volume = inside - 1;
    h.area = s.area;
    h.tilt = p.flipped ? 180 - s.tilt : s.tilt;
    if (outside >= 1 && outside <= nv) {
      h.outside = OutsideKind::kVolume;
      h.other_volume = outside - 1;
    } else if (outside == kGround) {
      h.outside = OutsideKind::kGround;
    } else {
      h.outside = OutsideKind::kOutdoor;
    }
    double af = part.absorptance_front, ab = part.absorptance_back;
    double ef = part.emittance_front, eb = part.emittance_back;
    if (s.kind == SurfaceKind::kWindow) {
      int number = static_cast<int>(std::strtol(part.window_type.c_str(), nullptr, 10));
      const FentWindow* w = fent.Window(number);
      if (!w || w->panes.empty()) {
        throw ModuleFailure(kMukNoWindow, "Window type " + TrimBlanks(part.window_type) +
                                              " of element " + el.name + " has no data from FENT");
      }
      h.window = p.window = true;
      for (const auto& pane : w->panes) {
        h.capacity.push_back(kGlassHeatCapacity * pane.thickness_mm / 1000);
      }
      ef = w->panes.front().eps_front;
      eb = w->panes.back().eps_back;
      for (size_t g = 0; g < w->gaps.size() && g + 1 < w->panes.size(); ++g) {
        // The gas conducts and convects as at the standard conditions; the
        // radiation across the gap follows the panes' temperatures.
        double conv = GapGasConductance(w->gaps[g], 283.15 + 7.5, 283.15 - 7.5).value_or(0) -
                      GapRadiativeConductance(w->panes[g].eps_back, w->panes[g + 1].eps_front,
                                              283.15 + 7.5, 283.15 - 7.5);
        double glass =
            (w->panes[g].thickness_mm + w->panes[g + 1].thickness_mm) / 2000 / kGlassConductivity;
        h.gaps.push_back(
            {std::max(0.0, conv), w->panes[g].eps_back, w->panes[g + 1].eps_front, glass});
      }
      h.back_transmittance = w->back_diffuse.tau;
      // FENT counts the panes from outdoors for light from either side.
      h.back_pane_absorptance = w->back_diffuse.absorbed;
      h.back_pane_absorptance.resize(w->panes.size(), 0.0);
      if (p.flipped) {
        std::reverse(h.capacity.begin(), h.capacity.end());
        std::reverse(h.gaps.begin(), h.gaps.end());
      }
      if (part.curtain) p.curtain = curtain_count++;
      if (h.outside == OutsideKind::kOutdoor) {
        b.window_area[h.volume] += s.area;
        b.window_height[h.volume] = std::max(b.window_height[h.volume], Height(s));
      }
    } else {
      const CorvWall* wall = corv.Wall(part.wall);
      if (!wall || wall->construction.capacity.empty()) {
        throw ModuleFailure(kMukNoWall, "Wall " + std::to_string(part.wall) + " of element " +
                                            el.name + " has no construction from CORV");
      }
      h.capacity = wall->construction.capacity;
      h.conductance = wall->construction.conductance;
      if (p.flipped) {
        std::reverse(h.capacity.begin(), h.capacity.end());
        std::reverse(h.conductance.begin(), h.conductance.end());
      }
    }
    if (p.flipped) {
      std::swap(af, ab);
      std::swap(ef, eb);
    }
    h.absorptance_front = af;
    h.absorptance_back = ab;
    h.emittance_front = ef > 0 ? ef : 0.9;
    h.emittance_back = eb > 0 ? eb : 0.9;
    for (const auto& o : plor.outside) {
      if (o.surface == static_cast<int>(i)) {
        h.sky_view = o.sky;
        h.ground_view = o.ground;
      }
    }
    if (h.outside != OutsideKind::kVolume && !front_in != !back_in) {
      // Leakage at 50 Pa, l/(s m2), of an element between a volume and the
      // outdoors or the ground.
      b.leakage[h.volume] += el.leakage * s.area / 1000 / kLeakageDivisor;
    }
    b.hb_of_plor[i] = static_cast<int>(b.model.surfaces.size());
    b.model.surfaces.push_back(std::move(h));
    b.placed.push_back(p);
  }
  // Curtains: one for every curtained window, or one each in turn.
  for (size_t k = 0; k < b.placed.size(); ++k) {
    auto& p = b.placed[k];
    if (p.curtain < 0) continue;
    size_t index = dat4.curtain_mode == 2 ? static_cast<size_t>(p.curtain) : 0;
    if (dat4.curtain_mode < 0 || index >= dat4.curtains.size()) {
      p.curtain = -1;
      continue;
    }
    auto& h = b.model.surfaces[k];
    h.has_curtain = true;
    h.curtain = {dat4.curtains[index].resistance, dat4.curtains[index].absorptance,
                 dat4.curtains[index].transmittance};
  }
  // View factors in the order of the heat balance's faces; PLOR's rows over
  // the surfaces left out (openings) are spread over the rest.
  for (int v = 0; v < nv && v < static_cast<int>(plor.volume_data.size()); ++v) {
    const PlorVolume& pv = plor.volume_data[v];
    auto faces = FacesOf(b.model, v);
    std::vector<int> where;
    for (const auto& f : faces) {
      int plor_index = b.placed[f.surface].plor;
      auto it = std::find(pv.surfaces.begin(), pv.surfaces.end(), plor_index);
      where.push_back(it == pv.surfaces.end() ? -1 : static_cast<int>(it - pv.surfaces.begin()));
    }
    if (std::count(where.begin(), where.end(), -1) > 0 ||
        pv.view_factors.size() != pv.surfaces.size()) {
      continue;  // each face sees the others by area
    }
    std::vector<std::vector<double>> f(faces.size(), std::vector<double>(faces.size(), 0.0));
    for (size_t i = 0; i < faces.size(); ++i) {
      double sum = 0;
      for (size_t j = 0; j < faces.size(); ++j) {
        f[i][j] = pv.view_factors[where[i]].at(where[j]);
        sum += f[i][j];
      }
      for (auto& x : f[i]) x = sum > 0 ? x / sum : 0;
    }
    b.model.volumes[v].view_factors = f;
  }
  auto& set = b.model.settings;
  set.steps_per_hour = 6;
  set.iterations = dat4.accuracy >= 4 ? 3 : 1;
  set.external_ir = dat4.external_ir;
  set.exterior_film = dat4.exterior_film;
  set.interior_film = dat4.interior_film;
  set.soil_resistance = dat4.soil_resistance;
  set.elevation = elevation;
  set.heat_exchanger = dat4.heat_exchanger ? dat4.heat_exchanger_efficiency : 0;
  set.radiative_fraction = kRadiativeFraction;
  return b;
}

// The boundary conditions of one of DANE's hours.
HbHour HourOf(const Building& b, const DaneResult& dane, const DaneHour& dh, const Dat4& dat4,
              const std::vector<int>& outside_hb, const std::vector<int>& window_of_outside) {
  const auto& m = b.model;
  const int nv = static_cast<int>(m.volumes.size());
  HbHour h;
  h.outdoor = dh.outdoor;
  h.sky = dh.sky;
  h.ground = dane.ground;
  h.surfaces.resize(m.surfaces.size());
  for (size_t s = 0; s < m.surfaces.size(); ++s) {
    h.surfaces[s].absorbed.assign(m.surfaces[s].capacity.size(), 0.0);
    h.surfaces[s].curtain_drawn = dh.curtain;
  }
  const double rho = dat4.ground_reflectivity;
  for (size_t k = 0; k < outside_hb.size(); ++k) {
    int s = outside_hb[k];
    if (s < 0) continue;
    const auto& surface = m.surfaces[s];
    auto& sh = h.surfaces[s];
    double beam = dh.surfaces[3 * k], sky = dh.surfaces[3 * k + 1], ground = dh.surfaces[3 * k + 2];
    const int front = b.placed[s].flipped ? static_cast<int>(surface.capacity.size()) - 1 : 0;
    if (window_of_outside[k] < 0) {
      sh.absorbed[front] = surface.absorptance_front * (beam + sky + rho * ground);
      continue;
    }
    const size_t w = static_cast<size_t>(window_of_outside[k]);
    const size_t at = dane.WindowOffset(w);
    const int panes = dane.windows[w].panes;
    sh.incident = beam + sky + rho * ground;
    sh.transmitted_beam = dh.windows[at];
    sh.transmitted_diffuse = dh.windows[at + 1] + rho * dh.windows[at + 2];
    for (int p = 0; p < panes && p < static_cast<int>(sh.absorbed.size()); ++p) {
      int node = b.placed[s].flipped ? panes - 1 - p : p;
      sh.absorbed[node] = dh.windows[at + 3 + 2 * p] + rho * dh.windows[at + 4 + 2 * p];
    }
  }
  h.volumes.resize(nv);
  const int weekday = Weekday(dh.year, dh.month, dh.day);
  const std::array<double, kHvacColumns>* first_row = nullptr;
  for (int v = 0; v < nv; ++v) {
    auto& vh = h.volumes[v];
    vh.leakage = b.leakage[v];
    if (v >= static_cast<int>(dat4.hvac.size())) continue;
    const auto* row = dat4.hvac[v].Row(dh.month, dh.day, weekday, dh.hour);
    if (v == 0) first_row = row;
    if (!row) continue;
    const auto& r = *row;
    vh.heating_setpoint = r[kHeatingSetpoint];
    vh.heating_max = r[kMaxHeating];
    vh.cooling_setpoint = r[kCoolingSetpoint];
    vh.cooling_max = r[kMaxCooling];
    vh.internal_load = r[kInternalLoad];
    vh.supply = r[kInflow] / 1000;
    vh.exhaust = r[kOutflow] / 1000;
    double open = std::clamp(r[kOpenWindow], 0.0, 100.0) / 100;
    if (open > 0 && b.window_area[v] > 0) {
      h.openings.push_back({v, -1, open * b.window_area[v], b.window_height[v]});
    }
  }
  // Forced ventilation: flows out of each volume to the later ones and to
  // outdoors, negative as written.
  for (int v = 0; v < nv && v < static_cast<int>(dat4.forced.size()); ++v) {
    const auto& flows = dat4.forced[v];
    for (size_t k = 0; k < flows.size(); ++k) {
      double flow = -flows[k] / 1000;  // m3/s from v to the other
      bool outdoors = k + 1 == flows.size();
      if (outdoors) {
        if (flow > 0) h.volumes[v].exhaust += flow;
        if (flow < 0) h.volumes[v].supply -= flow;
        continue;
      }
      int other = v + 1 + static_cast<int>(k);
      if (other >= nv || flow == 0) continue;
      if (flow > 0) h.flows.push_back({v, other, flow});
      if (flow < 0) h.flows.push_back({other, v, -flow});
    }
  }
  // Openings between volumes by the first volume's schedule.
  for (const auto& o : b.openings) {
    double open =
        first_row ? std::clamp((*first_row)[OpeningColumn(o.a + 1, o.b + 1)], 0.0, 100.0) : 0.0;
    if (open > 0) h.openings.push_back({o.a, o.b, open / 100 * o.area, o.height});
  }
  return h;
}

std::string DaneStamp(const DaneHour& h) {
  return std::to_string(h.month) + "\t" + std::to_string(h.day) + "\t" + std::to_string(h.hour);
}

const char* const kMonthNames[12] = {"January",   "February", "March",    "April",
                                     "May",       "June",     "July",     "August",
                                     "September", "October",  "November", "December"};

}  // namespace

std::string MukFingerprint(const std::string& case_folder) {
  return Fingerprint()
      .Add(DaneFingerprint(case_folder))
      .Add(CorvFingerprint(case_folder))
      .Add(ReadInput(CaseFile(case_folder, "DAT4.DAT"), kMukDat4Missing))
      .Text();
}

void RunMuk(const std::string& case_folder) {
  const std::string fingerprint = MukFingerprint(case_folder);
  Dat1Building dat1;
  try {
    dat1 = ReadCaseDat1(case_folder);
  } catch (const FileError& e) {
    throw ModuleFailure(kMukDat1Damaged, e.UserText());
  }
  PlorResult plor = ReadPlorResult(case_folder, kMukPredecessor);
  CorvResult corv = ReadCorvResult(case_folder, kMukPredecessor);
  FentResult fent = ReadFentResult(case_folder, kMukPredecessor);
  DaneResult dane;
  try {
    dane = ReadDaneResult(case_folder, kMukPredecessor);
  } catch (const FileError& e) {
    throw ModuleFailure(kMukDaneDamaged, e.UserText());
  }
  const std::string dat4_path = CaseFile(case_folder, "DAT4.DAT");
  Dat4 dat4;
  try {
    dat4 = ParseDat4(dat4_path, ReadInput(dat4_path, kMukDat4Missing), plor.volumes);
  } catch (const FileError& e) {
    throw ModuleFailure(kMukDat4Damaged, e.UserText());
  }
  Building b = Build(dat1, plor, corv, fent, dat4, dane.elevation);
  const int nv = static_cast<int>(b.model.volumes.size());
  std::vector<int> outside_hb, window_of_outside;
  {
    size_t w = 0;
    for (int s : dane.outside) {
      int hb = s >= 0 && s < static_cast<int>(b.hb_of_plor.size()) ? b.hb_of_plor[s] : -1;
      outside_hb.push_back(hb);
      bool window = w < dane.windows.size() && dane.windows[w].surface == s;
      window_of_outside.push_back(window ? static_cast<int>(w++) : -1);
      if (hb >= 0 && b.placed[hb].window && !window) {
        throw ModuleFailure(kMukPredecessor, "DANE's windows differ from PLOR's: run DANE again");
      }
    }
  }
  HeatBalance hb(b.model);
  // The first day, `loops` times, to start the period from a settled state.
  for (int loop = 0; loop < dat4.loops; ++loop) {
    for (size_t i = 0; i < dane.hours.size() && i < 24; ++i) {
      hb.Hour(HourOf(b, dane, dane.hours[i], dat4, outside_hb, window_of_outside));
    }
  }
  std::vector<MukSummary> sum(nv);
  std::vector<std::array<double, 12>> month_heat(nv), month_cool(nv);
  std::vector<std::string> peak_heat_at(nv, "-"), peak_cool_at(nv, "-");
  for (int v = 0; v < nv; ++v) {
    sum[v].volume = v + 1;
    sum[v].t_min = 1e300;
    sum[v].t_max = -1e300;
    month_heat[v].fill(0);
    month_cool[v].fill(0);
  }
  // Tables: hourly (type 2) or the 15th of each month (type 1).
  bool selection = false;
  for (const auto& o : dat4.outputs) selection = selection || !o.empty();
  const bool tables = dat4.output_type >= 1 && selection;
  int comfort = -1;
  for (int v = 0; v < nv && v < 8; ++v) {
    if (dat4.comfort[v]) comfort = v;
  }
  const char* const kQuantity[6] = {"T_air [C]",   "Heating [W]", "Cooling [W]",
                                    "Sol_out [W]", "Sol_in [W]",  "Sol_abs [W]"};
  std::vector<std::string> hourly, comfort_lines, vol_load, surf_tmp;
  {
    std::string head = "Month\tDay\tHour\tT_out [C]";
    for (int v = 0; v < nv; ++v) {
      for (int q : dat4.outputs[v]) head += "\tV" + std::to_string(v + 1) + " " + kQuantity[q - 1];
    }
    hourly.push_back(head);
    comfort_lines.push_back("Month\tDay\tHour\tV" + std::to_string(comfort + 1) + " T_air [C]\tV" +
                            std::to_string(comfort + 1) + " T_mrt [C]");
    std::string vl = "Month\tDay\tHour";
    for (int v = 0; v < nv; ++v) {
      std::string n = "\tV" + std::to_string(v + 1) + " ";
      vl += n + "Heating [W]" + n + "Cooling [W]" + n + "Internal [W]" + n + "Solar [W]" + n +
            "Air exchange [W]" + n + "To surfaces [W]";
    }
    vol_load.push_back(vl);
    std::string st = "Month\tDay\tHour";
    for (const auto& p : b.placed) {
      std::string n = "\tS" + std::to_string(plor.surfaces[p.plor].number);
      st += n + " inside [C]" + n + " outside [C]";
    }
    surf_tmp.push_back(st);
  }
  for (const auto& dh : dane.hours) {
    HbResult r = hb.Hour(HourOf(b, dane, dh, dat4, outside_hb, window_of_outside));
    std::string stamp = DaneStamp(dh);
    char when[48];
    std::snprintf(when, sizeof when, "%s %d, hour %d", kMonthNames[dh.month - 1], dh.day, dh.hour);
    for (int v = 0; v < nv; ++v) {
      const auto& o = r.volumes[v];
      auto& s = sum[v];
      s.heating_kwh += o.heating / 1000;
      s.cooling_kwh += o.cooling / 1000;
      month_heat[v][dh.month - 1] += o.heating / 1000;
      month_cool[v][dh.month - 1] += o.cooling / 1000;
      if (o.heating > s.peak_heating) {
        s.peak_heating = o.heating;
        peak_heat_at[v] = when;
      }
      if (o.cooling > s.peak_cooling) {
        s.peak_cooling = o.cooling;
        peak_cool_at[v] = when;
      }
      s.t_min = std::min(s.t_min, o.air);
      s.t_max = std::max(s.t_max, o.air);
      s.t_mean += o.air / static_cast<double>(dane.hours.size());
    }
    if (tables && (dat4.output_type == 2 || dh.day == 15)) {
      std::string line = stamp + "\t" + Fixed("%.2f", dh.outdoor);
      for (int v = 0; v < nv; ++v) {
        const auto& o = r.volumes[v];
        const double values[6] = {o.air,       o.heating,  o.cooling,
                                  o.solar_out, o.solar_in, o.solar_abs};
        for (int q : dat4.outputs[v]) line += "\t" + Fixed("%.2f", values[q - 1]);
      }
      hourly.push_back(line);
      std::string vl = stamp;
      for (int v = 0; v < nv; ++v) {
        const auto& o = r.volumes[v];
        for (double x :
             {o.heating, o.cooling, o.internal, o.solar_abs, o.air_exchange, o.conduction}) {
          vl += "\t" + Fixed("%.2f", x);
        }
      }
      vol_load.push_back(vl);
    }
    if (comfort >= 0) {
      comfort_lines.push_back(stamp + "\t" + Fixed("%.2f", r.volumes[comfort].air) + "\t" +
                              Fixed("%.2f", r.volumes[comfort].mrt));
      std::string st = stamp;
      for (size_t s = 0; s < b.placed.size(); ++s) {
        st += "\t" + Fixed("%.2f", r.back_face[s]) + "\t" + Fixed("%.2f", r.front_face[s]);
      }
      surf_tmp.push_back(st);
    }
  }
  if (dane.hours.empty()) {
    for (auto& s : sum) s.t_min = s.t_max = 0;
  }

  // The report.
  std::vector<std::string> report = {"MUK - heat balance of the volumes", dat4.headline, ""};
  if (!dane.hours.empty()) {
    const auto& a = dane.hours.front();
    const auto& z = dane.hours.back();
    char line[128];
    std::snprintf(line, sizeof line, "Period: %04d.%02d.%02d - %04d.%02d.%02d, %zu hours", a.year,
                  a.month, a.day, z.year, z.month, z.day, dane.hours.size());
    report.push_back(line);
  }
  for (int v = 0; v < nv; ++v) {
    report.push_back("");
    report.push_back("Volume " + std::to_string(v + 1));
    report.push_back("Month\tHeating [kWh]\tCooling [kWh]");
    for (int mo = 0; mo < 12; ++mo) {
      report.push_back(std::string(kMonthNames[mo]) + "\t" + Fixed("%.1f", month_heat[v][mo]) +
                       "\t" + Fixed("%.1f", month_cool[v][mo]));
    }
    report.push_back("Year\t" + Fixed("%.1f", sum[v].heating_kwh) + "\t" +
                     Fixed("%.1f", sum[v].cooling_kwh));
    report.push_back("Peak heating [W]\t" + Fixed("%.0f", sum[v].peak_heating) + "\t" +
                     peak_heat_at[v]);
    report.push_back("Peak cooling [W]\t" + Fixed("%.0f", sum[v].peak_cooling) + "\t" +
                     peak_cool_at[v]);
    report.push_back("Air temperature [C]\tmin " + Fixed("%.2f", sum[v].t_min) + "\tmean " +
                     Fixed("%.2f", sum[v].t_mean) + "\tmax " + Fixed("%.2f", sum[v].t_max));
  }

  // All results at the end, each whole; a write that fails takes the others
  // of this run with it.
  struct Out {
    std::string name;
    const std::vector<std::string>* lines;
    bool result;
  };
  std::vector<std::string> sum_lines = MukSummaryLines(sum);
  std::vector<Out> outs = {{"MUK.SUM", &sum_lines, true}, {"MUK.LIS", &report, false}};
  if (tables) outs.push_back({"HOURLY.TXT", &hourly, false});
  if (tables) outs.push_back({"Vol_load.TXT", &vol_load, false});
  if (comfort >= 0) outs.push_back({"COMFORT.TXT", &comfort_lines, false});
  if (comfort >= 0) outs.push_back({"Surf_tmp.TXT", &surf_tmp, false});
  std::vector<std::string> written;
  try {
    for (const auto& o : outs) {
      std::string path = CaseFile(case_folder, o.name);
      if (o.result) {
        WriteResult(path, kMuk, fingerprint, *o.lines);
      } else if (!WriteAllLines(path, *o.lines)) {
        throw ModuleFailure(kMuk.base + kWriteFailed, "Cannot write " + path);
      }
      written.push_back(path);
    }
  } catch (...) {
    for (const auto& path : written) std::remove(ToFsPath(path).string().c_str());
    throw;
  }
}

}  // namespace zelmo::modules
