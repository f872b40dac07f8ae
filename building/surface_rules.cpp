#include "building/surface_rules.h"

#include <vector>

#include "building/surface_screen.h"
#include "core/fields.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

enum class Side { kNone, kGround, kOutdoor, kVolume };

Side SideOf(const std::string& code) {
  std::string text = TrimBlanks(code);
  if (text.empty() || !IsSignedNumberText(text)) return Side::kNone;
  double value = Val(text);
  if (value == -1) return Side::kGround;
  if (value == 0) return Side::kOutdoor;
  if (value >= 1 && value <= 8) return Side::kVolume;
  return Side::kNone;
}

struct Point {
  double x;
  double y;
};

}  // namespace

float ElementArea(int shape, const std::array<std::string, 6>& dims) {
  double a = Val(dims[0]), b = Val(dims[1]), c = Val(dims[2]);
  double d = Val(dims[3]), e = Val(dims[4]), f = Val(dims[5]);
  std::vector<Point> points;
  switch (shape) {
    case 0:
      return static_cast<float>(a * b);
    case kShapeWithHole:
      return static_cast<float>((f - d) * (e - c));
    case 1:
      points = {{0, 0}, {a, 0}, {b, c}};
      break;
    case 3:
      points = {{0, 0}, {a, 0}, {b, c}, {d, e}};
      break;
    case 4:
      points = {{0, 0}, {b, 0}, {a, e}, {c, f}, {d, f}};
      break;
    default:
      return 0;
  }
  double sum = 0;
  for (size_t i = 0; i < points.size(); ++i) {
    const Point& p = points[i];
    const Point& next = points[(i + 1) % points.size()];
    sum += p.x * next.y - next.x * p.y;
  }
  return static_cast<float>(sum / 2);
}

std::array<bool, 6> DimensionsOfShape(int shape) {
  switch (shape) {
    case 0:
      return {true, true, false, false, false, false};
    case 1:
      return {true, true, true, false, false, false};
    case 2:
      return {true, true, true, true, true, true};
    case 3:
      return {true, true, true, true, true, false};
    case 4:
      return {true, true, true, true, true, true};
    default:
      return {};
  }
}

LeakageRow LeakageFor(const std::string& front, const std::string& back) {
  static constexpr const char* kFlow = "Leakage flow at dP = 50 Pa";
  static constexpr const char* kFlowUnit = "l/sm2";
  Side f = SideOf(front);
  Side b = SideOf(back);
  if (f == Side::kGround && b == Side::kVolume) return {1, kFlow, kFlowUnit, true, "0"};
  if (f == Side::kOutdoor && b == Side::kVolume) return {1, kFlow, kFlowUnit, true, "1"};
  if (f == Side::kVolume && b == Side::kVolume) return {2, "Leakage area", "m2", true, "0"};
  // The front of an outer element faces out: its flow is not asked for.
  if (f == Side::kOutdoor && b == Side::kOutdoor) return {1, kFlow, kFlowUnit, false, "1"};
  if (f == Side::kVolume && b == Side::kOutdoor) return {1, kFlow, kFlowUnit, false, "1"};
  return {1, kFlow, kFlowUnit, true, "1"};
}

std::string RangeMessage(const std::string& word, double lower, double upper) {
  return word + " must be a value (" + NumText(lower) + " - " + NumText(upper) + ")";
}

bool PassesNumberRule(const std::string& text, double lower, double upper, bool strict) {
  std::string trimmed = TrimBlanks(text);
  if (!IsSignedNumberText(trimmed)) return false;
  double value = ToSingle(Val(trimmed));
  if (strict ? value <= ToSingle(lower) : value < ToSingle(lower)) return false;
  return value <= ToSingle(upper);
}

bool IsLeakageFlow(const std::string& text) {
  std::string trimmed = TrimBlanks(text);
  if (!PassesNumberRule(trimmed, 0, 10)) return false;
  size_t point = trimmed.find('.');
  return point == std::string::npos || trimmed.size() - point - 1 < 3;
}

