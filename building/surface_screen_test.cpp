#include "building/surface_screen.h"

#include <gtest/gtest.h>

#include "building/surface_rules.h"
#include "building/surface_test_case.h"
#include "building/volume_surfaces_screen.h"
#include "core/inpbox.h"

namespace zelmo {
namespace {

using testing::Act;
using testing::OuterWall;
using testing::ShownMessage;
using testing::Strings;
using testing::SurfaceCase;
using testing::Words;

// The names among `names` whose control has `state` (enabled or visible).
std::string Which(const Form& form, bool Control::*state, const std::string& names) {
  std::string which;
  for (const auto& name : Words(names)) {
    if (form.Find(name)->*state) which += (which.empty() ? "" : " ") + name;
  }
  return which;
}
constexpr bool Control::*kOn = &Control::enabled;

std::vector<std::string> WithField(std::vector<std::string> fields, int field,
                                   const std::string& text) {
  fields[field - 1] = text;
  return fields;
}

struct ScreenCase : SurfaceCase {
  // Answers the next input boxes with these names, in order.
  void Names(std::vector<std::string> names) {
    answers = std::move(names);
    fake.dialogs.screens["InpBox"] = [this](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      asked.push_back(box.caption + "|" + box.Label1.caption + "|" +
                      std::to_string(box.Text1.max_length));
      box.Text1.text = answers.empty() ? "" : answers.front();
      if (!answers.empty()) answers.erase(answers.begin());
      box.Ok();
    };
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int slot = 1; slot <= screen.table().SurfCount; ++slot) {
      names.push_back(screen.table().SurfName[slot]);
    }
    return names;
  }
  // The current element, its row in the list and the title.
  std::string Shown() const {
    return std::to_string(screen.CurrentElement) + "/" +
           std::to_string(screen.SurfList.list_index) + " " + screen.caption;
  }
  // Deletes the current element, answering the question.
  void Delete(Answer answer = Answer::kYes) {
    fake.dialogs.answers = {answer};
    screen.Delete();
  }
  std::vector<std::string> answers;
  std::vector<std::string> asked;
  Surface screen{fake.session};
};

TEST(SurfaceScreen, LoadFillsTheListsAndShowsTheFirstElementWithItsDefaults) {
  ScreenCase c;
  auto sparse = OuterWall();
  for (int field : {2, 3, 16, 17, 18, 19}) sparse[field - 1] = "";
  c.Elements({{"South", sparse}, {"Roof", WithField(OuterWall(), 2, "0")}});
  const std::string bytes = c.SurfaceBytes();
  Surface& s = c.screen;
  s.Load();
  EXPECT_EQ(s.SurfList.items, (Strings{"1  | South", "2  | Roof"}));
  EXPECT_EQ(c.Shown(), "1/0 Building element (South)");
  EXPECT_EQ(s.M_Wall.items, (Strings{"", "0  | Shading screen", "1  | Outer wall", "2  | Floor",
                                     "100| Last wall"}));
  EXPECT_EQ(s.M_Wind.items, (Strings{"", "1  | Double", "3  | Triple"}));
  EXPECT_EQ(s.H_MovIns.items, (Strings{"", "1  | Blind"}));
  EXPECT_EQ(
      s.front.items[1] + "|" + s.back.items[1] + "|" + s.back.items[9] + "|" + s.Shape.items[2],
      "Ground|Outdoor|Volume 8|3 Rectangle with a hole");
  EXPECT_EQ(
      (std::vector<int>{s.M_Wall.list_index, s.front.list_index, s.back.list_index, s.Excl.value}),
      (std::vector<int>{2, 2, 2, 1}));
  EXPECT_EQ(Which(s, kOn, "MainWallFrame A B MainWinFrame HoleWallFrame C LabelC"),
            "MainWallFrame A B");
  EXPECT_TRUE(s.Leakage.visible && s.Command4.visible);
  EXPECT_EQ(s.LabelExcl.caption,
            "Assign value for leakage flow to all building elements excluding floors");
  // Defaults shown for empty fields are not stored.
  EXPECT_EQ(s.Zenith.text + s.Azimuth.text + "|" + s.M_AbsF.text + s.M_AbsB.text + s.M_EmmF.text +
                s.M_EmmB.text,
            "00|70709090");
  s.Ok();
  EXPECT_EQ(c.SurfaceBytes(), bytes);

  // An empty building: only Add.
  ScreenCase empty;
  Surface& e = empty.screen;
  e.Load();
  EXPECT_TRUE(e.Shape.items.empty());
  EXPECT_EQ(Which(e, kOn,
                  "Command3D1 Command3D2 Command3D3 Command3D4 Command3D5 Zenith "
                  "LabelZenith Frame3D1"),
            "Command3D1");

  // A file cut inside a block does not open the screen.
  ScreenCase cut;
  cut.Elements({{"South", {"0", "90"}}});
  EXPECT_THROW(cut.screen.Load(), FileError);
}

TEST(SurfaceScreen, AddCopyInsertDeleteMoveTheRightSlots) {
  ScreenCase c;
  c.Elements({{"A1", OuterWall()}, {"B2", WithField(OuterWall(), 9, "7")}});
  Surface& s = c.screen;
  s.Load();
  c.Names({"  New  "});
  s.Add();
  EXPECT_EQ(c.Names(), (Strings{"A1", "B2", "New"}));
  EXPECT_EQ(c.Shown(), "3/2 Building element (New)");
  EXPECT_FALSE(s.M_AbsF.enabled || s.M_MovIns.enabled);  // nothing chosen yet
  // The new element has no wall: it cannot be left, not even for a new one.
  s.Add();
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Front must be a value (-1 -  8)\rBack must be a value ( 0 -  8)\r"
            "A must be a value ( 0 -  999999)\rB must be a value ( 0 -  999999)\r"
            "A wall (main) must be selected\r");
  Act(s, {"SurfList#0"});
  EXPECT_EQ(c.Shown(), "3/2 Building element (New)");

