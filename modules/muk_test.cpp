// The example case through all six modules: its module input (the office of
// two volumes on Denver's July), a window library of double glazing, and
// what DANE and MUK leave in the case folder.
#include "modules/muk.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "modules/corv.h"
#include "modules/corv_fent_test_case.h"
#include "modules/dane.h"
#include "modules/fent.h"
#include "modules/neb.h"
#include "modules/plor.h"

namespace zelmo::modules {
namespace {

using testing::ModuleCase;

std::string Source(const std::string& path) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  auto bytes = ReadAllBytes(std::string(source ? source : ".") + "/" + path);
  return bytes ? *bytes : "";
}

// Window types 1 to 5, each two panes of 4 mm float glass with 12 mm of air.
std::string Library() {
  std::string lib =
      "1 ! Number of glass types\r\n \r\n"
      "Float4mm  0.84  0.84 2\r\n    4.00    1.53   25.00\r\n \r\n"
      "1 ! Number of gas types  k   dk   u   du   r   dr   p   dp\r\n \r\n"
      "Air 0.02496 7.8e-5 1.761e-5 4.9e-8 1.2466 -0.00440 0.7112 -2.436e-4\r\n \r\n"
      "5 ! Number of window types\r\n \r\n";
  for (int i = 1; i <= 5; ++i) {
    lib += " Double" + std::to_string(i) + " 2\r\n Float4mm 0\r\n 12 Air\r\n Float4mm 0\r\n \r\n";
  }
  return lib;
}

struct ExampleCase : ModuleCase {
  ExampleCase() {
    for (const char* name : {"DAT1.DAT", "DAT2.DAT", "DAT3.DAT"}) {
      Put(name, Source(std::string("simulation/testdata/Case1/") + name));
    }
    std::string dat4 = Source("simulation/testdata/Case1/DAT4.DAT");
    const char* source = std::getenv("ZELMO_SOURCE_DIR");
    const std::string climate =
        std::string(source ? source : ".") + "/system/tree/Climate/DenverCO(US).CLI";
    dat4.replace(dat4.find("Climate/DenverCO(US).CLI"), 24, climate);
    Put("DAT4.DAT", dat4);
    Put("Wndw.Lib", Library(), true);
  }
  void RunAll() const {
    EXPECT_EQ(Run(kPlor, kPlorDat1Damaged, RunPlor).substr(0, 5), "    0");
    EXPECT_EQ(Run(kNeb, kNebDat1Missing, RunNeb).substr(0, 5), "    0");
    EXPECT_EQ(Run(kCorv, kCorvDat2Damaged, RunCorv).substr(0, 5), "    0");
    EXPECT_EQ(Run(kFent, kFentLibraryDamaged, RunFent).substr(0, 5), "    0");
    EXPECT_EQ(Run(kDane, kDaneDat3Damaged, RunDane), "    0 DANE      \r\n\"\"\r\n0\r\n");
  }
};

TEST(Muk, TheExampleCaseRunsThroughAllSixModules) {
  ExampleCase c;
  c.RunAll();
  EXPECT_EQ(c.Run(kMuk, kMukDat4Damaged, RunMuk), "    0 MUK       \r\n\"\"\r\n0\r\n");
  const std::string sum = c.Bytes("MUK.SUM");
  EXPECT_EQ(sum.substr(0, 14), "ZELMO-QRN MUK ");
  EXPECT_NE(sum.find("\r\nVolume\tHeating [kWh]\tCooling [kWh]\tPeak heating [W]\tPeak cooling "
                     "[W]\tT_min [C]\tT_mean [C]\tT_max [C]\r\n1\t"),
            std::string::npos);
  EXPECT_NE(sum.find("\r\n2\t"), std::string::npos);
  // Hourly values of temperature, heating and cooling of both volumes for
  // the 31 days of July, and the comfort volume 1.
  const std::string hourly = c.Bytes("HOURLY.TXT");
  EXPECT_EQ(hourly.substr(0, hourly.find("\r\n")),
            "Month\tDay\tHour\tT_out [C]\tV1 T_air [C]\tV1 Heating [W]\tV1 Cooling [W]\tV2 T_air "
            "[C]\tV2 Heating [W]\tV2 Cooling [W]");
  size_t lines = 0;
  for (char ch : hourly) lines += ch == '\n';
  EXPECT_EQ(lines, 1u + 31 * 24);
  EXPECT_EQ(c.Bytes("COMFORT.TXT").substr(0, 42),
            "Month\tDay\tHour\tV1 T_air [C]\tV1 T_mrt [C]\r\n");
  EXPECT_NE(c.Bytes("MUK.LIS").find("July\t"), std::string::npos);
  // Plausible for an office in Denver's July: held between 16 and 28 C.
  DaneResult dane = ReadDaneResult(c.case_folder, 1);
  EXPECT_EQ(dane.hours.size(), 31u * 24);
  EXPECT_EQ(MukFingerprint(c.case_folder), sum.substr(14, 16));
  if (std::getenv("MUK_SHOW")) std::printf("%s\n%s", sum.c_str(), c.Bytes("MUK.LIS").c_str());
}

TEST(Muk, AFailedRunLeavesItsErrorAndNoResult) {
  ExampleCase c;
  c.RunAll();
  std::filesystem::remove(ToFsPath(JoinPath(c.case_folder, "DANE.RES")));
  const std::string status = c.Run(kMuk, kMukDat4Damaged, RunMuk);
  EXPECT_EQ(status.substr(0, 16), "  603 MUK       ");
  EXPECT_NE(status.find("run DANE again"), std::string::npos) << status;
  EXPECT_EQ(c.Bytes("MUK.SUM"), "<missing>");
  EXPECT_EQ(testing::ErrorTableText(603).substr(0, 44),
            "MUK: The results of one of the modules befor");
  // DAT4.DAT changed after DANE ran: DANE's results are out of date.
  ExampleCase d;
  d.RunAll();
  std::string dat4 = d.Bytes("DAT4.DAT");
  d.Put("DAT4.DAT", "4" + dat4.substr(1));
  EXPECT_EQ(d.Run(kMuk, kMukDat4Damaged, RunMuk).substr(0, 5), "  603");
  EXPECT_EQ(d.Bytes("HOURLY.TXT"), "<missing>");
}

}  // namespace
}  // namespace zelmo::modules
