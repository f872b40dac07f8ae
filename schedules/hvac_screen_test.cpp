#include "schedules/hvac_screen.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "core/fields.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "schedules/hvac_cal_file.h"

namespace zelmo {
namespace {

using testing::FakeSession;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

// A case of `volumes` rooms in a row, each joined to the next by an inner
// wall with a door (the rectangle with a hole), and its HVAC screen loaded.
struct HvacScreenCase {
  explicit HvacScreenCase(int volumes = 3) {
    fake.ws().CasePath = dir.path();
    WriteBytes(dir / "THERMAL.INP", "------\r\n");
    std::string bytes;
    for (int v = 1; v <= volumes; ++v) {
      bytes += "Wall" + std::to_string(v) + "\r\n";
      std::string back = v < volumes ? std::to_string(v + 1) : "0";
      for (int field = 1; field <= 29; ++field) {
        std::string text = field == 1   ? (v < volumes ? "2" : "0")
                           : field == 7 ? std::to_string(v)
                           : field == 8 ? back
                                        : "";
        bytes += "\t" + text + "\r\n";
      }
    }
    WriteBytes(dir / "SURFACE.INP", bytes);
    screen.Load();
  }
  // Scripts the next dialog of that name to take the fields and press Ok.
  template <typename Dialog>
  void Answer(const std::string& form, std::function<void(Dialog&)> fill) {
    fake.dialogs.screens[form] = [fill](Form& f) {
      auto& dialog = static_cast<Dialog&>(f);
      fill(dialog);
      dialog.Ok();
    };
  }
  void AddSchedule(HVAC& on, const std::string& name) {
    Answer<ScheduleNameDialog>("HVAC_Schedule_Add",
                               [name](ScheduleNameDialog& d) { d.Text1.text = name; });
    on.SAcmbClick();
  }
  void AddDaily(const std::string& start, const std::string& end) {
    Answer<DailyPeriodDialog>("HVAC_Daily_Add", [start, end](DailyPeriodDialog& d) {
      d.Text1.text = FieldBefore(start, "/");
      d.Text2.text = FieldAfter(start, "/");
      d.Text3.text = FieldBefore(end, "/");
      d.Text4.text = FieldAfter(end, "/");
    });
    screen.AddPeriod(false);
  }
  std::string Bytes() const { return ReadBytes(dir / kHvacCalFile); }
  TempDir dir;
  FakeSession fake;
  HVAC screen{fake.session};
};

// Types `text` into a cell as the keyboard does, after moving to it.
void Type(HVAC& screen, Grid& grid, int row, int col, const std::string& text) {
  int move = keys::kRight;
  screen.GridKeyPress(grid, move);
  grid.row = row;
  grid.col = col;
  for (char c : text) {
    int key = static_cast<unsigned char>(c);
    screen.GridKeyPress(grid, key);
  }
}

// A list moved by the user.
void Select(ComboBox& list, int index) {
  list.list_index = index;
  list.on_click();
}

TEST(HvacScreen, TypedHoursStayWithTheirScheduleVolumeTypeAndPeriod) {
  HvacScreenCase c;
  HVAC& screen = c.screen;
  ASSERT_FALSE(screen.unloaded);
  EXPECT_FALSE(screen.SDcmb.enabled);  // no schedule yet
  c.AddSchedule(screen, "Office");
  EXPECT_EQ(screen.Combo1.items, std::vector<std::string>{"Office"});
  EXPECT_TRUE(screen.Week.visible && screen.Combo5.visible && !screen.Combo2.visible);
  Type(screen, screen.HVACGRID1, 8, 2, "21");
  Select(screen.Combo5, 1);  // Weekday
  EXPECT_EQ(screen.HVACGRID1.Cell(8, 2), "");
  EXPECT_FALSE(screen.Option1[1].enabled);  // openings only in the first period
  Type(screen, screen.HVACGRID1, 8, 2, "19");
  Select(screen.Combo4, kDaily);
  EXPECT_TRUE(screen.Combo2.visible && screen.Combo2.items.empty());
  c.AddDaily("1/1", "30/4");
  c.AddDaily("1/5", "31/12");
  EXPECT_EQ(screen.Combo2.items, (std::vector<std::string>{"1/1-30/4", "1/5-31/12"}));
  Type(screen, screen.HVACGRID1, 1, 5, "300");
  Select(screen.Combo2, 0);
  EXPECT_EQ(screen.HVACGRID1.Cell(1, 5), "");
  Select(screen.Combo3, 1);  // volume 2 has its own calendar
  EXPECT_TRUE(screen.Combo4.list_index == kWeekendWeekday && !screen.Option1[1].enabled);
  Select(screen.Combo3, 0);
  EXPECT_EQ(screen.Combo4.list_index, kDaily);
  Select(screen.Combo2, 1);
  EXPECT_EQ(screen.HVACGRID1.Cell(1, 5), "300");
  // Back to Weekend/Weekday and again to Daily: every calendar kept.
  Select(screen.Combo4, kWeekendWeekday);
  EXPECT_EQ(screen.HVACGRID1.Cell(8, 2), "21");
  Select(screen.Combo5, 1);
  EXPECT_EQ(screen.HVACGRID1.Cell(8, 2), "19");
  Select(screen.Combo4, kDaily);
  EXPECT_EQ(screen.Combo2.items.size(), 2u);

  // A refused cell blocks the move and the list goes back.
  Type(screen, screen.HVACGRID1, 3, 1, "1.5");
  Select(screen.Combo3, 1);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Check of input data");
  EXPECT_EQ(std::make_tuple(screen.Combo3.list_index, screen.HVACGRID1.row, screen.HVACGRID1.col,
                            screen.focus),
            std::make_tuple(0, 3, 1, std::string("HVACGRID1")));
}

TEST(HvacScreen, KeysOfTheGrids) {
  HvacScreenCase c;
  HVAC& screen = c.screen;
  c.AddSchedule(screen, "S");
  Grid& grid = screen.HVACGRID1;
  Type(screen, grid, 2, 3, "12,5-x");
  EXPECT_EQ(grid.Cell(2, 3), "12.5-");
  struct Case {
    int key;
    std::string cell;
    int row, col;
  } cases[] = {
      {keys::kBack, "12.5", 2, 3},  {'7', "12.57", 2, 3},
      {keys::kLeft, "12.57", 2, 3}, {'8', "8", 2, 3},
      {keys::kDelete, "", 2, 3},    {keys::kPageDown, "", 24, 3},
      {keys::kPageUp, "", 1, 3},    {keys::kHome, "", 1, 8},
      {keys::kEnd, "", 1, 1},
  };
  for (const auto& k : cases) {
    int key = k.key;
    screen.GridKeyPress(grid, key);
    EXPECT_EQ(std::make_tuple(grid.Cell(2, 3), grid.row, grid.col),
              std::make_tuple(k.cell, k.row, k.col))
        << k.key;
  }
  // In the fill row an x stands for itself and replaces the cell.
  Type(screen, screen.HVACGRID1_Fill, 0, 4, "5x");
  EXPECT_TRUE(screen.HVACGRID1_Fill.Cell(0, 4) == "x" && screen.HourDirty);
  // After a drag the active cell is where it ended; in the fill row that
  // cell is emptied, in the hourly grid it keeps its text until typed over.
  for (Grid* dragged : {&grid, &screen.HVACGRID1_Fill}) {
    dragged->Cell(0, 4) = "7";
    dragged->row = dragged->col = 2;
    dragged->row_sel = 0;
    dragged->col_sel = 4;
    screen.GridSelChange(*dragged);
    EXPECT_EQ(std::make_tuple(dragged->row, dragged->col, dragged->Cell(0, 4)),
              std::make_tuple(0, 4, std::string(dragged == &grid ? "7" : "")))
        << dragged->name();
  }
}

TEST(HvacScreen, DialogsCheckWhatTheyAreGiven) {
  HvacScreenCase c;
  HVAC& screen = c.screen;
  for (const auto& [text, message] :
       {std::pair{"  ", "You must give a name for the schedule "},
        std::pair{"Two words", "There should be no space in the name "}}) {
    ScheduleNameDialog dialog(c.fake.session, screen.result(), false);
    dialog.Text1.text = text;
    dialog.Ok();
    EXPECT_FALSE(dialog.unloaded);
    EXPECT_EQ(c.fake.dialogs.Last().title + "|" + c.fake.dialogs.Last().text + "|" + dialog.focus,
              std::string("Schedule name - check|") + message + "|Text1");
  }
  ScheduleCopyDialog copy(c.fake.session, screen.result(), "Office");
  EXPECT_EQ(copy.Text2.text, " ");
  copy.Text2.text = "Two words";
  copy.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().title + "|" + c.fake.dialogs.Last().text,
            "HVAC - Schedules - Copy|The Target name should not have any spaces in it ");
  VolumeCopyDialog volume(c.fake.session, screen.result(), {"Volume: 1", "Volume: 2"}, 1);
  volume.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Source and target the same volume ! ");
  EXPECT_FALSE(volume.unloaded);