bool Surface::CheckSurface() {
  std::string message;
  int focus_no = 0;
  auto fault = [&](const std::string& text, int number) {
    message += text + "\r";
    if (focus_no == 0) focus_no = number;
  };
  auto number_rule = [&](const Control& input, double lower, double upper, const char* word,
                         int number, bool strict = false) {
    if (PassesNumberRule(input.text, lower, upper, strict)) return true;
    fault(RangeMessage(word, lower, upper), number);
    return false;
  };
  auto passes_code = [&](const std::string& code, double lower, double upper, const char* word,
                         int number) {
    if (PassesNumberRule(code, lower, upper)) return true;
    fault(RangeMessage(word, lower, upper), number);
    return false;
  };
  const int shape = Shape.list_index;
  const bool shading = IsShadingScreen();

  if (Frame3D1.enabled) {
    number_rule(Zenith, -180, 180, "Zenith", 1);
    number_rule(Azimuth, -360, 360, "Azimuth", 2);
    number_rule(X, -999999, 999999, "X", 3);
    number_rule(Y, -999999, 999999, "Y", 4);
    number_rule(Z, -999999, 999999, "Z", 5);
    const std::string front_code = FrontCode();
    const std::string back_code = BackCode();
    bool front_ok = passes_code(front_code, -1, 8, "Front", 6);
    bool back_ok = passes_code(back_code, 0, 8, "Back", 7);

    if (shading && shape == kShapeWithHole) {
      fault("Shading screen can not be in combinaton with shape 3 ", 22);
    } else if (front_ok && back_ok) {
      double f = Val(front_code), b = Val(back_code);
      if (!shading) {
        if (f == b) fault("Front and back facing may not be the same", 6);
      } else if (f != 0 && b != 0) {
        // This message alone has no line end: the next one follows on its line.
        message +=
            "Front and back facing may not face internal volumes when shading screen (except "
            "'Outdoor - Outdoor')";
        if (focus_no == 0) focus_no = 6;
      } else if ((f == 0) != (b == 0)) {
        fault("Shading screen not permitted between outdoor and indoor volumes ", 6);
      }
    }

    constexpr double kMax = 999999;
    switch (shape) {
      case 0:
        number_rule(A, 0, kMax, "A", 8, true);
        number_rule(B, 0, kMax, "B", 9, true);
        break;
      case 1:
        number_rule(A, 0, kMax, "A", 8, true);
        number_rule(C, 0, kMax, "C", 10, true);
        break;
      case kShapeWithHole: {
        number_rule(A, 0, kMax, "A", 8, true);
        number_rule(B, 0, kMax, "B", 9, true);
        number_rule(C, 0.01, kMax, "C", 10);
        number_rule(D, 0.01, kMax, "D", 11);
        // The hole keeps at least 0.01 m of wall on all four sides.
        float a = static_cast<float>(Val(A.text)), b = static_cast<float>(Val(B.text));
        float c = static_cast<float>(Val(C.text)), d = static_cast<float>(Val(D.text));
        float e = static_cast<float>(Val(E.text)), f = static_cast<float>(Val(F.text));
        if (!(b - 0.01f >= e)) fault("B - E must be >= " + NumText(0.01), 12);
        if (!(c < e)) fault("C must be < E ", 10);
        if (!(a - 0.01f >= f)) fault("A - F must be >= " + NumText(0.01), 13);
        if (!(d < f)) fault("D must be < F ", 11);
        break;
      }
      case 3:
        number_rule(A, 0, kMax, "A", 8, true);
        number_rule(C, 0, kMax, "C", 10, true);
        number_rule(E, 0, kMax, "E", 12, true);
        break;
      case 4:
        number_rule(A, 0, kMax, "A", 8, true);
        number_rule(B, 0, kMax, "B", 9, true);
        number_rule(E, 0, kMax, "E", 12, true);
        if (!(Val(E.text) < Val(F.text))) fault("F - E must be > " + NumText(0), 12);
        break;
      default:
        break;
    }
  }

  if (MainWallFrame.enabled) {
    if (M_Wall.list_index <= 0) {
      fault("A wall (main) must be selected", 22);
    } else {
      number_rule(M_AbsF, 0, 100, "Absorptance", 14);
      number_rule(M_AbsB, 0, 100, "Absorptance", 15);
      if (shading && Val(M_AbsF.text) + Val(M_AbsB.text) > 100) {
        fault("Absorptance + transmittance > 100", 15);
      }
      number_rule(M_EmmF, 0, 100, "Emittance", 16);
      number_rule(M_EmmB, 1, 100, "Emittance", 17);
    }
  }

  if (HoleWallFrame.enabled) {
    if (H_Wall.list_index <= 0) {
      fault("A wall (hole) must be selected", 23);
    } else {
      number_rule(H_AbsF, 0, 100, "Absorptance", 18);
      number_rule(H_AbsB, 0, 100, "Absorptance", 19);
      number_rule(H_EmmF, 0, 100, "Emittance", 20);
      number_rule(H_EmmB, 1, 100, "Emittance", 21);
    }
    // The window rules stand inside the hole's group, and both look at the
    // main window's list; elements without a hole never meet them.
    if (MainWinFrame.enabled && M_Wind.list_index <= 0) {
      fault("A  window (main) must be selected", 24);
    }
    if (HoleWinFrame.enabled && M_Wind.list_index <= 0) {
      fault("A  window (hole) must be selected", 25);
    }
  }

  const int16_t mode = session_.ws.LeakageMode;
  if (TrimBlanks(Leakage.text).empty()) {
    Leakage.text = mode == 1 ? "1" : "0";
    StoreField(Leakage, 29);
  }
  if (mode == 1) {
    if (!IsLeakageFlow(Leakage.text)) fault(kLeakageFlowMessage, 27);
  } else {
    float area = ElementArea(shape, {A.text, B.text, C.text, D.text, E.text, F.text});
    if (!PassesNumberRule(Leakage.text, 0, area)) {
      fault("Leakage area must be a value ( 0 - " + NumText(area) + ")", 27);
    }
  }

  if (message.empty()) return true;
  session_.dialogs->MsgBox(message, mb::kOkOnly + mb::kExclamation, kCheckTitle);
  const std::array<Control*, 28> focus_of = {
      nullptr, &Zenith, &Azimuth, &X,      &Y,      &Z,      &front,  &back,   &A,      &B,
      &C,      &D,      &E,       &F,      &M_AbsF, &M_AbsB, &M_EmmF, &M_EmmB, &H_AbsF, &H_AbsB,
      &H_EmmF, &H_EmmB, &M_Wall,  &H_Wall, &M_Wind, &H_Wind, &M_Wind, &Leakage};
  Control& input = *focus_of[focus_no];
  input.SetFocus();
  if (input.kind() == ControlKind::kTextBox) input.SelectAll();
  return false;
}

}  // namespace zelmo
