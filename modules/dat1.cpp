#include "tools/trvshow/model/dat1_file.h"

#include <cmath>
#include <string>

#include "core/file_system.h"
#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo::trvshow {

namespace {

// The limits of the system's design: a case has at most 8 volumes and 100
// elements. A count beyond them is damage, not a larger building.
constexpr int kMaxVolumes = 8;
constexpr int kMaxElements = 100;

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
  // A line whose text the viewer does not need; it must be there.
  void SkipLine() {
    if (AtEnd()) Fail("The file ends too early");
    pos_ += Rest().size();
    NextLine();
  }
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
  [[noreturn]] void Fail(const std::string& what) const { throw FileError(path_, line_, what); }

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

// The numbers of a block: five narrow ones, on the main part the leakage
// behind them. Returns the first, which says what the block is.
double ReadBlock(Cursor& in, bool leakage) {
  double first = in.Number(kCodeField);
  for (int k = 1; k < 5; ++k) in.Number(kCodeField);
  if (leakage) in.Number(kWideField);
  in.EndLine();
  return first;
}

// A construction block; a wall's emittances follow on a line of their own.
Part ReadConstruction(Cursor& in, bool leakage) {
  if (ReadBlock(in, leakage) == kScreenCode) return Part::kShadingScreen;
  in.SkipLine();
  return Part::kWall;
}

// A window block, then the line of the window type's number.
void ReadWindow(Cursor& in, bool leakage) {
  ReadBlock(in, leakage);
  in.SkipLine();
}

bool IsConstruction(double code) { return code == kScreenCode || code == kWallCode; }

Dat1Element ReadElement(Cursor& in) {
  Dat1Element el;
  if (in.Rest().size() != kFirstLineWidth) {
    in.Fail("An element's first line must hold " + std::to_string(kFirstLineWidth) + " characters");
  }
  el.name = Trim(in.Take(kNameWidth));
  el.shape = in.Whole(kWideField, 1, 5, "The shape code");
  el.zenith = in.Number(kWideField);
  el.azimuth = in.Number(kWideField);
  el.x = in.Number(kWideField);
  el.y = in.Number(kWideField);
  el.z = in.Number(kWideField);
  el.front = in.Whole(kCodeField, -1, kMaxVolumes, "The front volume code");
  el.back = in.Whole(kCodeField, -1, kMaxVolumes, "The back volume code");
  in.EndLine();
  // The geometry leaves its line open: what the element is made of follows
  // on it, or, when it has no construction, the next element.
  for (double& dim : el.dims) dim = in.Number(kGeometryField);
  double code = 0;
  if (in.BlockStarts(kMainBlockWidth, code) && IsConstruction(code)) {
    el.main = ReadConstruction(in, true);
  }
  if (in.BlockStarts(kMainBlockWidth, code) && code == kWindowCode) {
    ReadWindow(in, true);
    el.main_window = true;
  }
  if (el.shape != 3) return el;
  if (in.BlockStarts(kHoleBlockWidth, code) && IsConstruction(code)) {
    el.hole = ReadConstruction(in, false);
  }
  if (in.BlockStarts(kHoleBlockWidth, code) && code == kWindowCode) {
    ReadWindow(in, false);
    el.hole_window = true;
  }
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
  int lines = building.volumes + building.volumes * (building.volumes - 1) / 2;
  for (int k = 0; k < lines; ++k) in.SkipLine();
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

}  // namespace zelmo::trvshow