  // The daily spins: a new dialog is 1/1-1/1; moving months pulls the other.
  DailyPeriodDialog add(c.fake.session, screen.result(), BuildDateTable({}));
  EXPECT_EQ(add.Text1.text, " 1");
  add.M2.value = 3;
  add.M2Change();
  EXPECT_EQ(add.Text3.text, " 31");
  add.M1.value = 2;
  add.M1Change();
  add.D1.value = 31;
  add.D1Change();
  EXPECT_EQ(add.Text1.text, " 31");
  add.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text + "|" + add.focus,
            "\rStart/Day must be a value (1 - 29)|Text1");
  add.M2.value = 1;
  add.M2Change();
  EXPECT_EQ(add.M1.value, 1);
  add.D1.value = 31;  // within one month not past the end day of that month
  add.D2.value = 30;
  add.D1Change();
  EXPECT_EQ(add.D1.value, 1);

  MonthlyPeriodDialog month(c.fake.session, screen.result(), {"1-3"});
  month.VScroll2.value = 5;
  month.VScroll2Change();
  month.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text, "\rDaily intervals are overlapping");
  month.VScroll1.value = 4;
  month.VScroll1Change();
  month.Ok();
  EXPECT_TRUE(month.unloaded);
  EXPECT_EQ(screen.result().PeriodStart + "-" + screen.result().PeriodEnd, "4-5");
}