  // Delete the new one, then copy and insert around the second.
  c.Delete();
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"Do you want to delete the surface 3  | New  ?",
                          mb::kYesNo + mb::kQuestion, "Delete building element"}));
  EXPECT_EQ(c.Names(), (Strings{"A1", "B2"}));
  Act(s, {"SurfList#1"});
  c.Names({"B2", "Copy", "A1", "Ins"});
  s.Copy();
  EXPECT_EQ(c.fake.dialogs.Last(), (ShownMessage{"A surface with the same name already exists",
                                                 mb::kExclamation, "MESSAGE"}));
  s.Copy();
  EXPECT_EQ(c.Names(), (Strings{"A1", "B2", "Copy"}));
  EXPECT_EQ(s.table().SurfData[3], s.table().SurfData[2]);
  Act(s, {"SurfList#1"});
  s.Insert();  // "A1" clashes
  s.Insert();
  EXPECT_EQ(c.asked, (Strings{"Add building element |Type name |10",
                              "Copy building element |Type name of target |10",
                              "Copy building element |Type name of target |10",
                              "Insert building element |Type name |10",
                              "Insert building element |Type name |10"}));
  EXPECT_EQ(c.Names(), (Strings{"A1", "Ins", "B2", "Copy"}));
  EXPECT_EQ(s.table().SurfData[3][9] + "|" + s.table().SurfData[2][9], "7|");
  EXPECT_EQ(c.Shown(), "2/1 Building element (Ins)");

  // No on the question deletes nothing; the last Delete empties the screen.
  c.Delete(Answer::kNo);
  EXPECT_EQ(c.Names().size(), 4u);
  while (!s.SurfList.items.empty()) c.Delete();
  EXPECT_EQ(Which(s, kOn, "Command3D1 Command3D2 Command3D5 Zenith"), "Command3D1");
  // Adding into the empty screen enables the inputs again.
  c.Names({"First"});
  s.Add();
  EXPECT_EQ(Which(s, kOn, "Zenith Command3D2"), "Zenith Command3D2");
  EXPECT_EQ(s.Shape.items.size() * 10 + s.Shape.list_index, 50u);
}

