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
    const auto inputs = box.Inputs();
    for (int i = 0; i < kGasFields; ++i) inputs[i]->text = gases.front()[i];
    gases.pop_front();
    box.Ok();
  };
}

std::string Column(const Gases& s, int col) {
  std::string names;
  for (int row = 1; row <= kMaxGasTypes; ++row) names += s.Grid1.Cell(row, col) + ",";
  return names;
}

TEST(GasTypes, AddInsertEditAndDeleteThenWrite) {
  LibraryCase c;
  std::vector<std::string> titles;
  Gases s(c.fake.session);
  s.Load();
  EXPECT_EQ(s.Grid1.Cell(0, 7), "Prandtl num(P)");
  EXPECT_EQ(Column(s, 0), "Air,Argon,Krypton,Xenon,SF6,,,,,,");
  AnswerGases(c,
              {{" Mix ", "1", "2", "3", "4", "5", "6", "7", "8"},
               {"CO2", "0.0146", "+1e-5", "1.5e-5", "5e-8", "1.8", "-0.006", "0.77", "-2e-4"},
               {"CO2", "0.0147", "+1e-5", "1.5e-5", "5e-8", "1.8", "-0.006", "0.77", "-2e-4"}},
              &titles);
  s.AddGas();
  s.Grid1.row = 2;
  s.Grid1.on_click();
  s.InsertGas();
  s.EditGas();
  EXPECT_EQ(titles, (std::vector<std::string>{"Add data", "Insert data", "Edit data"}));
  EXPECT_EQ(Column(s, 0), "Air,CO2,Argon,Krypton,Xenon,SF6,Mix,,,,");
  EXPECT_EQ(s.Grid1.Cell(2, 1), "0.0147");
  // Air fills a gap of a window type; Xenon none.
  s.Grid1.row = 1;
  s.Grid1.on_click();
  s.DeleteGas();
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "This type of gas is referenced in a window and can not be deleted");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  s.Grid1.row = 5;
  s.Grid1.on_click();
  s.DeleteGas();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(Column(s, 0), "Air,CO2,Argon,Krypton,SF6,Mix,,,,,");
  EXPECT_EQ(s.GasCount(), 6);
  EXPECT_EQ(s.GasCurrentRow, 4);
  s.Ok();
  EXPECT_TRUE(s.unloaded);
  const std::string example = testing::ExampleFile("GASTP.INP_Temp");
  const std::string lines[] = {"CO2\t0.0147\t+1e-5\t1.5e-5\t5e-8\t1.8\t-0.006\t0.77\t-2e-4\t\r\n",
                               "Mix\t1\t2\t3\t4\t5\t6\t7\t8\t\r\n"};
  std::string expected = example;
  expected.erase(expected.find("Xenon"), expected.find("SF6") - expected.find("Xenon"));
  expected.insert(expected.find("Argon"), lines[0]);
  EXPECT_EQ(c.Bytes("GASTP.INP"), expected + lines[1]);
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
            (std::vector<std::string>{"Maximum number of gas types =  10",
                                      "Maximum number of gas types =  10"}));
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_TRUE(c.fake.dialogs.shown_forms.empty());
  // The last gas only blanks its row.
  s.Grid1.row = 10;
  s.Grid1.on_click();
  s.DeleteGas();
  EXPECT_EQ(s.GasCount(), 9);
  EXPECT_EQ(s.Grid1.Cell(10, 0), "");
  s.Cancel();
  EXPECT_EQ(c.Bytes("GASTP.INP"), ten);
}

TEST(Addgas, EveryValueMustBeARealNumber) {
  LibraryCase c(false);
  Addgas box(c.fake.session);
  const Fields bad = {" ", "", "1e5", "1e-05", "1E-5", "1.", "--1", "1,5", "abc"};
  const auto inputs = box.Inputs();
  for (int i = 0; i < kGasFields; ++i) inputs[i]->text = bad[i];
  box.Ok();
  EXPECT_FALSE(box.accepted);
  std::string all;
  for (const auto& column : kGasColumns) all += std::string(column.message) + "\r";
  EXPECT_EQ(c.fake.dialogs.Last().text, all);
  EXPECT_EQ(box.focus, "namegas");
  EXPECT_EQ(box.k.max_length, 11);
  const Fields good = {"A B", "12", "-.5", "1.5e-3", "+1e+2", "+1e-5", "0", "3", "-2.4e-4"};
  for (int i = 0; i < kGasFields; ++i) inputs[i]->text = good[i];
  box.Ok();
  EXPECT_TRUE(box.accepted);
}

}  // namespace
}  // namespace zelmo
