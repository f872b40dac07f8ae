// Buildings for the tests of the geometry modules, written as DAT1.DAT lays
// them down.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace zelmo::modules::test_buildings {

// A number right-aligned in `width` with two decimals.
inline std::string N(double value, int width) {
  char text[64];
  std::snprintf(text, sizeof text, "%*.2f", width, value);
  return text;
}

struct ElementSpec {
  std::string name;
  int shape = 1;
  double zenith = 90, azimuth = 0, x = 0, y = 0, z = 0;
  int front = 0, back = 1;
  std::array<double, 6> dims{};
  // 1 a wall (number 1), 0 a shading screen; a window in the hole of shape 3.
  int construction = 1;
};

// The element's lines: a wall or screen block on the main part, a window
// (type 1) in the hole of shape 3.
inline std::string ElementText(const ElementSpec& e) {
  std::string name = e.name.substr(0, 10);
  name.append(10 - name.size(), ' ');
  std::string text = name + N(e.shape, 10) + N(e.zenith, 10) + N(e.azimuth, 10) + N(e.x, 10) +
                     N(e.y, 10) + N(e.z, 10) + N(e.front, 5) + N(e.back, 5) + "\r\n";
  for (double d : e.dims) text += N(d, 7);
  text += N(e.construction, 5) + N(e.construction, 5) + " 0.70 0.70 0.00    1.0000\r\n";
  if (e.construction == 1) text += " .9  .9\r\n";
  if (e.shape == 3) text += " 6.00 1.00 0.00 0.00 0.00\r\n1\r\n";
  return text;
}

inline std::string Dat1Text(int volumes, const std::vector<ElementSpec>& elements) {
  std::string text =
      "Test building\r\n" + N(volumes, 7) + N(static_cast<double>(elements.size()), 7) + "\r\n";
  for (int v = 0; v < volumes; ++v) text += N(1, 7) + "\r\n";
  for (int pair = 0; pair < volumes * (volumes - 1) / 2; ++pair) text += N(0, 7) + N(0, 7) + "\r\n";
  for (const ElementSpec& e : elements) text += ElementText(e);
  return text;
}

// A box of `width` (east) by `depth` (north) by `height` with its south-west
// floor corner at (x0, y0, 0) round volume `v`: fronts facing outdoors, the
// floor on the ground. The south wall first, then north, east, west, roof,
// floor.
inline std::vector<ElementSpec> Box(double x0, double y0, double width, double depth, double height,
                                    int v) {
  return {
      {"South", 1, 90, 180, x0, y0, 0, 0, v, {width, height}},
      {"North", 1, 90, 0, x0 + width, y0 + depth, 0, 0, v, {width, height}},
      {"East", 1, 90, 90, x0 + width, y0, 0, 0, v, {depth, height}},
      {"West", 1, 90, 270, x0, y0 + depth, 0, 0, v, {depth, height}},
      {"Roof", 1, 0, 0, x0, y0, height, 0, v, {width, depth}},
      {"Floor", 1, 180, 0, x0, y0 + depth, 0, -1, v, {width, depth}},
  };
}

// The validation box: 8 m east-west, 6 m north-south, 2.7 m high, two south
// windows of 3 by 2 m from x = 0.5 to 3.5 and 4.5 to 7.5, z = 0.2 to 2.2;
// the south wall is two elements of 4 m, each with a window in its hole.
inline std::vector<ElementSpec> ValidationBox() {
  std::vector<ElementSpec> box = Box(0, 0, 8, 6, 2.7, 1);
  box.erase(box.begin());
  box.insert(box.begin(), {{"South 1", 3, 90, 180, 0, 0, 0, 0, 1, {4, 2.7, 0.2, 0.5, 2.2, 3.5}},
                           {"South 2", 3, 90, 180, 4, 0, 0, 0, 1, {4, 2.7, 0.2, 0.5, 2.2, 3.5}}});
  return box;
}

}  // namespace zelmo::modules::test_buildings
