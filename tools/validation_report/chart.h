// The chart of the validation report: one panel per case and quantity, the
// six reference programs' values as grey marks over the shaded range
// [min, max], this program's value as a larger mark, green inside the
// range, red outside, or the reason it has none.
#pragma once

#include <QImage>
#include <vector>

#include "simulation/validation.h"

namespace zelmo::validation {

inline constexpr int kPanelWidth = 330;
inline constexpr int kPanelHeight = 200;
inline constexpr int kPanelColumns = 5;

// The colours of this program's bar.
inline constexpr QRgb kInsideColour = 0xff2e8b3a;
inline constexpr QRgb kOutsideColour = 0xffd02020;

QImage ValidationChart(const ReferenceTable& table, const std::vector<Comparison>& comparisons);

}  // namespace zelmo::validation
