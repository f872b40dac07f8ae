#include "modules/fent.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>

#include "core/numbers.h"
#include "core/text_file.h"
#include "modules/corv_fent_results.h"
#include "modules/glazing_library.h"

namespace zelmo::modules {

namespace {

constexpr const char* kDat1 = "DAT1.DAT";
constexpr const char* kLibrary = "Wndw.Lib";
constexpr const char* kResults = "FENT.RES";
constexpr const char* kReport = "FENT.LIS";

// The fields that open a window in DAT1.DAT, five places each, and the
// curtain flag after them.
constexpr const char* kWindowFields = " 6.00 1.00 0.00 0.00";
constexpr size_t kWindowWidth = 25, kLeakageWidth = 10;

bool WindowSegment(const std::string& segment) {
  return segment.size() == kWindowWidth && segment.compare(0, 20, kWindowFields) == 0 &&
         (segment.compare(20, 5, " 0.00") == 0 || segment.compare(20, 5, " 1.00") == 0);
}

bool OpensWindow(const std::string& line) {
  const size_t size = line.size();
  // With the leakage field of ten places, four decimals, behind it.
  if (size >= kWindowWidth + kLeakageWidth && line[size - 5] == '.' &&
      WindowSegment(line.substr(size - kWindowWidth - kLeakageWidth, kWindowWidth))) {
    return true;
  }
  return size >= kWindowWidth && WindowSegment(line.substr(size - kWindowWidth));
}

std::vector<std::string> SplitLines(const std::string& bytes) {
  std::vector<std::string> lines;
  size_t at = 0;
  while (at < bytes.size()) {
    size_t end = bytes.find('\n', at);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(at, end - at);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    at = end + 1;
  }
  return lines;
}

int CodeOf(GlazingFault fault) {
  switch (fault) {
    case GlazingFault::kNoType:
      return kFentNoWindowType;
    case GlazingFault::kNoPanes:
      return kFentNoPanes;
    case GlazingFault::kNoGlass:
      return kFentNoGlass;
    case GlazingFault::kNoGas:
      return kFentNoGas;
    case GlazingFault::kBadGlass:
    case GlazingFault::kNone:
      break;
  }
  return kFentBadGlass;
}

WindowOptics Interpolated(const std::vector<WindowOptics>& table, double degrees, size_t panes) {
  if (!(degrees < 90) || table.size() != kFentAngles) {
    return {0, 1, std::vector<double>(panes, 0.0)};
  }
  const double at = std::max(degrees, 0.0) / kFentAngleStep;
  const size_t row = std::min(static_cast<size_t>(at), static_cast<size_t>(kFentAngles - 2));
  const double w = at - static_cast<double>(row);
  const WindowOptics& a = table[row];
  const WindowOptics& b = table[row + 1];
  WindowOptics optics{a.tau + w * (b.tau - a.tau), a.rho + w * (b.rho - a.rho), a.absorbed};
  for (size_t j = 0; j < optics.absorbed.size() && j < b.absorbed.size(); ++j) {
    optics.absorbed[j] += w * (b.absorbed[j] - a.absorbed[j]);
  }
  return optics;
}

std::string OpticsLine(const std::string& tag, const std::string& angle, const WindowOptics& o) {
  return tag + "\t" + angle + "\t" + ResultNumber(o.tau) + "\t" + ResultNumber(o.rho) +
         ResultNumbers(o.absorbed);
}

std::string Report(const std::string& library_path, const FentResult& result) {
  std::string text = "FENT: the windows of the case, from " + library_path + "\r\n\r\n";
  text += "  Type  Panes  U [W/m2,K]      g   Tsol  Tsol 30  Tsol 60  Tsol diffuse  Name\r\n";
  for (const FentWindow& w : result.windows) {
    char line[200];
    std::snprintf(line, sizeof line, "%6d  %5zu  %10.2f  %5.3f  %5.3f  %7.3f  %7.3f  %12.3f  ",
                  w.number, w.panes.size(), w.u, w.g, w.tsol, w.front[6].tau, w.front[12].tau,
                  w.front_diffuse.tau);
    text += line + w.name + "\r\n";
  }
  return text;
}

}  // namespace

WindowOptics FentWindow::FrontAt(double degrees) const {
  return Interpolated(front, degrees, panes.size());
}

WindowOptics FentWindow::BackAt(double degrees) const {
  return Interpolated(back, degrees, panes.size());
}

const FentWindow* FentResult::Window(int number) const {
  for (const FentWindow& window : windows) {
    if (window.number == number) return &window;
  }
  return nullptr;
}

std::string WindowLibraryOf(const std::string& case_folder) {
  std::filesystem::path folder = ToFsPath(case_folder);
  if (folder.filename().empty()) folder = folder.parent_path();
  return CaseFile(FromFsPath(folder.parent_path()), kLibrary);
}

std::string FentFingerprint(const std::string& case_folder) {
  Fingerprint fingerprint;
  for (const std::string& path : {WindowLibraryOf(case_folder), CaseFile(case_folder, kDat1)}) {
    const auto bytes = ReadAllBytes(path);
    fingerprint.Add(bytes ? "file" : "missing");
    if (bytes) fingerprint.Add(*bytes);
  }
  return fingerprint.Text();
}

std::vector<UsedWindow> UsedWindowTypes(const std::string& dat1_bytes) {
  const std::vector<std::string> lines = SplitLines(dat1_bytes);
  std::map<int, int> used;
  for (size_t i = 0; i + 1 < lines.size(); ++i) {
    if (!OpensWindow(lines[i])) continue;
    const int number = ValInt(TrimBlanks(lines[i + 1]));
    used.emplace(number, static_cast<int>(i + 2));
  }
  std::vector<UsedWindow> windows;
  for (const auto& [number, line] : used) windows.push_back({number, line});
  return windows;
}

FentWindow ComputeFentWindow(const WindowLibrary& library, const std::string& path, int number) {
  const WindowGlazing found = GlazingOfWindow(library, path, number);
  if (!found.glazing) throw ModuleFailure(CodeOf(found.fault), found.text);
  const auto centre = ComputeGlazing(*found.glazing);
  if (!centre) throw ModuleFailure(kFentNoResult, NoResultText(library, number));
  const LibraryWindow& type = library.windows[static_cast<size_t>(number - 1)];
  std::vector<PaneOptics> optics;
  for (const LibraryPane& pane : type.panes) {
    const auto pane_optics = PaneOpticsOf(*GlassNamed(library, pane.glass), pane.reversed);
    if (!pane_optics) {
      throw ModuleFailure(kFentBadGlass,
                          "glass type " + pane.glass + " has no sound data by angle of incidence");
    }
    optics.push_back(*pane_optics);
  }
  FentWindow window;
  window.number = number;
  window.name = type.name;
  for (size_t j = 0; j < found.glazing->panes.size(); ++j) {
    const GlazingPane& pane = found.glazing->panes[j];
    window.panes.push_back({pane.eps_front, pane.eps_back, pane.thickness_mm, centre->inward[j]});
  }
  window.gaps = found.glazing->gaps;
  for (int k = 0; k < kFentAngles; ++k) {
    window.front.push_back(FrontOptics(optics, k * kFentAngleStep));
    window.back.push_back(BackOptics(optics, k * kFentAngleStep));
  }
  window.front_diffuse = FrontDiffuse(optics);
  window.back_diffuse = BackDiffuse(optics);
  window.u = centre->u;
  window.g = centre->g;
  window.tsol = centre->tsol;
  return window;
}

std::vector<std::string> FentLines(const FentResult& result) {
  std::vector<std::string> lines;
  lines.push_back("Windows\t" + std::to_string(result.windows.size()) + "\tAngles\t" +
                  std::to_string(kFentAngles));
  for (const FentWindow& w : result.windows) {
    lines.push_back("Window\t" + std::to_string(w.number) + "\t" + std::to_string(w.panes.size()) +
                    "\t" + ResultNumber(w.u) + "\t" + ResultNumber(w.g) + "\t" +
                    ResultNumber(w.tsol) + "\t" + w.name);
    for (const FentPane& p : w.panes) {
      lines.push_back("Pane" + ResultNumbers({p.eps_front, p.eps_back, p.thickness_mm, p.inward}));
    }
    for (const GlazingGap& g : w.gaps) {
      const GasProperties& gas = g.gas;
      lines.push_back("Gap" + ResultNumbers({g.width_mm, gas.k, gas.dk, gas.mu, gas.dmu, gas.rho,
                                             gas.drho, gas.pr, gas.dpr}));
    }
    for (int k = 0; k < kFentAngles; ++k) {
      lines.push_back(OpticsLine("F", std::to_string(k * 5), w.front[static_cast<size_t>(k)]));
    }
    for (int k = 0; k < kFentAngles; ++k) {
      lines.push_back(OpticsLine("B", std::to_string(k * 5), w.back[static_cast<size_t>(k)]));
    }
    lines.push_back(OpticsLine("FD", "hemi", w.front_diffuse));
    lines.push_back(OpticsLine("BD", "hemi", w.back_diffuse));
  }
  return lines;
}

void RunFent(const std::string& case_folder) {
  const std::string library_path = WindowLibraryOf(case_folder);
  const std::string library_bytes = ReadInput(library_path, kFentLibraryMissing);
  const std::string dat1_path = CaseFile(case_folder, kDat1);
  const std::string dat1_bytes = ReadInput(dat1_path, kFentDat1Missing);
  const WindowLibrary library = ReadWindowLibrary(library_path);
  FentResult result;
  for (const UsedWindow& used : UsedWindowTypes(dat1_bytes)) {
    try {
      result.windows.push_back(ComputeFentWindow(library, library_path, used.number));
    } catch (const ModuleFailure& failure) {
      throw ModuleFailure(failure.code(), failure.what() + std::string(" (") + kDat1 + ", line " +
                                              std::to_string(used.line) + ")");
    }
  }
  const std::string fingerprint =
      Fingerprint().Add("file").Add(library_bytes).Add("file").Add(dat1_bytes).Text();
  WriteResult(CaseFile(case_folder, kResults), kFent, fingerprint, FentLines(result));
  WriteReport(CaseFile(case_folder, kReport), kFent, Report(library_path, result));
}

FentResult ParseFentResult(const std::vector<std::string>& lines, int code) {
  ResultCursor cursor(lines, kFent, kResults, code);
  const auto head = cursor.Fields("Windows", 3);
  const int count = cursor.Whole(head[0], 0, kMaxWindowTypes);
  if (head[1] != "Angles" || cursor.Whole(head[2], kFentAngles, kFentAngles) != kFentAngles) {
    cursor.Fail();
  }
  FentResult result;
  int last = 0;
  for (int w = 0; w < count; ++w) {
    const auto fields = cursor.Fields("Window", 6);
    FentWindow window;
    window.number = cursor.Whole(fields[0], last + 1, kMaxWindowTypes);
    last = window.number;
    const int panes = cursor.Whole(fields[1], 1, kMaxPanes);
    window.u = cursor.Value(fields[2]);
    window.g = cursor.Value(fields[3]);
    window.tsol = cursor.Value(fields[4]);
    window.name = fields[5];
    for (int j = 0; j < panes; ++j) {
      const auto v = cursor.Values("Pane", 4);
      window.panes.push_back({v[0], v[1], v[2], v[3]});
    }
    for (int j = 1; j < panes; ++j) {
      const auto v = cursor.Values("Gap", 9);
      window.gaps.push_back({v[0], {v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]}});
    }
    const size_t n = static_cast<size_t>(panes);
    auto optics = [&](const std::string& tag, const std::string& angle) {
      const auto fields = cursor.Fields(tag, static_cast<int>(n) + 3);
      if (fields[0] != angle) cursor.Fail();
      WindowOptics o{cursor.Value(fields[1]), cursor.Value(fields[2]), {}};
      for (size_t j = 0; j < n; ++j) o.absorbed.push_back(cursor.Value(fields[3 + j]));
      return o;
    };
    for (int k = 0; k < kFentAngles; ++k)
      window.front.push_back(optics("F", std::to_string(k * 5)));
    for (int k = 0; k < kFentAngles; ++k) window.back.push_back(optics("B", std::to_string(k * 5)));
    window.front_diffuse = optics("FD", "hemi");
    window.back_diffuse = optics("BD", "hemi");
    result.windows.push_back(std::move(window));
  }
  cursor.End();
  return result;
}

FentResult ReadFentResult(const std::string& case_folder, int code) {
  return ParseFentResult(
      ReadResult(CaseFile(case_folder, kResults), kFent, FentFingerprint(case_folder), code), code);
}

}  // namespace zelmo::modules
