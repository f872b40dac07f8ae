#include "modules/contract.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/text_file.h"

namespace zelmo::modules {
namespace {

namespace fs = std::filesystem;

class ContractTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("zelmo_contract_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
            "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir_);
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }
  std::string Folder() const { return dir_.string(); }
  std::string Bytes(const std::string& name) const {
    return ReadAllBytes((dir_ / name).string()).value_or("<missing>");
  }
  fs::path dir_;
};

TEST(Fingerprint, TellsPiecesApartByTheirBounds) {
  EXPECT_EQ(Fingerprint().Text(), "cbf29ce484222325");
  EXPECT_NE(Fingerprint().Add("ab").Add("c").Text(), Fingerprint().Add("a").Add("bc").Text());
  EXPECT_EQ(Fingerprint().Add("DAT1").Text(), Fingerprint().Add("DAT1").Text());
}

TEST_F(ContractTest, AResultReadsBackOnlyWithItsWriterAndFingerprint) {
  std::string path = Folder() + "/PLOR.RES";
  WriteResult(path, kPlor, "00000000000000ab", {"1 2", "3"});
  EXPECT_EQ(Bytes("PLOR.RES"), "ZELMO-QRN PLOR 00000000000000ab\r\n1 2\r\n3\r\n");
  EXPECT_EQ(ReadResult(path, kPlor, "00000000000000ab", 201),
            (std::vector<std::string>{"1 2", "3"}));
  struct Case {
    std::string file;
    ModuleId writer;
    std::string fingerprint;
    std::string message;
  } cases[] = {
      {path, kPlor, "00000000000000ac",
       "The results of PLOR (PLOR.RES) are out of date: run PLOR again"},
      {path, kNeb, "00000000000000ab",
       "The results of NEB (PLOR.RES) are out of date: run NEB again"},
      {Folder() + "/NEB.RES", kNeb, "00000000000000ab",
       "The results of NEB (NEB.RES) are missing: run NEB again"},
  };
  for (const auto& c : cases) {
    try {
      ReadResult(c.file, c.writer, c.fingerprint, 201);
      ADD_FAILURE() << c.message;
    } catch (const ModuleFailure& failure) {
      EXPECT_EQ(failure.code(), 201);
      EXPECT_EQ(failure.what(), c.message);
    }
  }
}

TEST_F(ContractTest, TheStatusFileSaysWhatEveryEndingWas) {
  struct Case {
    std::function<void(const std::string&)> body;
    int exit;
    std::string status;
  } cases[] = {
      {[](const std::string&) {}, 0, "    0 PLOR      \r\n\"\"\r\n0\r\n"},
      {[](const std::string&) { throw ModuleFailure(103, "Volume 2, \"open\""); }, 1,
       "  103 PLOR      \r\n\"Volume 2, 'open'\"\r\n0\r\n"},
      {[](const std::string&) { throw FileError("/c/DAT1.DAT", 7, "Not a number"); }, 1,
       "  102 PLOR      \r\n\"Not a number: /c/DAT1.DAT, line 7\"\r\n0\r\n"},
      {[](const std::string&) { throw std::bad_alloc(); }, 1,
       "  199 PLOR      \r\n\"Out of memory\"\r\n0\r\n"},
  };
  for (const auto& c : cases) {
    std::string folder = Folder();
    char* argv[] = {const_cast<char*>("PLOR"), folder.data()};
    EXPECT_EQ(RunModule(2, argv, kPlor, 102, c.body), c.exit);
    EXPECT_EQ(Bytes("ECM.Dat"), c.status);
  }
  char* no_folder[] = {const_cast<char*>("PLOR"), const_cast<char*>("/no/such/folder/")};
  EXPECT_EQ(RunModule(2, no_folder, kPlor, 102, [](const std::string&) {}), 2);
}

}  // namespace
}  // namespace zelmo::modules