TEST(SurfaceScreen, TheHundredthElementStopsAddCopyAndInsert) {
  ScreenCase c;
  SurfaceCase::Blocks elements;
  for (int i = 1; i <= 99; ++i) elements.push_back({"E" + std::to_string(i), OuterWall()});
  c.Elements(elements);
  Surface& s = c.screen;
  s.Load();
  const std::string buttons = "Command3D1 Command3D2 Command3D3 Command3D4 Command3D5";
  EXPECT_EQ(Which(s, kOn, buttons), buttons);
  c.Names({"E100"});
  s.Copy();
  EXPECT_EQ(s.SurfList.items.back(), "100| E100");
  EXPECT_EQ(Which(s, kOn, buttons), "Command3D2 Command3D5");
  c.Delete();
  EXPECT_EQ(Which(s, kOn, buttons), buttons);
}

TEST(SurfaceScreen, RenameRefusesAClashAndTheSameName) {
  ScreenCase c;
  c.Elements({{"Wall", OuterWall()}, {"Roof", OuterWall()}});
  Surface& s = c.screen;
  s.Load();
  c.Names({"Wall", "Roof", "", "wall"});
  s.Rename();
  s.Rename();
  s.Rename();  // an empty answer does nothing
  EXPECT_EQ(c.fake.dialogs.Texts(), (Strings(2, "A surface with the same name already exists")));
  EXPECT_FALSE(s.Dirty);
  s.Rename();  // names differ by case
  EXPECT_EQ(c.asked[0], "Rename building element|Type name |10");
  EXPECT_EQ(s.SurfList.items, (Strings{"1  | wall", "2  | Roof"}));
  EXPECT_EQ(c.Shown(), "1/0 Building element (wall)");
  EXPECT_TRUE(s.Dirty);
}

TEST(SurfaceScreen, ChoicesSwitchFramesLabelsAndLeakage) {
  ScreenCase c;
  c.Elements({{"South", OuterWall()}});
  Surface& s = c.screen;
  s.Load();
  auto& fields = s.table().SurfData[1];
  auto labels = [&s] { return s.LabelMAbsF.caption + "|" + s.LabelMAbsB.caption; };
  auto percents = [&fields](int first) {
    return fields[first] + fields[first + 1] + fields[first + 2] + fields[first + 3];
  };

  // The shading screen: its labels, its standard percents, no leakage.
  Act(s, {"M_Wall#1"});
  EXPECT_EQ(labels() + "|" + s.Leakage.text, "Absorptance:| % Trans:|0");
  EXPECT_EQ(fields[15] + "|" + percents(16) + "|" + fields[29], "0|70208787|0");
  Act(s, {"M_Wall#4"});
  EXPECT_EQ(fields[15] + "|" + labels(), "100|Absorptance front:| %  back:");

  // No wall: both frames on, the percents and the curtain off.
  const std::string main = "MainWallFrame M_Wall MainWinFrame M_AbsF LabelMAbsF M_MovIns";
  Act(s, {"M_Wall#0"});
  EXPECT_EQ(Which(s, kOn, main), "MainWallFrame M_Wall MainWinFrame");
  // A window: the wall frame goes off with its percents stored.
  Act(s, {"M_Wind#2", "M_MovIns#1"});
  EXPECT_EQ(Which(s, kOn, main), "MainWinFrame M_MovIns");
  EXPECT_EQ(fields[15] + "|" + percents(16) + "|" + fields[20] + "|" + fields[21], "|70708787|3|1");
  // Taking the window away takes its curtain too.
  Act(s, {"M_Wind#0"});
  EXPECT_EQ(fields[20] + fields[21] + std::to_string(s.M_MovIns.list_index), "0");

  // The hole's frames come with shape 3 only.
  Act(s, {"Shape#2"});
  const std::string hole = "HoleWallFrame HoleWinFrame D F";
  EXPECT_EQ(fields[1] + Which(s, kOn, hole), "2HoleWallFrame HoleWinFrame D F");
  Act(s, {"H_Wind#1"});
  EXPECT_EQ(fields[27] + Which(s, kOn, hole), "1HoleWinFrame D F");
  Act(s, {"Shape#1"});
  EXPECT_EQ(Which(s, kOn, hole), "");
  EXPECT_EQ(fields[27] + "|" + percents(23), "|70708787");

  // Facings: Ground in front turns the front percents off; two volumes make
  // the leakage an area and hide Assign.
  Act(s, {"M_Wall#2", "front#1"});
  const std::string percents_on = "M_AbsF M_EmmF M_AbsB";
  EXPECT_EQ(fields[7] + "|" + fields[29] + "|" + Which(s, kOn, percents_on), "-1|0|M_AbsB");
  Act(s, {"front#4", "back#2"});  // Volume 2 and Volume 1
  EXPECT_EQ(fields[7] + fields[8] + "|" + Which(s, kOn, percents_on), "21|M_AbsF M_EmmF M_AbsB");
  EXPECT_EQ(s.LabelLeakage.caption + "|" + s.UnitLeakage.caption, "Leakage area|m2");
  const std::string leakage = "Leakage LabelLeakage Command4 Excl LabelExcl";
  EXPECT_EQ(Which(s, &Control::visible, leakage), "Leakage LabelLeakage");
  Act(s, {"back#1"});  // Outdoor behind a volume: the flow is not asked for
  EXPECT_EQ(Which(s, &Control::visible, leakage), "Command4 Excl LabelExcl");
  EXPECT_EQ(s.Leakage.text, "1");
  EXPECT_TRUE(s.Dirty);
}

