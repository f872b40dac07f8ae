#include "building/surface_rules.h"

#include <gtest/gtest.h>

#include "building/surface_screen.h"
#include "building/surface_test_case.h"

namespace zelmo {
namespace {

using testing::OuterWall;
using testing::Strings;
using testing::SurfaceCase;

TEST(ElementArea, EveryShapeAndTheClockwisePolygon) {
  EXPECT_FLOAT_EQ(ElementArea(0, {"5", "2.7", "", "", "", ""}), 13.5f);
  EXPECT_FLOAT_EQ(ElementArea(1, {"4", "2", "3", "", "", ""}), 6.0f);
  // The rectangle with a hole gives the hole alone.
  EXPECT_FLOAT_EQ(ElementArea(2, {"5", "3", ".5", "1", "2.5", "2"}), 2.0f);
  EXPECT_FLOAT_EQ(ElementArea(3, {"4", "4", "3", "0", "3", ""}), 12.0f);
  EXPECT_FLOAT_EQ(ElementArea(3, {"4", "4", "3", "8", "1", ""}), -4.0f);
  // The 5-sided polygon runs its base along B and its second point at (A, E).
  EXPECT_FLOAT_EQ(ElementArea(4, {"4", "4", "3", "0", "2", "4"}), 15.0f);
  EXPECT_FLOAT_EQ(ElementArea(-1, {"4", "4", "3", "0", "2", "4"}), 0.0f);
}

TEST(LeakageFor, EveryFacingPair) {
  struct Case {
    const char* front;
    const char* back;
    int mode;
    std::string label;
    bool shown;
    std::string value;
  };
  const std::string flow = "Leakage flow at dP = 50 Pa";
  for (const Case& c : {Case{"-1", "3", 1, flow, true, "0"}, Case{"0", "1", 1, flow, true, "1"},
                        Case{"1", "2", 2, "Leakage area", true, "0"},
                        Case{"0", "0", 1, flow, false, "1"}, Case{"4", "0", 1, flow, false, "1"},
                        Case{"-1", "0", 1, flow, true, "1"}, Case{"", "", 1, flow, true, "1"}}) {
    LeakageRow row = LeakageFor(c.front, c.back);
    SCOPED_TRACE(std::string(c.front) + "/" + c.back);
    EXPECT_EQ(row.mode, c.mode);
    EXPECT_EQ(row.label, c.label);
    EXPECT_EQ(std::string(row.unit), c.mode == 1 ? "l/sm2" : "m2");
    EXPECT_EQ(row.shown, c.shown);
    EXPECT_EQ(row.value, c.value);
  }
}

TEST(LeakageFlow, TwoDecimalsUpToTen) {
  for (const char* good : {"1.23", "10", "0", " 4.5 ", "+.5"}) EXPECT_TRUE(IsLeakageFlow(good));
  for (const char* bad : {"1.234", "10.01", "-1", "", "1,5", "abc"})
    EXPECT_FALSE(IsLeakageFlow(bad));
}

// A Surface screen over one element.
struct CheckCase : SurfaceCase {
  explicit CheckCase(std::vector<std::string> fields = OuterWall()) {
    Elements({{"South", std::move(fields)}});
    screen.Load();
    fake.dialogs.Clear();
  }
  std::string Check() {
    fake.dialogs.Clear();
    screen.focus.clear();
    if (screen.CheckSurface()) return "passed";
    EXPECT_EQ(fake.dialogs.Last().title, "Surface form check");
    EXPECT_EQ(fake.dialogs.Last().style, mb::kOkOnly + mb::kExclamation);
    return fake.dialogs.Last().text;
  }
  Surface screen{fake.session};
};

// The elements a check starts from: an outer wall that passes every rule; a
// rectangle with an opaque hole; the same hole with nothing chosen for it;
// and with no main wall.
enum Start { kWall, kHole, kOpenHole, kHoleOnly };
std::vector<std::string> StartFields(Start start) {
  auto fields = OuterWall();
  if (start == kWall) return fields;
  fields[0] = "2";
  fields[10] = fields[11] = "1";  // C and D
  fields[12] = fields[13] = "2";  // E and F
  if (start != kOpenHole) fields[21] = "2";
  if (start == kHoleOnly) fields[14] = "";
  return fields;
}

// Each rule's message and the input that takes the focus, which shows its
// text selected; several faults are told at once, the first takes the focus.
TEST(CheckSurface, EveryRuleItsMessageAndTheFocus) {
  const std::string leakage = "Leakage flow must be a value ( 0 -  10) with max two decimals.\r";
  const Strings bounds = {"Zenith=180",  "Azimuth=360", "X=-999999", "Y=999999", "Z=+.5",
                          "A=999999",    "B=3",         "C=.01",     "D=.01",    "E=2.99",
                          "F=999998.99", "M_AbsF=0",    "M_AbsB=0",  "M_EmmF=0", "M_EmmB=100",
                          "H_AbsF=0",    "H_AbsB=0",    "H_EmmF=0",  "H_EmmB=1"};
  Strings outside = bounds;
  outside.insert(outside.end(), {"Zenith=-180.01", "H_EmmB=.99"});
  Strings letters;
  for (const auto& bound : bounds) letters.push_back(bound.substr(0, bound.find('=')) + "=x");
  struct Row {
    Start start;
    Strings settings;
    std::string message, focus;
  };
  const Row rows[] = {
      {kWall, {}, "passed", ""},
      {kWall,
       {"Zenith=180.01", "Azimuth=-360", "X=999999", "A=0", "back#0", "M_AbsF=abc", "M_EmmB=0",
        "Leakage=1.234"},
       "Zenith must be a value (-180 -  180)\rBack must be a value ( 0 -  8)\r"
       "A must be a value ( 0 -  999999)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 1 -  100)\r" +
           leakage,
       "Zenith"},
      {kWall, {"Zenith=-180", "back#0"}, "Back must be a value ( 0 -  8)\r", "back"},
      {kWall, {"front#0"}, "Front must be a value (-1 -  8)\r", "front"},
      {kWall, {"A=0"}, "A must be a value ( 0 -  999999)\r", "A"},
      {kWall, {"M_AbsF=abc"}, "Absorptance must be a value ( 0 -  100)\r", "M_AbsF"},
      {kWall, {"M_AbsF=100", "M_EmmB=0"}, "Emittance must be a value ( 1 -  100)\r", "M_EmmB"},
      {kWall, {"M_EmmB=1", "Leakage=1.234"}, leakage, "Leakage"},
      {kWall, {"Leakage=10"}, "passed", ""},
      // Every number rule but the facings, as the message writes its bounds.
      {kHole, letters,
       "Zenith must be a value (-180 -  180)\rAzimuth must be a value (-360 -  360)\r"
       "X must be a value (-999999 -  999999)\rY must be a value (-999999 -  999999)\r"
       "Z must be a value (-999999 -  999999)\rA must be a value ( 0 -  999999)\r"
       "B must be a value ( 0 -  999999)\rC must be a value ( .01 -  999999)\r"
       "D must be a value ( .01 -  999999)\r"
       "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r"
       "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r"
       "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r",
       "Zenith"},
      // The bounds themselves pass, but for the strict lower bound of a dimension.
      {kHole, bounds, "passed", ""},
      {kHole, outside,
       "Zenith must be a value (-180 -  180)\rEmittance must be a value ( 1 -  100)\r", "Zenith"},
      // Facings; a shading screen stands only with Outdoor on both sides.
      {kWall, {"front#2", "back#1"}, "Front and back facing may not be the same\r", "front"},
      {kWall, {"front#2", "back#1", "M_Wall#1", "M_AbsB=20"}, "passed", ""},
      {kWall,
       {"front#2", "back#1", "M_Wall#1", "M_AbsB=40"},
       "Absorptance + transmittance > 100\r",
       "M_AbsB"},
      {kWall,
       {"front#1", "back#1", "M_Wall#1", "M_AbsB=20"},
       "Shading screen not permitted between outdoor and indoor volumes \r",
       "front"},
      // That message has no line end: the next one follows on its line.
      {kWall,
       {"front#3", "back#3", "M_Wall#1", "M_AbsB=20", "Leakage=abc"},
       "Front and back facing may not face internal volumes when shading screen (except "
       "'Outdoor - Outdoor')" +
           leakage,
       "front"},
      {kWall,
       {"front#2", "back#1", "M_Wall#1", "M_AbsB=20", "Shape#2", "C=1", "D=1", "E=2", "F=2"},
       "Shading screen can not be in combinaton with shape 3 \r",
       "M_Wall"},
      // Dimensions and the hole; 2.99 is B - 0.01 in single precision.
      {kWall,
       {"Shape#2", "A=5", "B=3", "C=3", "D=5", "E=3", "F=5"},
       "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r",
       "E"},
      {kWall,
       {"Shape#2", "A=5", "B=3", "C=0", "D=", "E=2.99", "F=4.99"},
       "C must be a value ( .01 -  999999)\rD must be a value ( .01 -  999999)\r",
       "C"},
      // A triangle's B is an offset and may be empty or negative.
      {kWall, {"Shape#1", "B=-2", "C=0"}, "C must be a value ( 0 -  999999)\r", "C"},
      {kWall,
       {"Shape#3", "B=", "C=3", "D=-1", "E=abc", "F=4.99"},
       "E must be a value ( 0 -  999999)\r",
       "E"},
      {kWall, {"Shape#4", "A=4", "B=4", "C=3", "D=-1", "E=4", "F=4"}, "F - E must be >  0\r", "E"},
      {kWall, {"Shape#4", "A=4", "B=4", "C=", "D=-1", "E=4", "F=4.5"}, "passed", ""},
      // The wall and window groups; no percent is looked at without a wall.
      {kWall, {"M_Wall#0", "M_AbsF=abc"}, "A wall (main) must be selected\r", "M_Wall"},
      {kOpenHole,
       {},
       "A wall (hole) must be selected\rA  window (hole) must be selected\r",
       "H_Wall"},
      // No main choice but a hole wall: the main window's rule runs in the hole's group.
      {kHoleOnly,
       {"H_EmmB=0"},
       "A wall (main) must be selected\rEmittance must be a value ( 1 -  100)\r"
       "A  window (main) must be selected\r",
       "M_Wall"},
      // The leakage flow has two decimals at most and is at most 10.
      {kWall, {"Leakage=1.23"}, "passed", ""},
      {kWall, {"Leakage=0"}, "passed", ""},
      {kWall, {"Leakage=10.01"}, leakage, "Leakage"},
  };
  for (const Row& row : rows) {
    CheckCase c(StartFields(row.start));
    testing::Fill(c.screen, row.settings);
    SCOPED_TRACE(row.message);
    EXPECT_EQ(c.Check(), row.message);
    EXPECT_EQ(c.screen.focus, row.focus);
    const Control* focused = c.screen.Find(row.focus);
    if (focused && focused->kind() == ControlKind::kTextBox) {
      EXPECT_EQ(focused->sel_length, static_cast<int>(focused->text.size()));
    }
  }
}

TEST(CheckSurface, HoleFramesFollowTheChoices) {
  CheckCase open(StartFields(kOpenHole));
  EXPECT_TRUE(open.screen.HoleWallFrame.enabled && open.screen.HoleWinFrame.enabled);
  // Without a hole the element of no main choice meets no window rule.
  CheckCase m(StartFields(kHoleOnly));
  m.screen.HoleWallFrame.enabled = false;
  EXPECT_EQ(m.Check(), "A wall (main) must be selected\r");
}

TEST(CheckSurface, LeakageIsFilledAndBoundedByTheArea) {
  CheckCase c;
  Surface& s = c.screen;
  s.Leakage.text = " ";
  EXPECT_EQ(c.Check(), "passed");
  EXPECT_EQ(s.Leakage.text + s.table().SurfData[1][29], "11");

  // Between two volumes the leakage is an area, at most the element's.
  s.front.list_index = 3;
  s.back.list_index = 4;
  s.FrontClick();
  EXPECT_EQ(c.fake.ws().LeakageMode, 2);
  s.Leakage.text = "";
  EXPECT_EQ(c.Check(), "passed");
  EXPECT_EQ(s.Leakage.text, "0");
  s.Leakage.text = "14";
  EXPECT_EQ(c.Check(), "Leakage area must be a value ( 0 -  13.5)\r");
  s.Leakage.text = "13.5";
  EXPECT_EQ(c.Check(), "passed");
  // A polygon walked clockwise lets no leakage area pass, not even 0.
  testing::Fill(s, {"Shape#3", "A=4", "B=4", "C=3", "D=8", "E=1", "Leakage=0"});
  EXPECT_EQ(c.Check(), "Leakage area must be a value ( 0 - -4)\r");
}

}  // namespace
}  // namespace zelmo