// A month typed into the monthly dialogs is held to the spins: 1 to 12, the
// start never after the end; a field keeps only digits.
TEST(HvacScreen, TypedMonthsAreHeldToTheSpins) {
  HvacScreenCase c;
  const struct {
    const char* start;
    const char* end;
    const char* period;
  } rows[] = {
      {"15", "3", "1-3"}, {"13", "2", "1-2"},    {"0", "12", "1-12"},
      {"", "", "1-1"},    {"12", "12", "12-12"}, {"1", "1", "1-1"},
      {"5", "3", "3-3"},  {" 4 ", "9", "4-9"},   {"-3", "x", "1-1"},
  };
  for (const auto& row : rows) {
    MonthlyPeriodDialog month(c.fake.session, c.screen.result(), {});
    month.MonthStart.text = row.start;
    month.MonthStart.on_lost_focus();
    month.MonthEnd.text = row.end;
    month.Ok();
    ASSERT_TRUE(month.unloaded) << row.start << "-" << row.end;
    EXPECT_EQ(c.screen.result().PeriodStart + "-" + c.screen.result().PeriodEnd, row.period)
        << row.start << "-" << row.end;
  }
  // A start typed past the end pushes the end, an end before the start pulls
  // the start, as the arrows do.
  MonthlyPeriodDialog month(c.fake.session, c.screen.result(), {}, -1);
  month.MonthStart.text = "7";
  month.MonthStart.on_lost_focus();
  EXPECT_EQ(month.MonthEnd.text + "|" + std::to_string(month.VScroll2.value), " 7|7");
  month.MonthEnd.text = "2";
  month.MonthEnd.on_lost_focus();
  EXPECT_EQ(month.MonthStart.text + "-" + month.MonthEnd.text, " 2- 2");
  // Keys: digits pass, other characters are swallowed, movement keys pass.
  std::string kept;
  for (int key : {int('1'), int('a'), int('-'), int(' '), int('9'), keys::kBack, keys::kLeft}) {
    int k = key;
    month.MonthStart.on_key_press(k);
    kept += k == 0 ? "." : "+";
  }
  EXPECT_EQ(kept, "+...+++");
  EXPECT_EQ(month.MonthStart.max_length, 2);
  // The edit of a damaged item shows the months its spins can take.
  MonthlyPeriodDialog damaged(c.fake.session, c.screen.result(), {"15-3"}, 0);
  EXPECT_EQ(damaged.MonthStart.text + "-" + damaged.MonthEnd.text, " 12- 12");
}