TEST(SurfaceScreen, ShownDefaultsAreNotTheBlanksNorStored) {
  ScreenCase c;
  auto hole = WithField(WithField(OuterWall(), 1, "2"), 22, "2");
  hole[10] = hole[11] = "1";  // C and D
  hole[12] = hole[13] = "2";  // E and F
  for (int field : {23, 24, 25, 26}) hole[field - 1] = "";
  auto shading = WithField(WithField(WithField(OuterWall(), 15, "0"), 17, ""), 7, "0");
  c.Elements({{"Hole", hole}, {"Screen", WithField(shading, 8, "0")}});
  const std::string bytes = c.SurfaceBytes();
  Surface& s = c.screen;
  s.Load();
  EXPECT_TRUE(s.HoleWallFrame.enabled && s.H_AbsF.enabled);
  EXPECT_EQ(s.H_AbsF.text + s.H_AbsB.text + s.H_EmmF.text + s.H_EmmB.text, "20209090");
  Act(s, {"SurfList#1"});
  EXPECT_EQ(s.M_AbsB.text + "|" + s.LabelMAbsB.caption, "20| % Trans:");
  EXPECT_FALSE(s.Dirty);
  s.Ok();
  EXPECT_EQ(c.SurfaceBytes(), bytes);

  // The last Delete blanks the inputs to the values a cleared screen takes.
  c.Delete();
  c.Delete();
  EXPECT_EQ(s.Zenith.text + s.Azimuth.text + s.A.text + s.F.text, "");
  EXPECT_EQ(s.X.text + s.Y.text + s.Z.text + s.Leakage.text, "0000");
  EXPECT_EQ(s.M_AbsF.text + s.M_AbsB.text + s.H_AbsF.text + s.H_AbsB.text, "70707070");
  EXPECT_EQ(s.M_EmmF.text + s.M_EmmB.text + s.H_EmmF.text + s.H_EmmB.text, "87878787");
  EXPECT_EQ(s.caption + "|" + Which(s, kOn, "M_Wall LabelMWall Leakage"), "Building element|");
}

TEST(SurfaceScreen, TextInputsStoreAndAClickWithAFaultStays) {
  ScreenCase c;
  c.Elements({{"South", OuterWall()}, {"North", WithField(OuterWall(), 3, "0")}});
  Surface& s = c.screen;
  s.Load();
  Act(s, {"Zenith= 45 ", "A=-1", "SurfList#1"});
  EXPECT_EQ(c.fake.dialogs.Last().text, "A must be a value ( 0 -  999999)\r");
  EXPECT_EQ(c.Shown() + "|" + s.focus, "1/0 Building element (South)|A");
  s.A.text = "4";
  int enter = 13;
  s.A.on_key_press(enter);
  Act(s, {"SurfList#1"});
  EXPECT_EQ(c.Shown() + "|" + s.Azimuth.text, "2/1 Building element (North)|0");
  EXPECT_TRUE(s.Dirty);  // kept across the move
  s.Ok();
  EXPECT_EQ(c.SurfaceBytes(),
            SurfaceCase::Bytes({{"South", WithField(WithField(OuterWall(), 2, "45"), 9, "4")},
                                {"North", WithField(OuterWall(), 3, "0")}}));
}

