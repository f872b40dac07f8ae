#include "modules/plor_lines.h"

#include <charconv>
#include <cmath>

#include "core/text_file.h"

namespace zelmo::modules {

std::vector<std::string> ResultLines::Next(const std::string& tag, size_t fields) {
  if (AtEnd()) {
    throw FileError(path_, static_cast<int>(next_) + 2, "The file ends before a line " + tag);
  }
  std::vector<std::string> cut;
  const std::string& line = lines_[next_++];
  size_t start = 0;
  while (true) {
    size_t tab = line.find('\t', start);
    cut.push_back(line.substr(start, tab == std::string::npos ? tab : tab - start));
    if (tab == std::string::npos) break;
    start = tab + 1;
  }
  if (cut[0] != tag || cut.size() < fields + 1) {
    Fail("A line " + tag + " with " + std::to_string(fields) + " values was expected");
  }
  return cut;
}
double ResultLines::Real(const std::string& text) const {
  // Read as written, whatever the locale.
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size() ||
      !std::isfinite(value)) {
    Fail("\"" + text.substr(0, 20) + "\" is not a number");
  }
  return value;
}
int ResultLines::Whole(const std::string& text, int low, int high) const {
  const double value = Real(text);
  if (value != std::floor(value) || value < low || value > high) {
    Fail(text + " is not a whole number from " + std::to_string(low) + " to " +
         std::to_string(high));
  }
  return static_cast<int>(value);
}
std::vector<Vec3> ResultLines::Points(size_t count) {
  const std::vector<std::string> f = Next("P", 3 * count);
  if (f.size() != 3 * count + 1) Fail("The line must hold " + std::to_string(count) + " points");
  std::vector<Vec3> points;
  for (size_t k = 0; k < count; ++k) {
    points.push_back({Real(f[1 + 3 * k]), Real(f[2 + 3 * k]), Real(f[3 + 3 * k])});
  }
  return points;
}
void ResultLines::Fail(const std::string& what) const {
  // The head line is the file's first.
  throw FileError(path_, static_cast<int>(next_) + 1, what);
}

void ResultLines::ExpectEnd(const std::string& what) {
  if (AtEnd()) return;
  ++next_;
  Fail(what);
}

}  // namespace zelmo::modules
