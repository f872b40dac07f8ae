#include "libraries/gas_screen.h"

#include <gtest/gtest.h>

#include <deque>

#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::LibraryCase;
using Fields = std::array<std::string, kGasFields>;

// Addgas answers each gas in turn and records its title.
void AnswerGases(LibraryCase& c, std::deque<Fields> gases, std::vector<std::string>* titles) {
  c.fake.dialogs.screens["Addgas"] = [gases, titles](Form& form) mutable {
    auto& box = static_cast<Addgas&>(form);
    titles->push_back(box.caption);
    for (int i = 0; i < kGasFields; ++i) box.Inputs()[i]->text = gases.front()[i];
    gases.pop_front();
    box.Ok();
  };
}

// The names in the grid, after a click on `clicked` when one is given.
std::string Names(Gases& s, int clicked = 0) {
  if (clicked) {
    s.Grid1.row = clicked;
    s.Grid1.on_click();
  }
  std::string names;
  for (int row = 1; row <= kMaxGasTypes; ++row) names += s.Grid1.Cell(row, 0) + ",";
  return names;
}

TEST(GasTypes, AddInsertEditAndDeleteThenWrite) {
  LibraryCase c;
  std::vector<std::string> titles;
  Gases s(c.fake.session);
  s.Load();
  EXPECT_EQ(s.Grid1.Cell(0, 7), "Prandtl num(P)");
  EXPECT_EQ(Names(s), "Air,Argon,Krypton,Xenon,SF6,,,,,,");
  const Fields co2 = {"CO2", "0.0146", "+1e-5", "1.5e-5", "5e-8", "1.8", "-0.006", "0.77", "-2e-4"};
  Fields edited = co2;
  edited[1] = "0.0147";
  AnswerGases(c, {{" Mix ", "1", "2", "3", "4", "5", "6", "7", "8"}, co2, edited}, &titles);
  s.AddGas();
  Names(s, 2);
  s.InsertGas();
  s.EditGas();
  EXPECT_EQ(titles, (std::vector<std::string>{"Add data", "Insert data", "Edit data"}));
  EXPECT_EQ(Names(s), "Air,CO2,Argon,Krypton,Xenon,SF6,Mix,,,,");
  EXPECT_EQ(s.Grid1.Cell(2, 1), "0.0147");
  // Air fills a gap of a window type; Xenon none.
  Names(s, 1);
  s.DeleteGas();
  EXPECT_EQ(c.Said(), "MESSAGE|This type of gas is referenced in a window and can not be deleted");
  EXPECT_EQ(Names(s, 5), "Air,CO2,Argon,Krypton,Xenon,SF6,Mix,,,,");
  s.DeleteGas();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(Names(s), "Air,CO2,Argon,Krypton,SF6,Mix,,,,,");
  EXPECT_EQ(std::pair(s.GasCount(), s.GasCurrentRow), std::pair(6, 4));
  s.Ok();
  EXPECT_TRUE(s.unloaded);
  std::string expected = testing::ExampleFile("GASTP.INP_Temp");
  expected.erase(expected.find("Xenon"), expected.find("SF6") - expected.find("Xenon"));
  expected.insert(expected.find("Argon"),
                  "CO2\t0.0147\t+1e-5\t1.5e-5\t5e-8\t1.8\t-0.006\t0.77\t-2e-4\t\r\n");
  EXPECT_EQ(c.Bytes("GASTP.INP"), expected + "Mix\t1\t2\t3\t4\t5\t6\t7\t8\t\r\n");
  EXPECT_TRUE(c.AllStale());
}

TEST(GasTypes, TenGasesAreTheLimitAndCancelWritesNothing) {
  LibraryCase c;
  std::string ten;
  for (int i = 0; i < kMaxGasTypes; ++i) ten += "G\t1\t1\t1\t1\t1\t1\t1\t1\t\r\n";
  c.Put("GASTP.INP", ten);
  Gases s(c.fake.session);
  s.Load();
  s.AddGas();
  s.InsertGas();
  EXPECT_EQ(c.fake.dialogs.Texts(),
            std::vector<std::string>(2, "Maximum number of gas types =  10"));
  EXPECT_EQ(c.Style(), mb::kExclamation);
  EXPECT_TRUE(c.fake.dialogs.shown_forms.empty());
  // The last gas only blanks its row.
  EXPECT_EQ(Names(s, 10), "G,G,G,G,G,G,G,G,G,G,");
  s.DeleteGas();
  EXPECT_EQ(s.GasCount(), 9);
  EXPECT_EQ(Names(s), "G,G,G,G,G,G,G,G,G,,");
  s.Cancel();
  EXPECT_EQ(c.Bytes("GASTP.INP"), ten);
}

TEST(Addgas, EveryValueMustBeARealNumber) {
  LibraryCase c(false);
  Addgas box(c.fake.session);
  const Fields bad = {" ", "", "1e5", "1e-05", "1E-5", "1.", "--1", "1,5", "abc"};
  for (int i = 0; i < kGasFields; ++i) box.Inputs()[i]->text = bad[i];
  box.Ok();
  EXPECT_FALSE(box.accepted);
  std::string all = "Name is missing\r";
  for (const char* value : {"C", "dC/dT", "V", "dV/dT", "D", "dD/dT", "P", "dP/dT"})
    all += std::string(value) + " must be a real or integer number\r";
  EXPECT_EQ(c.fake.dialogs.Last().text, all);
  EXPECT_EQ(box.focus + std::to_string(box.k.max_length), "namegas11");
  const Fields good = {"A B", "12", "-.5", "1.5e-3", "+1e+2", "+1e-5", "0", "3", "-2.4e-4"};
  for (int i = 0; i < kGasFields; ++i) box.Inputs()[i]->text = good[i];
  box.Ok();
  EXPECT_TRUE(box.accepted);
}

}  // namespace
}  // namespace zelmo