TEST(HvacScreen, TheLoadsFileIsChosenUnderItsTitle) {
  HvacScreenCase c;
  c.screen.IDLcheck.value = 1;
  c.screen.IDLcheckClick();
  ASSERT_EQ(c.fake.dialogs.file_choices.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.file_choices[0].title, "Internal loads");
  EXPECT_EQ(c.fake.dialogs.file_choices[0].filters, std::vector<std::string>{"*.ILD"});
  EXPECT_EQ(c.screen.IDLcheck.value, 0);
}

TEST(HvacScreen, OkChecksThenWritesTheSessionOfEdits) {
  HvacScreenCase c(2);
  HVAC& screen = c.screen;
  c.AddSchedule(screen, "Office");
  Type(screen, screen.HVACGRID1, 9, 2, "21");
  Select(screen.Combo4, kMonthly);
  struct Case {
    std::function<void()> change;
    std::string message, focus;
  } cases[] = {
      {[] {}, "Time interval is missing", "Combo6"},
      {[&] {
         Select(screen.Combo4, kWeekendWeekday);
         screen.Lval.text = "8 5";
       },
       "Efficiency hould be an integer value", "Lval"},
      {[&] {
         screen.Lval.text = " 80 ";
         Type(screen, screen.HVACGRID1, 4, 7, "12345");
       },
       "Number should be a positive real number with max 4 digits (including the decimalpoint)",
       "HVACGRID1"},
      {[&] {
         Type(screen, screen.HVACGRID1, 4, 7, "12");
         screen.IDLcheck.value = 1;
       },
       "No ILD file given !", "ILDName"},
      {[&] { screen.ILDName.text = "/loads/office.txt"; }, "No ILD type file given !", "ILDName"},
  };
  for (const auto& k : cases) {
    k.change();
    screen.Ok();
    EXPECT_FALSE(screen.unloaded);
    EXPECT_EQ(c.fake.dialogs.Last().text + "|" + screen.focus, k.message + "|" + k.focus);
    screen.focus.clear();
  }
  screen.IDLcheck.value = 0;
  screen.ILDName.text.clear();
  // The door between the rooms: openings are shown for volume 1's first period.
  screen.Option1Click(1);
  ASSERT_TRUE(screen.openings_view());
  EXPECT_FALSE(screen.Scmd1.visible || screen.Combo1.enabled);
  EXPECT_EQ(screen.HVACGRID2.Cell(0, 1), "1-2");
  Type(screen, screen.HVACGRID2, 12, 1, "50");
  screen.Option1Click(0);
  screen.Ok();
  ASSERT_TRUE(screen.unloaded);
  EXPECT_EQ(ReadBytes(c.dir / "THERMAL.INP"), "-----X\r\n");
  const auto lines = *ReadAllLines(c.dir / kHvacCalFile);
  std::string pairs = "\t";  // the door open "100" where no opening was typed
  for (int i = 0; i < kMaxPairs - 1; ++i) pairs += " \t";
  // Loads trimmed.
  EXPECT_EQ((std::vector{lines[0], lines[2], lines[3], lines[8], lines[11], lines[16], lines[19]}),
            (std::vector<std::string>{"0\t1\t 80 \t0\t", " 1\t 1\t 2", "Office",
                                      "1\t1" + std::string(9, '\t') + "100" + pairs,
                                      "4\t4" + std::string(7, '\t') + "12\t\t100" + pairs,
                                      "9\t9\t\t21" + std::string(7, '\t') + "100" + pairs,
                                      "12\t12" + std::string(9, '\t') + "50" + pairs}));

  // Opened again, the screen shows what was saved; Cancel leaves the file.
  const std::string saved = c.Bytes();
  HVAC again(c.fake.session);
  again.Load();
  EXPECT_EQ(again.Combo1.items, std::vector<std::string>{"Office"});
  EXPECT_EQ(again.HVACGRID1.Cell(9, 2) + "|" + again.HVACGRID2.Cell(12, 1) + "|" + again.Lval.text,
            "21|50| 80 ");
  c.AddSchedule(again, "Other");
  again.SDcmbClick();
  again.Cancel();
  EXPECT_TRUE(again.unloaded);
  EXPECT_EQ(c.Bytes(), saved);
}

