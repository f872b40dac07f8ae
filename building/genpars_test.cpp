#include "building/genpars.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

struct GenParsCase {
  GenParsCase() {
    fake.ws().CasePath = dir.path();
    WriteBytes(dir / "THERMAL.INP", "------\r\n");
  }
  testing::FakeSession fake;
  testing::TempDir dir;
};

TEST(GenPars, DefaultsWithoutAFileAndTheBytesWritten) {
  GenParsCase c;
  GenPars pars(c.fake.session);
  pars.Load();
  EXPECT_EQ(pars.caption, "General Parameters");
  EXPECT_EQ(pars.Option1[0].value + pars.Option2.value, 2);
  EXPECT_FALSE(pars.Inter.enabled);
  EXPECT_EQ(pars.Reflect.text + "|" + pars.RSoil.text + "|" + pars.Exter.text + "|" +
                pars.Inter.text + "|" + pars.Loops.text,
            "20|1.87|11.0|-1|20");
  testing::Act(pars, {"Command1"});
  EXPECT_TRUE(pars.unloaded);
  EXPECT_EQ(ReadBytes(c.dir / "GENPARS.INP"), "Y\r\n20\r\n1.87\r\n11.0\r\n-1\r\n20\r\nY\r\n");
  EXPECT_EQ(ReadBytes(c.dir / "THERMAL.INP"), "-----X\r\n");
}

TEST(GenPars, ReadsTheFileAndFollowsTheOptions) {
  GenParsCase c;
  WriteBytes(c.dir / "genpars.inp", "N\r\n30\r\n\r\n15.0\r\n3.5\r\n5\r\nN\r\n");
  GenPars pars(c.fake.session);
  pars.Load();
  EXPECT_EQ(pars.Option1[1].value + pars.Option3.value, 2);
  EXPECT_EQ(pars.RSoil.text + "|" + pars.Inter.text,
            "1.87|3.5");  // an empty line keeps the default
  EXPECT_TRUE(pars.Inter.enabled);
  EXPECT_FALSE(pars.dirty());

  testing::Act(pars, {"Option1(0)"});
  EXPECT_EQ(pars.Exter.text, "11.0");
  EXPECT_EQ(pars.Exter.fore_color, 0xFF0000);
  testing::Act(pars, {"Option1(1)"});
  EXPECT_EQ(pars.Exter.text, "15.0");
  testing::Act(pars, {"Option2"});
  EXPECT_EQ(pars.Inter.text + std::to_string(pars.Inter.enabled), "-10");
  testing::Act(pars, {"Option3"});
  EXPECT_EQ(pars.Inter.text + std::to_string(pars.Inter.enabled), "1");
  EXPECT_TRUE(pars.dirty());

  // A file cut short is refused, not half read.
  WriteBytes(c.dir / "genpars.inp", "N\r\n30\r\n");
  GenPars cut(c.fake.session);
  const std::string reported = testing::FileErrorText([&cut] { cut.Load(); });
  EXPECT_NE(reported.find("GENPARS.INP, line 3"), std::string::npos) << reported;
}

TEST(GenPars, BoundsAtTheirEdges) {
  const std::string loops = "Loops must be a value ( 1 -  99)\r";
  // Each bound passes, just outside is refused; "-1" passes under Calculate.
  const std::pair<testing::Strings, std::string> cases[] = {
      {{"Reflect=0", "RSoil=0.01", "Exter=999", "Loops=99"}, ""},
      {{"Reflect=100", "Loops=1"}, ""},
      {{"Loops=100"}, loops},
      {{"Loops=0"}, loops},
      {{"Reflect=100.5"}, "Reflectivity must be a value ( 0 -  100)\r"},
      {{"Exter=999.01"}, "Exterior coeff. must be a value ( .01 -  999)\r"}};
  for (const auto& [settings, message] : cases) {
    GenParsCase c;
    GenPars pars(c.fake.session);
    pars.Load();
    testing::Fill(pars, settings);
    EXPECT_EQ(pars.CheckGenPars(), message.empty()) << message;
    EXPECT_EQ(c.fake.dialogs.Texts(),
              message.empty() ? testing::Strings{} : testing::Strings{message});
  }

  GenParsCase c;
  GenPars pars(c.fake.session);
  pars.Load();
  testing::Act(pars, {"Option3"});
  testing::Fill(pars, {"Reflect=100.5", "RSoil=0", "Exter=0", "Inter=-1", "Loops=abc"});
  EXPECT_FALSE(pars.CheckGenPars());  // under Set, "-1" is no value
  EXPECT_EQ(c.fake.dialogs.Last(),
            (testing::ShownMessage{"Reflectivity must be a value ( 0 -  100)\r"
                                   "R-soil must be a value ( .01 -  999)\r"
                                   "Exterior coeff. must be a value ( .01 -  999)\r"
                                   "Interior coeff. must be a value ( .01 -  999)\r" +
                                       loops,
                                   mb::kExclamation, "MESSAGE"}));
  EXPECT_EQ(pars.focus, "Reflect");
  EXPECT_EQ(pars.Reflect.sel_length, 5);

  // Cancel: Yes with a fault stays, No closes without writing.
  c.fake.dialogs.answers = {Answer::kYes, Answer::kOk, Answer::kNo};
  pars.Cancel();
  EXPECT_FALSE(pars.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages[1].text, "Do you want to save changes ?\r\rGeneral parameters");
  pars.Cancel();
  EXPECT_TRUE(pars.unloaded);
  EXPECT_FALSE(testing::Exists(c.dir / "GENPARS.INP"));
}

}  // namespace
}  // namespace zelmo
