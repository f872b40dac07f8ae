#include "simulation/prepare_case.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "building/advconn.h"
#include "building/fluids.h"
#include "building/forcevent.h"
#include "building/genpars.h"
#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "libraries/misched.h"
#include "libraries/moveins_lib.h"
#include "libraries/opaque_lib.h"
#include "libraries/output_spec.h"
#include "libraries/walls_lib.h"
#include "schedules/hvac_cal_file.h"
#include "schedules/hvac_delivery.h"
#include "schedules/schedule_store.h"
#include "site/site_file.h"

namespace zelmo {

namespace {

// The text of a module input file. The modules read free-format numbers
// from fixed columns, so a line may be built in several steps; it is ended
// only where the format ends it, and a line still open when the file ends is
// ended there, so that every file ends with its line end.
class DatText {
 public:
  DatText& operator<<(std::string_view text) {
    bytes_ += text;
    return *this;
  }
  void End() { bytes_ += "\r\n"; }
  // Ends a line that was left open.
  void Close() {
    if (!bytes_.empty() && !bytes_.ends_with("\r\n")) End();
  }
  void Line(std::string_view text) {
    bytes_ += text;
    End();
  }
  const std::string& bytes() const { return bytes_; }
  // For writers that lay down whole lines, ended already.
  std::string& raw() { return bytes_; }

 private:
  std::string bytes_;
};

// The fixed-width number fields: w characters, d decimals.
std::string N(const std::string& text, int width, int decimals) {
  return FormatFixed(text, decimals, width);
}
std::string N(double value, int width, int decimals) {
  return FormatFixedValue(value, decimals, width);
}
// Text left-aligned in `width`.
std::string T(const std::string& text, int width) { return PadField(text, width, "V"); }

// A percentage as the fraction the modules take, in the number-to-text form
// with its sign blank.
std::string Hundredth(const std::string& percent) { return NumTextDouble(Val(percent) * 0.01); }
// The same, fixed-width.
std::string NHundredth(const std::string& percent, int width, int decimals) {
  return N(Hundredth(percent), width, decimals);
}

std::string Left(const std::string& text, size_t count) { return text.substr(0, count); }

// Everything PrepareCase reads, read once.
struct CaseData {
  std::vector<std::string> volumes;  // the volume list
  std::vector<std::string> pairs;    // with Outdoor, "0 -> i"
  SurfaceTable surfaces;
  AdvConnTable advection;
  FluidTable fluids;
  std::vector<std::string> site;
  MISchedule curtain_months;
  std::vector<std::string> genpars;
  std::optional<OutputSpec> output;
  VentTable ventilation;
  OpaqueTable materials;
  WallsLib walls;
  std::vector<CurtainRecord> curtains;
  // The schedules' tables are large and of one size: a thread keeps its own
  // from case to case rather than build them anew.
  ScheduleStore& schedules = Schedules();

  static ScheduleStore& Schedules() {
    thread_local ScheduleStore store;
    return store;
  }

