#include "simulation/list_of_elements.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "modules/dat1.h"
#include "modules/geometry.h"
#include "simulation/help_topics.h"
#include "simulation/prepare_case.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

// A number of the list, whichever separator it shows.
double Dat1Value(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return Val(TrimBlanks(text));
}

// What a part of an element is made of, as the list shows it: the wall's
// number, "0" for a shading screen, or "W" and the window type.
std::string ConstructionText(const modules::Dat1Part& part) {
  if (part.construction == modules::Part::kShadingScreen) return "0";
  if (part.construction == modules::Part::kWall) return std::to_string(part.wall);
  if (part.window) return "W" + part.window_type;
  return "";
}

}  // namespace

Dat1Surfaces GetDat1(const std::string& path, bool decimal_comma) {
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The file cannot be opened");
  const modules::Dat1Building building = modules::ParseDat1(path, *bytes);
  auto shown = [decimal_comma](std::string text) {
    if (decimal_comma) std::replace(text.begin(), text.end(), '.', ',');
    return text;
  };
  Dat1Surfaces read;
  for (const modules::Surface& s : modules::BuildSurfaces(building)) {
    const modules::Dat1Element& el = building.elements[s.element];
    Dat1Surface surface;
    surface.sequence = s.number;
    surface.element = static_cast<int>(s.element) + 1;
    surface.hole = s.in_hole;
    surface.name = el.name;
    surface.shape = std::to_string(el.shape);
    std::string* texts[] = {&surface.zenith, &surface.azimuth, &surface.x, &surface.y, &surface.z};
    for (size_t k = 0; k < el.texts.size(); ++k) *texts[k] = shown(el.texts[k]);
    surface.front = std::to_string(el.front);
    surface.back = std::to_string(el.back);
    surface.construction = ConstructionText(s.in_hole ? el.hole : el.main);
    read.total = s.number;
    if (el.front <= 0 || el.back <= 0) read.outdoors.push_back(surface);
  }
  return read;
}

bool HasOrientation(double zenith, Orientation orientation) {
  const double z = std::fabs(zenith);
  const bool right_angle = std::fmod(z, 90.0) == 0;
  const bool flat = std::fmod(z, 180.0) == 0;
  switch (orientation) {
    case Orientation::kVertical:
      return right_angle && !flat;
    case Orientation::kHorizontal:
      return flat;
    case Orientation::kTilted:
      return !right_angle;
  }
  return false;
}

void Quicksort(std::vector<int>& keys, std::vector<int>& carried, int first, int last,
               const std::function<double()>& random) {
  auto exchange = [&](int a, int b) {
    std::swap(keys[a], keys[b]);
    std::swap(carried[a], carried[b]);
  };
  // The smaller part is sorted by a call of its own and the larger by the
  // loop, so the depth of calls stays small whatever the pivots.
  while (first < last) {
    int pivot = first + static_cast<int>((last - first + 1) * random());
    exchange(first, std::clamp(pivot, first, last));
    int middle = first;
    for (int i = first + 1; i <= last; ++i) {
      if (keys[i] < keys[first]) exchange(++middle, i);
    }
    exchange(first, middle);
    if (middle - first < last - middle) {
      Quicksort(keys, carried, first, middle - 1, random);
      first = middle + 1;
    } else {
      Quicksort(keys, carried, middle + 1, last, random);
      last = middle - 1;
    }
  }
}

namespace {

const char* const kOrientations[] = {"Vertical", "Horizontal", "Tilted"};

struct Column {
  const char* header;
  int width;
};
constexpr Column kColumns[] = {{"Seq #", 600},      {"Zenith", 800}, {"Azimuth", 800},
                               {"Surface #", 1000}, {"Name", 1800},  {"Shape", 700},
                               {"Constr.", 700},    {"Vf", 300},     {"Vb", 300},
                               {"x0", 1000},        {"y0", 1000},    {"z0", 1000}};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));

int GridWidth() {
  int width = 0;
  for (const Column& column : kColumns) width += column.width;
  return width;
}

std::string GridRow(const Dat1Surface& s) {
  const std::string cells[] = {std::to_string(s.sequence),
                               s.zenith,
                               s.azimuth,
                               std::to_string(s.element),
                               s.hole ? s.name + " (hole)" : s.name,
                               s.shape,
                               s.construction,
                               s.front,
                               s.back,
                               s.x,
                               s.y,
                               s.z};
  std::string row = cells[0];
  for (size_t i = 1; i < std::size(cells); ++i) row += "\t" + cells[i];
  return row;
}

}  // namespace

ListOfBuildingElements::ListOfBuildingElements(Session& session)
    : Form("ListOfBuildingElements"), session_(session) {
  caption = "List of surfaces facing outdoors";
  width = GridWidth() + 900;
  height = 7600;
  help_context = help_context::kListOfBuildingElements;
  Label1.caption = "Total number of surfaces in building";
  Label2.caption = "Number of surfaces facing outdoors";
  for (int i = 0; i < 3; ++i) {
    Option1[i].caption = kOrientations[i];
    Option1[i].on_click = [this, i] { SelectFromDat1(static_cast<Orientation>(i)); };
  }
  Grid1.SetCols(kColumnCount);
  Grid1.fixed_cols = 0;
  for (int col = 0; col < kColumnCount; ++col) Grid1.col_widths[col] = kColumns[col].width;
  OK.caption = "Close";
  Command1.caption = "Help";
  cancel_button = "OK";
  OK.on_click = [this] { Unload(); };
  Command1.on_click = [this] { Help(); };
}

void ListOfBuildingElements::Load() {
  const Workspace& ws = session_.ws;
  CenterForm(*this, ws);
  WriteDat1(ws);
  surfaces_ = GetDat1(JoinPath(ws.CasePath, "DAT1.DAT"), ws.DecimalComma);
  TN.caption = std::to_string(surfaces_.total);
  if (surfaces_.total < 1) return;
  Grid1.SetRows(1);
  for (int col = 0; col < kColumnCount; ++col) Grid1.Cell(0, col) = kColumns[col].header;
  SelectFromDat1(Orientation::kVertical);
}

void ListOfBuildingElements::SelectFromDat1(Orientation orientation) {
  for (int i = 0; i < 3; ++i) Option1[i].value = i == static_cast<int>(orientation) ? 1 : 0;
  Grid1.SetRows(1);
  std::vector<int> keys, carried;
  std::vector<std::string> rows;
  for (const Dat1Surface& surface : surfaces_.outdoors) {
    if (!HasOrientation(Dat1Value(surface.zenith), orientation)) continue;
    keys.push_back(surface.sequence);
    carried.push_back(static_cast<int>(rows.size()));
    rows.push_back(GridRow(surface));
  }
  NS.caption = std::to_string(rows.size());
  static thread_local std::mt19937 generator{std::random_device{}()};
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  Quicksort(keys, carried, 0, static_cast<int>(keys.size()) - 1,
            [&] { return uniform(generator); });
  for (int index : carried) Grid1.AddRow(rows[index]);
  Grid1.row = Grid1.rows() > 1 ? 1 : 0;
  Grid1.col = 0;
  Grid1.top_row = 1;
}

void ListOfBuildingElements::Help() { ShowScreenHelp(session_, help_context); }

}  // namespace zelmo
