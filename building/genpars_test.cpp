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
  EXPECT_EQ(pars.Option1[0].value, 1);
  EXPECT_EQ(pars.Option2.value, 1);
  EXPECT_FALSE(pars.Inter.enabled);
  EXPECT_EQ(pars.Reflect.text + "|" + pars.RSoil.text + "|" + pars.Exter.text + "|" +
                pars.Inter.text + "|" + pars.Loops.text,
            "20|1.87|11.0|-1|20");
  pars.Ok();
  EXPECT_TRUE(pars.unloaded);
  EXPECT_EQ(ReadBytes(c.dir / "GENPARS.INP"), "Y\r\n20\r\n1.87\r\n11.0\r\n-1\r\n20\r\nY\r\n");
  EXPECT_EQ(ReadBytes(c.dir / "THERMAL.INP"), "-----X\r\n");
}

TEST(GenPars, ReadsTheFileAndFollowsTheOptions) {
  GenParsCase c;
  WriteBytes(c.dir / "genpars.inp", "N\r\n30\r\n\r\n15.0\r\n3.5\r\n5\r\nN\r\n");
  GenPars pars(c.fake.session);
  pars.Load();
  EXPECT_EQ(pars.Option1[1].value, 1);
  EXPECT_EQ(pars.RSoil.text, "1.87");  // an empty line keeps the default
  EXPECT_EQ(pars.Inter.text, "3.5");
  EXPECT_EQ(pars.Option3.value, 1);
  EXPECT_TRUE(pars.Inter.enabled);
  EXPECT_FALSE(pars.dirty());

  pars.Option1[0].on_click();
  EXPECT_EQ(pars.Exter.text, "11.0");
  EXPECT_EQ(pars.Exter.fore_color, 0xFF0000);
  pars.Option1[1].on_click();
  EXPECT_EQ(pars.Exter.text, "15.0");
  pars.Option2.on_click();
  EXPECT_EQ(pars.Inter.text, "-1");
  EXPECT_FALSE(pars.Inter.enabled);
  pars.Option3.on_click();
  EXPECT_EQ(pars.Inter.text, "");
  EXPECT_TRUE(pars.Inter.enabled);
  EXPECT_TRUE(pars.dirty());

  // A file cut short is refused, not half read.
  WriteBytes(c.dir / "genpars.inp", "N\r\n30\r\n");
  GenPars cut(c.fake.session);
  try {
    cut.Load();
    FAIL() << "a file cut short must be reported";
  } catch (const FileError& error) {
    EXPECT_NE(error.UserText().find("GENPARS.INP, line 3"), std::string::npos) << error.UserText();
  }
}

TEST(GenPars, BoundsAtTheirEdges) {
  GenParsCase c;
  GenPars pars(c.fake.session);
  pars.Load();
  pars.Reflect.text = "0";
  pars.RSoil.text = "0.01";
  pars.Exter.text = "999";
  pars.Loops.text = "99";
  EXPECT_TRUE(pars.CheckGenPars());  // "-1" passes under Calculate
  pars.Reflect.text = "100";
  pars.Loops.text = "1";
  EXPECT_TRUE(pars.CheckGenPars());

  pars.Reflect.text = "100.5";
  pars.RSoil.text = "0";
  pars.Exter.text = "0";
  pars.Option3.on_click();
  pars.Inter.text = "-1";  // under Set, "-1" is no value
  pars.Loops.text = "abc";
  EXPECT_FALSE(pars.CheckGenPars());
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Reflectivity must be a value ( 0 -  100)\r"
            "R-soil must be a value ( .01 -  999)\r"
            "Exterior coeff. must be a value ( .01 -  999)\r"
            "Interior coeff. must be a value ( .01 -  999)\r"
            "Loops must be a value ( 1 -  99)\r");
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
