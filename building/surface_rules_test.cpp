#include "building/surface_rules.h"

#include <gtest/gtest.h>

#include "building/surface_screen.h"
#include "building/surface_test_case.h"

namespace zelmo {
namespace {

using testing::OuterWall;
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

// A Surface screen over one element that passes every rule.
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

TEST(CheckSurface, SeveralFaultsAtOnceAndTheFirstTakesTheFocus) {
  CheckCase c;
  Surface& s = c.screen;
  EXPECT_EQ(c.Check(), "passed");
  EXPECT_TRUE(c.fake.dialogs.messages.empty());

  s.Zenith.text = "180.01";
  s.Azimuth.text = "-360";
  s.X.text = "999999";
  s.A.text = "0";
  s.back.list_index = 0;
  s.M_AbsF.text = "abc";
  s.M_EmmB.text = "0";
  s.Leakage.text = "1.234";
  EXPECT_EQ(c.Check(),
            "Zenith must be a value (-180 -  180)\r"
            "Back must be a value ( 0 -  8)\r"
            "A must be a value ( 0 -  999999)\r"
            "Absorptance must be a value ( 0 -  100)\r"
            "Emittance must be a value ( 1 -  100)\r"
            "Leakage flow must be a value ( 0 -  10) with max two decimals.\r");
  EXPECT_EQ(s.focus, "Zenith");
  EXPECT_EQ(s.Zenith.sel_length, 6);

  // Fixed one by one, the focus moves to the next fault in rule order.
  s.Zenith.text = "-180";
  c.Check();
  EXPECT_EQ(s.focus, "back");
  s.back.list_index = 2;
  s.front.list_index = 0;
  EXPECT_EQ(c.Check().substr(0, 37), "Front must be a value (-1 -  8)\rA mus");
  EXPECT_EQ(s.focus, "front");
  s.front.list_index = 2;
  c.Check();
  EXPECT_EQ(s.focus, "A");
  s.A.text = "5";
  c.Check();
  EXPECT_EQ(s.focus, "M_AbsF");
  s.M_AbsF.text = "100";
  c.Check();
  EXPECT_EQ(s.focus, "M_EmmB");
  s.M_EmmB.text = "1";
  c.Check();
  EXPECT_EQ(s.focus, "Leakage");
  EXPECT_EQ(s.Leakage.sel_length, 5);
  s.Leakage.text = "10";
  EXPECT_EQ(c.Check(), "passed");
}

TEST(CheckSurface, EveryBoundAsTheMessageWritesIt) {
  // A rectangle with an opaque hole: every number rule but the facings runs.
  auto fields = OuterWall();
  fields[0] = "2";
  fields[21] = "2";
  CheckCase c(fields);
  Surface& s = c.screen;
  for (TextBox* input :
       {&s.Zenith, &s.Azimuth, &s.X, &s.Y, &s.Z, &s.A, &s.B, &s.C, &s.D, &s.E, &s.F, &s.M_AbsF,
        &s.M_AbsB, &s.M_EmmF, &s.M_EmmB, &s.H_AbsF, &s.H_AbsB, &s.H_EmmF, &s.H_EmmB}) {
    input->text = "x";
  }
  EXPECT_EQ(c.Check(),
            "Zenith must be a value (-180 -  180)\r"
            "Azimuth must be a value (-360 -  360)\r"
            "X must be a value (-999999 -  999999)\r"
            "Y must be a value (-999999 -  999999)\r"
            "Z must be a value (-999999 -  999999)\r"
            "A must be a value ( 0 -  999999)\r"
            "B must be a value ( 0 -  999999)\r"
            "C must be a value ( .01 -  999999)\r"
            "D must be a value ( .01 -  999999)\r"
            "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r"
            "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
            "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r"
            "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
            "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r");
  // The bounds themselves pass, but for the strict lower bound of a dimension.
  s.Zenith.text = "180";
  s.Azimuth.text = "360";
  s.X.text = "-999999";
  s.Y.text = "999999";
  s.Z.text = "+.5";
  s.A.text = "999999";
  s.B.text = "3";
  s.C.text = ".01";
  s.D.text = ".01";
  s.E.text = "2.99";
  s.F.text = "999998.99";
  for (TextBox* input : {&s.M_AbsF, &s.M_AbsB, &s.M_EmmF, &s.H_AbsF, &s.H_AbsB, &s.H_EmmF}) {
    input->text = "0";
  }
  s.M_EmmB.text = "100";
  s.H_EmmB.text = "1";
  EXPECT_EQ(c.Check(), "passed");
  s.Zenith.text = "-180.01";
  s.H_EmmB.text = ".99";
  EXPECT_EQ(c.Check(),
            "Zenith must be a value (-180 -  180)\rEmittance must be a value ( 1 -  100)\r");
  EXPECT_EQ(s.focus, "Zenith");
}

TEST(CheckSurface, FacingRulesAndTheShadingScreen) {
  CheckCase c;
  Surface& s = c.screen;
  s.front.list_index = 2;  // Outdoor
  s.back.list_index = 1;   // Outdoor
  EXPECT_EQ(c.Check(), "Front and back facing may not be the same\r");
  EXPECT_EQ(s.focus, "front");

  // A shading screen stands only with Outdoor on both sides.
  s.M_Wall.list_index = 1;
  s.M_AbsB.text = "20";
  EXPECT_EQ(c.Check(), "passed");
  s.M_AbsB.text = "40";
  EXPECT_EQ(c.Check(), "Absorptance + transmittance > 100\r");
  EXPECT_EQ(s.focus, "M_AbsB");
  s.M_AbsB.text = "20";
  s.front.list_index = 1;  // Ground against Outdoor
  EXPECT_EQ(c.Check(), "Shading screen not permitted between outdoor and indoor volumes \r");
  s.front.list_index = 3;  // Volume 1
  s.back.list_index = 3;   // Volume 2
  s.Leakage.text = "abc";
  // The message without its line end: the next one follows on its line.
  c.fake.ws().LeakageMode = 1;
  EXPECT_EQ(c.Check(),
            "Front and back facing may not face internal volumes when shading screen (except "
            "'Outdoor - Outdoor')Leakage flow must be a value ( 0 -  10) with max two decimals.\r");
  EXPECT_EQ(s.focus, "front");
  s.Leakage.text = "1";
  s.front.list_index = 2;
  s.back.list_index = 1;
  s.Shape.list_index = 2;
  s.C.text = "1";
  s.D.text = "1";
  s.E.text = "2";
  s.F.text = "2";
  EXPECT_EQ(c.Check(), "Shading screen can not be in combinaton with shape 3 \r");
  EXPECT_EQ(s.focus, "M_Wall");
}

TEST(CheckSurface, DimensionsAndTheHole) {
  CheckCase c;
  Surface& s = c.screen;
  s.Shape.list_index = 2;
  s.A.text = "5";
  s.B.text = "3";
  s.C.text = "3";
  s.D.text = "5";
  s.E.text = "3";
  s.F.text = "5";
  EXPECT_EQ(c.Check(),
            "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r");
  EXPECT_EQ(s.focus, "E");
  s.C.text = "0";
  s.D.text = "";
  s.E.text = "2.99";  // B - 0.01 in single precision
  s.F.text = "4.99";
  EXPECT_EQ(c.Check(), "C must be a value ( .01 -  999999)\rD must be a value ( .01 -  999999)\r");
  EXPECT_EQ(s.focus, "C");

  s.Shape.list_index = 1;  // triangle: B is an offset and may be empty or negative
  s.B.text = "-2";
  s.C.text = "0";
  EXPECT_EQ(c.Check(), "C must be a value ( 0 -  999999)\r");
  s.Shape.list_index = 3;
  s.B.text = "";
  s.C.text = "3";
  s.D.text = "-1";
  s.E.text = "abc";
  EXPECT_EQ(c.Check(), "E must be a value ( 0 -  999999)\r");
  EXPECT_EQ(s.focus, "E");
  s.Shape.list_index = 4;
  s.A.text = "4";
  s.B.text = "4";
  s.E.text = "4";
  s.F.text = "4";
  EXPECT_EQ(c.Check(), "F - E must be >  0\r");
  s.F.text = "4.5";
  s.C.text = "";
  EXPECT_EQ(c.Check(), "passed");
}

TEST(CheckSurface, WallAndWindowGroups) {
  CheckCase c;
  Surface& s = c.screen;
  s.M_Wall.list_index = 0;
  s.M_AbsF.text = "abc";  // not looked at without a wall
  EXPECT_EQ(c.Check(), "A wall (main) must be selected\r");
  EXPECT_EQ(s.focus, "M_Wall");

  // A hole of nothing chosen yet: both hole frames on.
  auto hole = OuterWall();
  hole[0] = "2";
  for (int k : {11, 12, 13, 14}) hole[k - 1] = std::vector<std::string>{"1", "1", "2", "2"}[k - 11];
  CheckCase h(hole);
  EXPECT_TRUE(h.screen.HoleWallFrame.enabled);
  EXPECT_TRUE(h.screen.HoleWinFrame.enabled);
  EXPECT_EQ(h.Check(), "A wall (hole) must be selected\rA  window (hole) must be selected\r");
  EXPECT_EQ(h.screen.focus, "H_Wall");

  // No main choice but a hole wall: the main window's rule runs in the hole's group.
  hole[14] = "";
  hole[21] = "2";
  CheckCase m(hole);
  m.screen.H_EmmB.text = "0";
  EXPECT_EQ(m.Check(),
            "A wall (main) must be selected\rEmittance must be a value ( 1 -  100)\r"
            "A  window (main) must be selected\r");
  EXPECT_EQ(m.screen.focus, "M_Wall");
  // Without a hole the same element meets no window rule.
  m.screen.HoleWallFrame.enabled = false;
  EXPECT_EQ(m.Check(), "A wall (main) must be selected\r");
}

TEST(CheckSurface, LeakageIsFilledAndBoundedByTheArea) {
  CheckCase c;
  Surface& s = c.screen;
  s.Leakage.text = " ";
  EXPECT_EQ(c.Check(), "passed");
  EXPECT_EQ(s.Leakage.text, "1");
  EXPECT_EQ(s.table().SurfData[1][29], "1");

  for (const char* good : {"1.23", "10", "0"}) {
    s.Leakage.text = good;
    EXPECT_EQ(c.Check(), "passed") << good;
  }
  s.Leakage.text = "10.01";
  EXPECT_EQ(c.Check(), "Leakage flow must be a value ( 0 -  10) with max two decimals.\r");

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
  s.Shape.list_index = 3;
  s.A.text = "4";
  s.B.text = "4";
  s.C.text = "3";
  s.D.text = "8";
  s.E.text = "1";
  s.Leakage.text = "0";
  EXPECT_EQ(c.Check(), "Leakage area must be a value ( 0 - -4)\r");
}

}  // namespace
}  // namespace zelmo
