#include "modules/dat2.h"

#include <cmath>
#include <cstdlib>

#include "core/text_file.h"

namespace zelmo::modules {

namespace {

// The material numbers of the material library.
constexpr int kMaxMaterialNumber = 200;
constexpr double kSecondsPerHour = 3600;

// The whole text as a number, or nothing.
std::optional<double> Number(const std::string& field) {
  const std::string text = TrimBlanks(field);
  if (text.empty()) return std::nullopt;
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (end != text.c_str() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

// The fields of a line split at blanks.
std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  size_t at = 0;
  while (at < line.size()) {
    const size_t start = line.find_first_not_of(' ', at);
    if (start == std::string::npos) break;
    size_t stop = line.find(' ', start);
    if (stop == std::string::npos) stop = line.size();
    fields.push_back(line.substr(start, stop - start));
    at = stop;
  }
  return fields;
}

// A material's data line: three numbers and nothing else.
bool IsDataLine(const std::string& line) {
  const auto fields = Fields(line);
  if (fields.size() != 3) return false;
  for (const auto& field : fields) {
    if (!Number(field)) return false;
  }
  return true;
}

class Lines {
 public:
  explicit Lines(TextReader& reader) : path_(reader.path()) {
    while (!reader.AtEnd()) lines_.push_back(reader.ReadLine());
  }
  bool AtEnd() const { return next_ >= lines_.size(); }
  // The line after the next one, or nothing.
  const std::string* Ahead(size_t offset) const {
    return next_ + offset < lines_.size() ? &lines_[next_ + offset] : nullptr;
  }
  const std::string& Read() {
    if (AtEnd()) {
      throw FileError(path_, static_cast<int>(next_ + 1), "Input past end of file");
    }
    return lines_[next_++];
  }
  int Line() const { return static_cast<int>(next_); }
  [[noreturn]] void Fail(const std::string& what) const { throw FileError(path_, Line(), what); }
  // A whole number from `lowest` to `highest` standing alone on the line.
  int Count(const std::string& line, int lowest, int highest, const std::string& what) const {
    const auto value = Number(line);
    if (!value || *value != std::floor(*value) || *value < lowest || *value > highest) {
      Fail(what + " must be a whole number from " + std::to_string(lowest) + " to " +
           std::to_string(highest));
    }
    return static_cast<int>(*value);
  }

 private:
  std::string path_;
  std::vector<std::string> lines_;
  size_t next_ = 0;
};

}  // namespace

Dat2 ReadDat2(const std::string& path) {
  TextReader reader(path);
  return ReadDat2(reader);
}

Dat2 ReadDat2(TextReader& reader) {
  Lines lines(reader);
  Dat2 dat2;
  dat2.headline = lines.Read();
  const int highest = lines.Count(lines.Read(), 0, kMaxDat2Walls, "The highest wall number");
  std::vector<bool> seen(kMaxMaterialNumber + 1, false);
  for (int number = 1; number <= highest; ++number) {
    Dat2Wall wall;
    wall.number = number;
    const int layers = lines.Count(lines.Read(), 0, kMaxDat2Layers, "The number of layers");
    wall.line = lines.Line();
    for (int l = 0; l < layers; ++l) {
      const std::string& line = lines.Read();
      const auto thickness = Number(line.substr(0, 10));
      const auto material = line.size() > 10 ? Number(line.substr(10)) : std::nullopt;
      if (!thickness || !material || *material != std::floor(*material) || *material < 0 ||
          *material > kMaxMaterialNumber) {
        lines.Fail("A layer's thickness and material number (1 to 200) expected");
      }
      Dat2Layer layer{*thickness, static_cast<int>(*material), lines.Line()};
      wall.layers.push_back(layer);
      // The first time a material occurs its name and data follow, when the
      // material library holds it.
      if (seen[static_cast<size_t>(layer.material)]) continue;
      seen[static_cast<size_t>(layer.material)] = true;
      const std::string* data = lines.Ahead(1);
      if (!data || !IsDataLine(*data)) continue;
      Dat2Material m;
      m.name = TrimBlanks(lines.Read());
      const auto fields = Fields(lines.Read());
      m.conductivity = *Number(fields[0]);
      m.specific_heat_wh = *Number(fields[1]);
      m.density = *Number(fields[2]);
      dat2.materials[layer.material] = m;
    }
    dat2.walls.push_back(std::move(wall));
  }
  while (!lines.AtEnd()) {
    if (!TrimBlanks(lines.Read()).empty()) lines.Fail("Lines after the last wall");
  }
  return dat2;
}

Layer LayerOf(const Dat2Layer& layer, const Dat2Material& material) {
  return {layer.thickness_cm / 100, material.conductivity, material.density,
          material.specific_heat_wh * kSecondsPerHour};
}

}  // namespace zelmo::modules