TEST(SurfaceScreen, AssignSkipsInternalElementsAndGroundFloors) {
  ScreenCase c;
  auto floor = WithField(WithField(OuterWall(), 7, "-1"), 2, "180");
  c.Elements({{"Wall", OuterWall()},
              {"Inner", WithField(WithField(OuterWall(), 7, "2"), 29, "0")},
              {"Floor", WithField(floor, 29, "0")},
              {"Roof", WithField(WithField(OuterWall(), 2, "0"), 29, "0")}});
  Surface& s = c.screen;
  s.Load();
  Act(s, {"SurfList#3", "Leakage=2.555", "Command4"});
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"Leakage flow must be a value ( 0 -  10) with max two decimals.\r",
                          mb::kOkOnly + mb::kExclamation, "Surface form check"}));
  EXPECT_EQ(s.focus, "Leakage");
  auto leaks = [&] {
    std::string all;
    for (int slot = 1; slot <= 4; ++slot) all += s.table().SurfData[slot][29] + "|";
    return all;
  };
  // The roof faces Outdoor: a roof is no floor on the ground.
  Act(s, {"Leakage=2.5", "Command4"});
  EXPECT_EQ(leaks(), "2.5|0|0|2.5|");
  EXPECT_EQ(s.SurfList.list_index, 3);
  Act(s, {"Excl#0", "Leakage=3", "Command4"});
  EXPECT_EQ(s.LabelExcl.caption,
            "Assign value for leakage flow to all building elements including floors");
  EXPECT_EQ(leaks(), "3|0|3|3|");
}

TEST(SurfaceScreen, OkCancelAndTheSaveQuestion) {
  ScreenCase c;
  c.Elements({{"South", OuterWall()}});
  const std::string before = c.SurfaceBytes();
  Surface& s = c.screen;
  s.Load();
  s.Command2.on_click();  // nothing changed: closes at once
  EXPECT_TRUE(s.unloaded && c.fake.dialogs.messages.empty());
  s.unloaded = false;
  c.fake.dialogs.answers = {Answer::kCancel, Answer::kYes};
  Act(s, {"X=2", "Command2"});
  EXPECT_EQ(c.fake.dialogs.Last(), (ShownMessage{"Do you want to save changes ?\r\rSurfaces",
                                                 mb::kYesNoCancel + mb::kExclamation, "Save"}));
  Act(s, {"B=0", "Command2"});  // Yes with a fault stays
  EXPECT_EQ(c.fake.dialogs.Last().title, "Surface form check");
  EXPECT_FALSE(s.unloaded);
  EXPECT_EQ(c.SurfaceBytes(), before);
  Act(s, {"B=3", "Command1"});
  EXPECT_TRUE(s.unloaded);
  const std::string expected =
      SurfaceCase::Bytes({{"South", WithField(WithField(OuterWall(), 4, "2"), 10, "3")}});
  EXPECT_EQ(c.SurfaceBytes(), expected);
  EXPECT_EQ(testing::ReadBytes(c.fake.ws().CasePath + "/THERMAL.INP"), "XXXXXX\r\n");

  Surface no(c.fake.session);
  no.Load();
  Act(no, {"Y=9"});
  c.fake.dialogs.answers = {Answer::kNo};
  no.QueryUnload();
  EXPECT_TRUE(no.unloaded);
  EXPECT_EQ(c.SurfaceBytes(), expected);
  no.Help();
  EXPECT_EQ(c.fake.desktop.help_calls.at(0).second, 12110);
}

TEST(SurfaceScreen, AnUnknownLibraryNumberIsFatal) {
  ScreenCase c;
  c.Elements({{"South", WithField(OuterWall(), 15, "7")}});
  bool ended = false;
  c.screen.end_program = [&ended] { ended = true; };
  c.screen.Load();
  EXPECT_EQ(c.fake.dialogs.messages,
            (std::vector<ShownMessage>{{"Error in GetListIndex ", mb::kCritical, "FATAL ERROR"}}));
  EXPECT_TRUE(ended && c.screen.unloaded);
}

