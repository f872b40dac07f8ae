// The geometry and the leakage of a building element: the area of each shape
// and what the two facing sides make of the leakage field.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zelmo {

// The five shapes as the list shows them; the stored value is the position.
inline constexpr std::array<const char*, 5> kShapeNames = {
    "1 Rectangle", "2 Triangle", "3 Rectangle with a hole", "4 4-sided polyg.", "5 5-sided polyg."};
inline constexpr int kShapeWithHole = 2;

// The area of an element from the texts of its dimensions A to F, by the
// shape's list position. Polygons give the signed area of their outline, so
// a clockwise walk is negative; the rectangle with a hole gives the hole's.
float ElementArea(int shape, const std::array<std::string, 6>& dims);

// The dimensions a shape uses, A to F.
std::array<bool, 6> DimensionsOfShape(int shape);

// The leakage field of an element facing `front` and `back` (volume codes).
struct LeakageRow {
  int16_t mode;       // 1 flow at 50 Pa, 2 area
  const char* label;  // caption of the input's label
  const char* unit;
  bool shown;         // the input and its labels are visible
  const char* value;  // written when a facing changes
};
LeakageRow LeakageFor(const std::string& front, const std::string& back);

// A number rule's message: the word, " must be a value (", the bounds in the
// number-to-text form, ")".
std::string RangeMessage(const std::string& word, double lower, double upper);
// True when `text`, trimmed, is a plain number within the bounds; with
// `strict` the lower bound itself fails.
bool PassesNumberRule(const std::string& text, double lower, double upper, bool strict = false);
// A leakage flow: a number from 0 to 10 with at most two decimals.
bool IsLeakageFlow(const std::string& text);

inline constexpr const char* kLeakageFlowMessage =
    "Leakage flow must be a value ( 0 -  10) with max two decimals.";
inline constexpr const char* kCheckTitle = "Surface form check";

}  // namespace zelmo