// A volume copied onto another takes its monthly periods with it, dates
// and hours; a period deleted leaves its slot blank for the next one added.
TEST(HvacScreen, ACopiedVolumeKeepsItsMonthlyPeriodsAndAReusedSlotStartsBlank) {
  HvacScreenCase c(2);
  ScheduleStore store;
  store.VolumeCount = 2;
  store.ScheduleCount = 1;
  store.CurrentSchedule = 1;
  store.ScheduleName(1) = "Office";
  store.PeriodType(1, 1) = kMonthly;
  store.PeriodCount(1, 1, kMonthly) = 2;
  for (int period = 1; period <= 2; ++period) {
    const int slot = PeriodSlot(kMonthly, period);
    store.PeriodDates(1, 1, slot, 1) = period == 1 ? "1" : "4";
    store.PeriodDates(1, 1, slot, 2) = period == 1 ? "3" : "12";
    store.HourCell(1, 1, slot, 10, 2) = period == 1 ? "21" : "19";
  }
  ASSERT_TRUE(WriteHvacCal(c.fake.ws(), store));
  HVAC screen(c.fake.session);
  screen.Load();
  c.Answer<VolumeCopyDialog>("Hvac_Volume_Copy",
                             [](VolumeCopyDialog& d) { d.Combo1.list_index = 1; });
  screen.CopyVolumeClick();
  screen.Ok();
  ASSERT_TRUE(screen.unloaded);
  ScheduleStore saved;
  ReadHvacCal(c.fake.ws(), 2, saved);
  EXPECT_EQ(saved.PeriodType(1, 2), kMonthly);
  EXPECT_EQ(saved.PeriodCount(1, 2, kMonthly), 2);
  for (int period = 1; period <= 2; ++period) {
    const int slot = PeriodSlot(kMonthly, period);
    EXPECT_EQ(saved.PeriodDates(1, 2, slot, 1) + "-" + saved.PeriodDates(1, 2, slot, 2) + "|" +
                  saved.HourCell(1, 2, slot, 10, 2),
              period == 1 ? "1-3|21" : "4-12|19");
  }

  // Daily periods of the first volume: the second one deleted, then added
  // again in its slot, shows no hour of the one before.
  HVAC daily(c.fake.session);
  daily.Load();
  Select(daily.Combo4, kDaily);
  c.Answer<DailyPeriodDialog>("HVAC_Daily_Add", [](DailyPeriodDialog& d) {
    d.Text1.text = "1", d.Text2.text = "1", d.Text3.text = "30", d.Text4.text = "4";
  });
  daily.AddPeriod(false);
  c.Answer<DailyPeriodDialog>("HVAC_Daily_Add", [](DailyPeriodDialog& d) {
    d.Text1.text = "1", d.Text2.text = "5", d.Text3.text = "31", d.Text4.text = "12";
  });
  daily.AddPeriod(false);
  Type(daily, daily.HVACGRID1, 3, 1, "300");
  daily.DeletePeriod(false);  // the list shows the second
  ASSERT_EQ(daily.Combo2.items, std::vector<std::string>{"1/1-30/4"});
  daily.AddPeriod(false);
  ASSERT_EQ(daily.Combo2.items, (std::vector<std::string>{"1/1-30/4", "1/5-31/12"}));
  EXPECT_EQ(daily.Combo2.list_index, 1);
  EXPECT_EQ(daily.HVACGRID1.Cell(3, 1), "");
  Select(daily.Combo2, 0);
  Select(daily.Combo2, 1);
  EXPECT_EQ(daily.HVACGRID1.Cell(3, 1), "");
}

TEST(HvacScreen, OneVolumeHasNoOpeningsAndNoVolumeClosesTheScreen) {
  HvacScreenCase one(1);
  EXPECT_FALSE(one.screen.Option1[0].visible || one.screen.Option1[1].visible);
  HvacScreenCase none(0);
  EXPECT_TRUE(none.screen.unloaded);
  EXPECT_EQ(none.fake.dialogs.Last().title + "|" + none.fake.dialogs.Last().text,
            "HVAC - Schedules|There are no volumes ");
}

}  // namespace
}  // namespace zelmo
