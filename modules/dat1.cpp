#include "modules/dat1.h"

#include <cmath>
#include <string>

#include "core/file_system.h"
#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo::modules {

namespace {

// Widths of the fields of an element: its first line holds the name and
// eight numbers, the geometry six, the lines of a construction or a window
// five narrow numbers, the main part's with the leakage behind them.
constexpr size_t kNameWidth = 10;
constexpr size_t kWideField = 10;
constexpr size_t kCodeField = 5;
constexpr size_t kGeometryField = 7;
constexpr size_t kFirstLineWidth = kNameWidth + 6 * kWideField + 2 * kCodeField;
constexpr size_t kHoleBlockWidth = 5 * kCodeField;
constexpr size_t kMainBlockWidth = kHoleBlockWidth + kWideField;
// The first value of a block says what it is: 0 a shading screen, 1 a wall
// construction, 6 a window.
constexpr double kScreenCode = 0, kWallCode = 1, kWindowCode = 6;

std::string Trim(std::string_view text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

// A walk over the file's text by fixed columns. The modules' input leaves
// some lines open, so that an element may begin in the middle of a line:
// the walk keeps its place inside the line rather than go line by line.
class Cursor {
 public:
  Cursor(const std::string& path, std::string_view bytes) : path_(path), bytes_(bytes) {}

  bool AtEnd() const { return pos_ >= bytes_.size(); }
  // The rest of the current line, without its end.
  std::string_view Rest() const {
    size_t end = bytes_.find('\n', pos_);
    if (end == std::string_view::npos) end = bytes_.size();
    if (end > pos_ && bytes_[end - 1] == '\r') --end;
    return bytes_.substr(pos_, end - pos_);
  }
  std::string_view Take(size_t width) {
    if (Rest().size() < width) {
      Fail(AtEnd() ? "The file ends too early"
                   : "The line ends before column " + std::to_string(Column() + width - 1));
    }
    std::string_view field = bytes_.substr(pos_, width);
    pos_ += width;
    return field;
  }
  double Number(size_t width) {
    size_t first = Column();
    std::string text = Trim(Take(width));
    if (!IsSignedNumberText(text)) {
      Fail("A number was expected in columns " + std::to_string(first) + " to " +
           std::to_string(first + width - 1));
    }
    return Val(text);
  }
  // A number that must be whole and within bounds.
  int Whole(size_t width, int low, int high, const std::string& what) {
    double value = Number(width);
    if (value != std::floor(value) || value < low || value > high) {
      Fail(what + " must be a whole number from " + std::to_string(low) + " to " +
           std::to_string(high));
    }
    return static_cast<int>(value);
  }
  void EndLine() {
    if (!Rest().empty()) Fail("The line goes on after column " + std::to_string(Column() - 1));
    NextLine();
  }
  void SkipLine() { Line(); }
  std::string Line() {
    if (AtEnd()) Fail("The file ends too early");
    std::string text(Rest());
    pos_ += text.size();
    NextLine();
    return text;
  }
  // The first value of the rest of the line, when the rest is `width` long
  // and begins with a number.
  bool BlockStarts(size_t width, double& first) const {
    std::string_view rest = Rest();
    if (rest.size() != width) return false;
    std::string text = Trim(rest.substr(0, kCodeField));
    if (!IsSignedNumberText(text)) return false;
    first = Val(text);
    return true;
  }
  std::string_view Peek(size_t width) const { return Rest().substr(0, width); }
  int LineNumber() const { return line_; }
  // Fails at the current line, or `offset` lines from it.
  [[noreturn]] void Fail(const std::string& what, int offset = 0) const {
    throw FileError(path_, line_ + offset, what);
  }

 private:
  size_t Column() const { return pos_ - line_start_ + 1; }
  void NextLine() {
    if (pos_ < bytes_.size() && bytes_[pos_] == '\r') ++pos_;
    if (pos_ < bytes_.size() && bytes_[pos_] == '\n') ++pos_;
    line_start_ = pos_;
    ++line_;
  }

  const std::string& path_;
  std::string_view bytes_;
  size_t pos_ = 0;
  size_t line_start_ = 0;
  int line_ = 1;
};

// A block of five narrow numbers, on the main part the leakage behind them:
// a construction (0 a shading screen, 1 a wall, then its number and the two
// absorptances) or a window (6, 1, 0, 0, then 1 when it has a curtain). A
// wall's emittances follow on a line of their own, a window's type too.
void ReadBlock(Cursor& in, Dat1Part& part, double* leakage) {
  double values[5];
  for (double& value : values) value = in.Number(kCodeField);
  if (leakage) *leakage = in.Number(kWideField);
  in.EndLine();
  if (values[0] == kWindowCode) {
    part.window = true;
    part.curtain = values[4] != 0;
    part.window_type = Trim(in.Line());
    return;
  }
  part.construction = values[0] == kScreenCode ? Part::kShadingScreen : Part::kWall;
  if (values[1] != std::floor(values[1]) || values[1] < 0 || values[1] > 99999) {
    in.Fail("The construction number must be a whole number from 0 to 99999", -1);
  }
  part.wall = static_cast<int>(values[1]);
  part.absorptance_front = values[2];
  part.absorptance_back = values[3];
  if (part.construction == Part::kShadingScreen) return;
  // The emittances, each in the shortest form of a number: " .87  .87".
  std::string line = in.Line();
  size_t pos = 0;
  for (double* value : {&part.emittance_front, &part.emittance_back}) {
    size_t first = line.find_first_not_of(' ', pos);
    size_t last = first == std::string::npos ? first : line.find(' ', first);
    std::string text = first == std::string::npos ? "" : line.substr(first, last - first);
    if (!IsSignedNumberText(text)) in.Fail("Two emittances were expected on the line", -1);
    *value = Val(text);
    pos = last;
  }
}

bool IsConstruction(double code) { return code == kScreenCode || code == kWallCode; }

// The blocks that follow an element's geometry or its hole: a construction,
// then a window, each only when the rest of the line is such a block.
void ReadPart(Cursor& in, Dat1Part& part, size_t width, double* leakage) {
  double code = 0;
  if (in.BlockStarts(width, code) && IsConstruction(code)) ReadBlock(in, part, leakage);
  if (in.BlockStarts(width, code) && code == kWindowCode) ReadBlock(in, part, leakage);
}

Dat1Element ReadElement(Cursor& in) {
  Dat1Element el;
  el.line = in.LineNumber();
  if (in.Rest().size() != kFirstLineWidth) {
    in.Fail("An element's first line must hold " + std::to_string(kFirstLineWidth) + " characters");
  }
  el.name = Trim(in.Take(kNameWidth));
  el.shape = in.Whole(kWideField, 1, 5, "The shape code");
  double* position[] = {&el.zenith, &el.azimuth, &el.x, &el.y, &el.z};
  for (size_t k = 0; k < el.texts.size(); ++k) {
    el.texts[k] = Trim(in.Peek(kWideField));
    *position[k] = in.Number(kWideField);
  }
  el.front = in.Whole(kCodeField, -1, kMaxVolumes, "The front volume code");
  el.back = in.Whole(kCodeField, -1, kMaxVolumes, "The back volume code");
  in.EndLine();
  // The geometry leaves its line open: what the element is made of follows
  // on it, or, when it has no construction, the next element.
  for (double& dim : el.dims) dim = in.Number(kGeometryField);
  ReadPart(in, el.main, kMainBlockWidth, &el.leakage);
  if (el.shape == 3) ReadPart(in, el.hole, kHoleBlockWidth, nullptr);
  return el;
}

}  // namespace

Dat1Building ParseDat1(const std::string& path, std::string_view bytes) {
  Cursor in(path, bytes);
  Dat1Building building;
  building.headline = in.Line();
  building.volumes = in.Whole(kGeometryField, 0, kMaxVolumes, "The count of volumes");
  int elements = in.Whole(kGeometryField, 0, kMaxElements, "The count of elements");
  in.EndLine();
  // The fluid of each volume, then the advection of each pair of volumes.
  for (int k = 0; k < building.volumes; ++k) {
    building.fluids.push_back(in.Number(kGeometryField));
    in.EndLine();
  }
  for (int k = 0; k < building.volumes * (building.volumes - 1) / 2; ++k) {
    std::array<double, 2> pair{};
    for (double& value : pair) value = in.Number(kGeometryField);
    in.EndLine();
    building.advection.push_back(pair);
  }
  for (int k = 0; k < elements; ++k) {
    if (in.AtEnd()) {
      in.Fail("The file ends before element " + std::to_string(k + 1) + " of " +
              std::to_string(elements));
    }
    building.elements.push_back(ReadElement(in));
  }
  while (!in.AtEnd()) {
    if (!Trim(in.Rest()).empty()) in.Fail("Text follows the last element");
    in.SkipLine();
  }
  return building;
}

Dat1Building ReadCaseDat1(const std::string& case_folder) {
  std::string path = JoinPath(StripTrailingSeparator(case_folder), kDat1File);
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The file cannot be opened");
  return ParseDat1(path, *bytes);
}

}  // namespace zelmo::modules
