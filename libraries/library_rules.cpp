#include "libraries/library_rules.h"

#include "core/controls.h"
#include "core/dialogs.h"
#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo {

bool NumberWithin(const std::string& text, double low, double high, bool single) {
  const std::string value = TrimBlanks(text);
  if (!IsSignedNumberText(value)) return false;
  double number = Val(value);
  if (single) {
    number = ToSingle(number);
    low = ToSingle(low);
    high = ToSingle(high);
  }
  return number >= low && number <= high;
}

bool NumberAbove(const std::string& text, double low) {
  const std::string value = TrimBlanks(text);
  return IsSignedNumberText(value) && Val(value) > low;
}

void KeepNameOnOneLine(Control& name) { name.text = OneLineText(name.text); }

std::string LimitsText(double low, double high) {
  return NumText(low) + " - " + NumText(high) + ")";
}

bool ShowFaults(Dialogs& dialogs, const Faults& faults, const std::string& title, int style,
                const std::vector<Control*>& inputs) {
  if (faults.empty()) return true;
  std::string text;
  for (const auto& fault : faults) text += fault.message + "\r";
  dialogs.MsgBox(text, style, title);
  const int first = faults.front().field;
  if (first >= 0 && first < static_cast<int>(inputs.size()) && inputs[first]) {
    inputs[first]->SetFocus();
    inputs[first]->SelectAll();
  }
  return false;
}

}  // namespace zelmo