TEST(SurfaceScreen, SurfacesButtonCountsTheSidesOfEachVolume) {
  ScreenCase c;
  c.Elements({{"W1", OuterWall()},
              {"W2", WithField(WithField(OuterWall(), 7, "1"), 8, "3")},
              {"F", WithField(OuterWall(), 7, "-1")}});
  c.screen.Load();
  Strings cells;
  c.fake.dialogs.screens["VolumeSurfaces"] = [&cells](Form& form) {
    auto& screen = static_cast<VolumeSurfaces&>(form);
    cells = testing::GridRows(screen.Grid1);
    cells.push_back(screen.Label1.caption + "|" + screen.Command1.caption);
    screen.Command1.on_click();
    EXPECT_TRUE(screen.unloaded);
  };
  c.screen.CheckSurfaces.on_click();
  EXPECT_EQ(cells, (Strings{"Volume|Number", "Ground|1", "Outdoors|1", "1|3", "2|0", "3|1",
                            "Number of surfaces facing a volume|Cancel"}));
  EXPECT_EQ(c.screen.CheckSurfaces.tool_tip, "Show number of surfaces facing each volume ");
}

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

// The leakage row of each pair of facings: mode, label, unit, whether it is
// shown and its default.
TEST(LeakageFor, EveryFacingPair) {
  const std::string flow = "1|Leakage flow at dP = 50 Pa|l/sm2|";
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"-1", "3", flow + "1|0"}, {"0", "1", flow + "1|1"}, {"1", "2", "2|Leakage area|m2|1|0"},
      {"0", "0", flow + "0|1"},  {"4", "0", flow + "0|1"}, {"-1", "0", flow + "1|1"},
      {"", "", flow + "1|1"}};
  for (const auto& [front, back, expected] : cases) {
    LeakageRow r = LeakageFor(front, back);
    EXPECT_EQ(std::to_string(r.mode) + "|" + r.label + "|" + r.unit + "|" +
                  std::to_string(r.shown) + "|" + r.value,
              expected)
        << front << "/" << back;
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
  const std::string bounds =
      "Zenith=180 Azimuth=360 X=-999999 Y=999999 Z=+.5 A=999999 B=3 C=.01 D=.01 E=2.99 "
      "F=999998.99 M_AbsF=0 M_AbsB=0 M_EmmF=0 M_EmmB=100 H_AbsF=0 H_AbsB=0 H_EmmF=0 H_EmmB=1";
  std::string letters;
  for (const auto& bound : Words(bounds)) letters += bound.substr(0, bound.find('=')) + "=x ";
  const std::string shading = "front#2 back#1 M_Wall#1 M_AbsB=20 ";
  // The element a check starts from, the user's entries, the input that
  // takes the focus and the message.
  struct Row {
    Start start;
    std::string settings, focus, message;
  };
  const Row rows[] = {
      {kWall, "", "", "passed"},
      {kWall, "Zenith=180.01 Azimuth=-360 X=999999 A=0 back#0 M_AbsF=abc M_EmmB=0 Leakage=1.234",
       "Zenith",
       "Zenith must be a value (-180 -  180)\rBack must be a value ( 0 -  8)\r"
       "A must be a value ( 0 -  999999)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 1 -  100)\r" +
           leakage},
      {kWall, "Zenith=-180 back#0", "back", "Back must be a value ( 0 -  8)\r"},
      {kWall, "front#0", "front", "Front must be a value (-1 -  8)\r"},
      {kWall, "A=0", "A", "A must be a value ( 0 -  999999)\r"},
      {kWall, "M_AbsF=abc", "M_AbsF", "Absorptance must be a value ( 0 -  100)\r"},
      {kWall, "M_AbsF=100 M_EmmB=0", "M_EmmB", "Emittance must be a value ( 1 -  100)\r"},
      {kWall, "M_EmmB=1 Leakage=1.234", "Leakage", leakage},
      {kWall, "Leakage=10", "", "passed"},
      // Every number rule but the facings, as the message writes its bounds.
      {kHole, letters, "Zenith",
       "Zenith must be a value (-180 -  180)\rAzimuth must be a value (-360 -  360)\r"
       "X must be a value (-999999 -  999999)\rY must be a value (-999999 -  999999)\r"
       "Z must be a value (-999999 -  999999)\rA must be a value ( 0 -  999999)\r"
       "B must be a value ( 0 -  999999)\rC must be a value ( .01 -  999999)\r"
       "D must be a value ( .01 -  999999)\r"
       "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r"
       "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r"
       "Absorptance must be a value ( 0 -  100)\rAbsorptance must be a value ( 0 -  100)\r"
       "Emittance must be a value ( 0 -  100)\rEmittance must be a value ( 1 -  100)\r"},
      // The bounds themselves pass, but for the strict lower bound of a dimension.
      {kHole, bounds, "", "passed"},
      {kHole, bounds + " Zenith=-180.01 H_EmmB=.99", "Zenith",
       "Zenith must be a value (-180 -  180)\rEmittance must be a value ( 1 -  100)\r"},
      // Facings; a shading screen stands only with Outdoor on both sides.
      {kWall, "front#2 back#1", "front", "Front and back facing may not be the same\r"},
      {kWall, shading, "", "passed"},
      {kWall, shading + "M_AbsB=40", "M_AbsB", "Absorptance + transmittance > 100\r"},
      {kWall, shading + "front#1", "front",
       "Shading screen not permitted between outdoor and indoor volumes \r"},
      // That message has no line end: the next one follows on its line.
      {kWall, shading + "front#3 back#3 Leakage=abc", "front",
       "Front and back facing may not face internal volumes when shading screen (except "
       "'Outdoor - Outdoor')" +
           leakage},
      {kWall, shading + "Shape#2 C=1 D=1 E=2 F=2", "M_Wall",
       "Shading screen can not be in combinaton with shape 3 \r"},
      // Dimensions and the hole; 2.99 is B - 0.01 in single precision.
      {kWall, "Shape#2 A=5 B=3 C=3 D=5 E=3 F=5", "E",
       "B - E must be >=  .01\rC must be < E \rA - F must be >=  .01\rD must be < F \r"},
      {kWall, "Shape#2 A=5 B=3 C=0 D= E=2.99 F=4.99", "C",
       "C must be a value ( .01 -  999999)\rD must be a value ( .01 -  999999)\r"},
      // A triangle's B is an offset and may be empty or negative.
      {kWall, "Shape#1 B=-2 C=0", "C", "C must be a value ( 0 -  999999)\r"},
      {kWall, "Shape#3 B= C=3 D=-1 E=abc F=4.99", "E", "E must be a value ( 0 -  999999)\r"},
      {kWall, "Shape#4 A=4 B=4 C=3 D=-1 E=4 F=4", "E", "F - E must be >  0\r"},
      {kWall, "Shape#4 A=4 B=4 C= D=-1 E=4 F=4.5", "", "passed"},
      // The wall and window groups; no percent is looked at without a wall.
      {kWall, "M_Wall#0 M_AbsF=abc", "M_Wall", "A wall (main) must be selected\r"},
      {kOpenHole, "", "H_Wall",
       "A wall (hole) must be selected\rA  window (hole) must be selected\r"},
      // No main choice but a hole wall: the main window's rule runs in the hole's group.
      {kHoleOnly, "H_EmmB=0", "M_Wall",
       "A wall (main) must be selected\rEmittance must be a value ( 1 -  100)\r"
       "A  window (main) must be selected\r"},
      {kWall, "Leakage=10.01", "Leakage", leakage},
  };
  for (const Row& row : rows) {
    CheckCase c(StartFields(row.start));
    testing::Fill(c.screen, Words(row.settings));
    SCOPED_TRACE(row.message);
    EXPECT_EQ(c.Check(), row.message);
    EXPECT_EQ(c.screen.focus, row.focus);
    const Control* focused = c.screen.Find(row.focus);
    if (focused && focused->kind() == ControlKind::kTextBox) {
      EXPECT_EQ(focused->sel_length, static_cast<int>(focused->text.size()));
    }
  }
}

// Without a hole the element of no main choice meets no window rule.
TEST(CheckSurface, NoHoleNoWindowRule) {
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
