#include "simulation/list_of_elements.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "simulation/help_topics.h"
#include "simulation/prepare_case.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

// The field of `width` characters from `column` (counted from 1), trimmed;
// empty where the line is shorter.
std::string Cut(const std::string& line, size_t column, size_t width) {
  if (line.size() < column) return "";
  return TrimBlanks(line.substr(column - 1, width));
}

// A number of the file, whichever separator the line shows.
double Dat1Value(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return Val(TrimBlanks(text));
}

// Codes and numbers are whole: "3.00" shows as "3". Anything else shows as
// it stands.
std::string WholeText(const std::string& text) {
  double value = Dat1Value(text);
  if (!std::isfinite(value) || std::fabs(value) > 1e9 || value != std::floor(value)) return text;
  return std::to_string(static_cast<long long>(value));
}

// A count of the file's lines, kept within what any file can hold.
size_t Count(const std::string& text) {
  double value = Dat1Value(text);
  if (!(value > 0)) return 0;
  return static_cast<size_t>(std::min(value, 1e6));
}

// The kinds of construction a surface's line opens with.
constexpr int kScreenCode = 0;
constexpr int kWallCode = 1;
constexpr int kWindowCode = 6;
// The shape with a hole, as the modules number shapes.
constexpr int kHoleShape = 3;

class Dat1Reader {
 public:
  Dat1Reader(const std::string& path, bool decimal_comma) : in_(path), comma_(decimal_comma) {}

  std::string Next() {
    std::string line = in_.ReadLine();
    if (comma_) std::replace(line.begin(), line.end(), '.', ',');
    return line;
  }
  void Skip(size_t lines) { in_.Skip(lines); }

  // The construction whose code and number stand at `column`, and the line
  // that follows it: the emittances of a wall, the type of a window.
  std::string Construction(const std::string& line, size_t column) {
    const double code = Dat1Value(Cut(line, column, 5));
    std::string number = Cut(line, column + 5, 5);
    if (code == kScreenCode) return "0";
    if (code == kWallCode) {
      Next();
      return WholeText(number);
    }
    if (code == kWindowCode) return "W" + TrimBlanks(Next());
    return number;
  }

 private:
  TextReader in_;
  bool comma_;
};

}  // namespace

Dat1Surfaces GetDat1(const std::string& path, bool decimal_comma) {
  Dat1Reader in(path, decimal_comma);
  Dat1Surfaces read;
  in.Skip(1);  // the headline
  std::string counts = in.Next();
  size_t volumes = Count(Cut(counts, 1, 7));
  size_t elements = Count(Cut(counts, 8, 7));
  // The fluid of each volume and the advection of each pair.
  in.Skip(volumes + volumes * (volumes - 1) / 2);
  for (size_t element = 1; element <= elements; ++element) {
    std::string head = in.Next();
    Dat1Surface surface;
    surface.element = static_cast<int>(element);
    surface.name = Cut(head, 1, 10);
    surface.shape = WholeText(Cut(head, 11, 10));
    surface.zenith = Cut(head, 21, 10);
    surface.azimuth = Cut(head, 31, 10);
    surface.x = Cut(head, 41, 10);
    surface.y = Cut(head, 51, 10);
    surface.z = Cut(head, 61, 10);
    surface.front = WholeText(Cut(head, 71, 5));
    surface.back = WholeText(Cut(head, 76, 5));
    const bool outdoors = Dat1Value(surface.front) <= 0 || Dat1Value(surface.back) <= 0;
    // The geometry's six values come first on the construction's line.
    surface.construction = in.Construction(in.Next(), 43);
    const bool with_hole = Dat1Value(surface.shape) == kHoleShape;
    Dat1Surface hole = surface;
    surface.sequence = ++read.total;
    if (outdoors) read.outdoors.push_back(surface);
    if (!with_hole) continue;
    hole.hole = true;
    hole.construction = in.Construction(in.Next(), 1);
    hole.sequence = ++read.total;
    if (outdoors) read.outdoors.push_back(hole);
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