  const std::string& Site(int k) const {
    static const std::string kNone;
    return k >= 1 && k <= static_cast<int>(site.size()) ? site[k - 1] : kNone;
  }
  const std::string& Gen(int k) const {
    static const std::string kNone;
    return k >= 1 && k <= static_cast<int>(genpars.size()) ? genpars[k - 1] : kNone;
  }
};

// The elements that are written: the slots with a name, in file order.
template <typename Visit>
void ForEachElement(const SurfaceTable& table, Visit visit) {
  for (int slot = 1; slot <= table.SurfCount && slot <= kMaxElements; ++slot) {
    if (!TrimBlanks(table.SurfName[slot]).empty())
      visit(table.SurfName[slot], table.SurfData[slot]);
  }
}

bool Set(const std::string& field) { return !TrimBlanks(field).empty(); }
bool Is(const std::string& field, std::string_view text) { return TrimBlanks(field) == text; }

// ---- DAT1.DAT: the building's geometry ----

// A construction of an element: "0" (a shading screen) or a wall number, its
// absorptances and emittances. The leakage closes the main construction's
// line; the hole's line has none.
void WriteConstruction(DatText& out, const std::vector<std::string>& el, int wall, bool leakage) {
  if (Is(el[wall], "0")) {
    out << N(0.0, 5, 2) << N(0.0, 5, 2);
  } else {
    out << N(1.0, 5, 2) << N(el[wall], 5, 2);
  }
  out << NHundredth(el[wall + 1], 5, 2) << NHundredth(el[wall + 2], 5, 2) << N(0.0, 5, 2);
  if (leakage) out << N(el[29], 10, 4);
  out.End();
  if (!Is(el[wall], "0")) out.Line(Hundredth(el[wall + 3]) + " " + Hundredth(el[wall + 4]));
}

void WriteWindow(DatText& out, const std::vector<std::string>& el, int window, bool leakage) {
  out << N(6.0, 5, 2) << N(1.0, 5, 2) << N(0.0, 5, 2) << N(0.0, 5, 2)
      << N(Set(el[window + 1]) ? 1.0 : 0.0, 5, 2);
  if (leakage) out << N(el[29], 10, 4);
  out.End();
  out.Line(TrimBlanks(el[window]));
}

// The dimensions of each shape, by shape code from 1; the rest of the six
// places are zeros.
constexpr std::array<int, 6> kShapeDimensions = {0, 2, 3, 6, 5, 6};

std::string Dat1Text(const Workspace& ws, const CaseData& data) {
  DatText out;
  out.Line(ws.CaseHeadline);
  int elements = 0;
  ForEachElement(data.surfaces,
                 [&](const std::string&, const std::vector<std::string>&) { ++elements; });
  out.Line(N(static_cast<double>(data.volumes.size()), 7, 2) + N(elements, 7, 2));
  for (const auto& volume : data.volumes) out.Line(N(data.fluids.FluidOf(volume), 7, 2));
  for (size_t i = 0; i < data.volumes.size(); ++i) {
    for (size_t j = i + 1; j < data.volumes.size(); ++j) {
      std::string pair = AdvPairName(data.volumes[i], data.volumes[j]);
      auto row = std::find_if(data.advection.begin(), data.advection.end(),
                              [&](const AdvConnRow& r) { return r.pair == pair; });
      if (row == data.advection.end()) {
        out.Line(N(0.0, 7, 2) + N(0.0, 7, 2));
      } else {
        out.Line(N(row->distance, 7, 2) + N(row->area, 7, 2));
      }
    }
  }
  ForEachElement(data.surfaces, [&](const std::string& name, const std::vector<std::string>& el) {
    int shape = ValInt(TrimBlanks(el[1])) + 1;
    out << T(name, 10) << N(shape, 10, 2);
    for (int k = 2; k <= 6; ++k) out << N(el[k], 10, 2);
    out << N(el[7], 5, 2) << N(el[8], 5, 2);
    out.End();
    if (shape >= 1 && shape <= 5) {
      int used = kShapeDimensions[shape];
      for (int k = 0; k < 6; ++k) out << (k < used ? N(el[9 + k], 7, 2) : N(0.0, 7, 2));
    }
    if (Set(el[15])) WriteConstruction(out, el, 15, true);
    if (Set(el[20])) WriteWindow(out, el, 20, true);
    if (Is(el[1], "2")) {
      if (Set(el[22])) WriteConstruction(out, el, 22, false);
      if (Set(el[27])) WriteWindow(out, el, 27, false);
    }
  });
  // An element with neither construction nor window leaves its geometry
  // line open for the next; the last one's is ended with the file.
  out.Close();
  return out.bytes();
}

// ---- DAT2.DAT: the wall constructions ----

constexpr int kDefaultMaterial = 6;

std::string Dat2Text(const Workspace& ws, const CaseData& data) {
  DatText out;
  out.Line(ws.CaseHeadline);
  const WallsLib& walls = data.walls;
  int highest = std::clamp(walls.highest, 0, kMaxWalls);
  out.Line(N(highest, 10, 0));
  std::array<bool, kMaxMaterials + 1> written{};
  for (int wall = 1; wall <= highest; ++wall) {
    if (walls.names[wall].empty()) {
      // A number without a wall gets ten layers of 10 cm mineral wool.
      out.Line(N(10.0, 10, 0));
      for (int layer = 1; layer <= 10; ++layer) {
        out.Line(N(10.0, 10, 3) + N(kDefaultMaterial, 10, 3));
        if (!written[kDefaultMaterial]) {
          written[kDefaultMaterial] = true;
          out.Line(T("Mineral wool", 10));
          out.Line("0.04 0.24 50");
        }
      }
      continue;
    }
    int layers = std::clamp<int>(walls.layer_count[wall], 0, kMaxLayers);
    out.Line(N(layers, 10, 0));
    for (int layer = 1; layer <= layers; ++layer) {
      const WallLayer& l = walls.layers[wall][layer];
      out.Line(N(Val(TrimBlanks(l.thickness)) / 10, 10, 3) + N(l.material, 10, 3));
      double number = Val(TrimBlanks(l.material));
      if (number < 1 || number > kMaxMaterials) continue;
      int material = static_cast<int>(number);
      if (written[material]) continue;
      int row = FindMaterial(data.materials, TrimBlanks(l.material));
      // A material absent from the library is described nowhere yet: the
      // default wall must still describe material 6 when it comes.
      if (row < 0) continue;
      written[material] = true;
      const OpaqueRow& m = data.materials[row];
      out.Line(T(m[1], 10));
      out.Line(TrimBlanks(m[2]) + " " + TrimBlanks(m[3]) + " " + TrimBlanks(m[4]));
    }
  }
  return out.bytes();
}

// ---- DAT3.DAT: the period and the curtain schedule ----

bool HasCurtainedWindow(const SurfaceTable& table) {
  bool any = false;
  ForEachElement(table, [&](const std::string&, const std::vector<std::string>& el) {
    if ((Set(el[20]) && Set(el[21])) || (Is(el[1], "2") && Set(el[27]) && Set(el[28]))) {
      any = true;
    }
  });
  return any;
}

// Years beyond any simulation; a period that claims more is damaged input,
// and the curtain schedule stops there rather than grow without end.
constexpr int kMaxYears = 1000;

std::string Dat3Text(const Workspace& ws, const CaseData& data) {
  DatText out;
  out.Line(ws.CaseHeadline);
  out.Line(N(data.Site(4), 10, 3));
  out.Line(N(data.Site(1), 10, 3) + N(data.Site(2), 10, 3) + N(data.Site(3), 10, 3));
  for (int k = 6; k <= 11; ++k) out.Line(N(data.Site(k), 10, 3));
  if (!HasCurtainedWindow(data.surfaces)) return out.bytes();
  double first = Val(TrimBlanks(data.Site(6)));
  double last = std::min(Val(TrimBlanks(data.Site(9))), first + kMaxYears);
  // Counted in whole steps: a year too large for its digits would never
  // move on.
  for (int step = 0; step <= kMaxYears && first + step <= last; ++step) {
    const double year = first + step;
    int from = year == first ? ValInt(TrimBlanks(data.Site(7))) : 1;
    int to = year + 1 > last ? ValInt(TrimBlanks(data.Site(10))) : 12;
    for (int month = std::max(from, 1); month <= std::min(to, kMonths); ++month) {
      const MonthSchedule& schedule = data.curtain_months[month - 1];
      out.Line(N(schedule.mode, 10, 3));
      if (schedule.mode != kModeHourly) continue;
      std::string hours;
      for (int hour = 0; hour < kMaskHours; ++hour) {
        hours += hour < static_cast<int>(schedule.mask.size()) ? schedule.mask[hour] : '0';
        hours += ' ';
      }
      out.Line(hours);
    }
  }
  return out.bytes();
}

// ---- DAT4.DAT: control, outputs, HVAC, ventilation and curtains ----

// The curtain by its place in MOVEINS.LIB, counted from 1: absorptance,
// R-value and transmittance, each followed by a blank.
std::string CurtainLine(const CaseData& data, double number) {
  if (number < 1 || number > static_cast<double>(data.curtains.size())) return "";
  const CurtainRecord& c = data.curtains[static_cast<size_t>(number) - 1];
  return TrimBlanks(Hundredth(c.Absorptance)) + " " + c.RValue + " " +
         TrimBlanks(Hundredth(c.Transmittance)) + " ";
}

void WriteOutputSelection(DatText& out, const CaseData& data) {
  const OutputSpec* chosen = data.output ? &*data.output : nullptr;
  auto head = [&](int k) { return chosen ? TrimBlanks(chosen->head[k - 1]) : std::string(); };
  if (head(1) == "2" && head(2) == "-1") {
    out.Line("     1" + PadField(std::to_string(-static_cast<int>(data.volumes.size())), 6, "H"));
    for (const auto& volume : data.volumes) {
      const OutputRow* row = chosen->RowOf(ValInt(volume));
      std::string ticked;
      for (int k = 1; row && k <= kOutputQuantities; ++k) {
        if (TrimBlanks(row->flags[k - 1]) != "-1") continue;
        if (!ticked.empty()) ticked += ' ';
        ticked += std::to_string(k);
      }
      out.Line(ticked.empty() ? "0" : ticked);
    }
  } else {
    out.Line("      0      0");
  }
  std::string comfort;
  for (int volume = 1; volume <= kMaxVolumes; ++volume) {
    const OutputRow* row = chosen ? chosen->RowOf(volume) : nullptr;
    bool on = row && TrimBlanks(row->flags[kComfortFlag]) == "-1" && head(3) == "-1";
    comfort += on ? '1' : '0';
  }
  out.Line(comfort + "0");
}

std::string Dat4Text(const Workspace& ws, const CaseData& data) {
  DatText out;
  SiteFirstLine first = ParseSiteFirstLine(data.Site(1));
  std::string terrain = first.wind != 0 ? std::to_string(first.terrain + 1) : "0";
  out.Line(Left(ws.AccuracyLevelTL, 1) + " " + Left(data.Site(12), 7) + " " +
           Left(data.Site(13), 7) + " " + Left(data.Site(14), 7) + " " + Left(terrain, 7));
  out.Line(data.Site(5));
  out.Line(ws.CaseHeadline);
  bool radiation = data.Gen(1) == "Y";
  out.Line(radiation ? "0" : "1");
  out.Line(N(data.Gen(6), 10, 0));
  out.Line(N(data.output ? data.output->head[0] : std::string(), 10, 0));
  std::string exterior = data.Gen(4).empty() ? (radiation ? "11.0" : "15.0") : data.Gen(4);
  std::string interior = data.Gen(5).empty() ? "-1" : data.Gen(5);
  out.Line(data.Gen(3) + " " + exterior + " " + interior + " " + Hundredth(data.Gen(2)));
  WriteOutputSelection(out, data);

  int year = ValInt(TrimBlanks(data.Site(6)));
  AppendHvacDelivery(out.raw(), data.schedules, year);

  for (const auto& volume : data.volumes) {
    out.Line(N(-1.0, 10, 2));
    out.Line(N(0.0, 10, 2));
    if (data.pairs.empty()) {
      out.Line(N(0.0, 10, 0));
      continue;
    }
    for (const auto& row : data.ventilation) {
      if (row.from == volume) out.Line(N(NumTextDouble(-Val(TrimBlanks(row.flow))), 10, 0));
    }
    for (const auto& row : data.ventilation) {
      if (row.to == volume && row.from == "0") out.Line(N(row.flow, 10, 0));
    }
  }

  double largest = 0, smallest = 9999;
  ForEachElement(data.surfaces, [&](const std::string&, const std::vector<std::string>& el) {
    for (int field : {21, 28}) {
      double number = Val(TrimBlanks(el[field]));
      if (number <= 0) continue;
      largest = std::max(largest, number);
      smallest = std::min(smallest, number);
    }
  });
  if (largest == 0) return out.bytes();
  if (smallest == largest) {
    out.Line(N(0.0, 10, 0));
    out.Line(CurtainLine(data, largest));
    return out.bytes();
  }
  out.Line(N(2.0, 10, 0));
  ForEachElement(data.surfaces, [&](const std::string&, const std::vector<std::string>& el) {
    double main = Val(TrimBlanks(el[21]));
    if (main > 0) out.Line(CurtainLine(data, main));
    double hole = Val(TrimBlanks(el[28]));
    if (Is(el[1], "2") && hole > 0) out.Line(CurtainLine(data, hole));
  });
  return out.bytes();
}

void Write(const Workspace& ws, const char* name, const std::string& bytes) {
  std::string path = JoinPath(ws.CasePath, name);
  if (!WriteDerivedBytes(path, bytes)) FailWrite(path);
}

// The building part of the case: its volumes, their pairs and the elements.
void ReadBuilding(const Workspace& ws, const SurfaceVolumes& sides, CaseData& data) {
  data.volumes = BuildVolumeList(sides);
  data.pairs = BuildVolumePairs(data.volumes, true);
  ReadSurfaces(ws, data.surfaces);
  data.advection = ReadAdvConn(ws, sides);
  data.fluids = ReadFluids(ws, data.volumes);
}

}  // namespace

void WriteDat1(const Workspace& ws) {
  CaseData data;
  ReadBuilding(ws, ReadSurfaceVolumes(ws), data);
  Write(ws, "DAT1.DAT", Dat1Text(ws, data));
}

void PrepareCase(const Workspace& ws) {
  CaseData data;
  SurfaceVolumes sides = ReadSurfaceVolumes(ws);
  ReadBuilding(ws, sides, data);
  // A case down to one volume has no flows between volumes left to keep.
  std::string forced = JoinPath(ws.CasePath, kForcedVentFile);
  if (data.volumes.size() == 1 && FileCanOpen(forced)) DeleteFile(PathOnDisk(forced));
  data.site = ReadSite(ws);
  data.curtain_months = ReadMISched(ws);
  data.genpars = ReadGenPars(ws, {"", "", "", "", ""});
  data.output = ReadOutputSpec(ws);
  data.ventilation = ReadForcedVent(ws, data.pairs);
  data.materials = ReadOpaqueLib(ws);
  data.walls = ReadWallsLib(ws);
  data.curtains = ReadMoveInsLib(ws);
  ReadHvacCalForRun(ws, static_cast<int>(data.volumes.size()), data.schedules);
  Write(ws, "DAT1.DAT", Dat1Text(ws, data));
  Write(ws, "DAT2.DAT", Dat2Text(ws, data));
  Write(ws, "DAT3.DAT", Dat3Text(ws, data));
  Write(ws, "DAT4.DAT", Dat4Text(ws, data));
}

}  // namespace zelmo
