// A project for the tests of the material and wall libraries: two cases,
// each with THERMAL.INP of every module done, and scripted answers for the
// input box.
#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "core/inpbox.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {

// Types 1 to `predefined` and then the given user Types, each with a
// conductivity of 1.
inline std::string Materials(int predefined, const std::vector<int>& own = {}) {
  std::string bytes;
  for (int type = 1; type <= predefined; ++type) {
    bytes += std::to_string(type) + "\tM" + std::to_string(type) + "\t1\t.2\t1000\r\n";
  }
  for (int type : own)
    bytes += std::to_string(type) + "\tOwn" + std::to_string(type) + "\t1\t1\t1\r\n";
  return bytes;
}

struct WallCase {
  WallCase() {
    fake.ws().ProjectPath = dir.path();
    fake.ws().CasePath = dir / "case1";
    Put("CASES.LIB", "case1 - First\r\ncase2 - Second\r\n");
    for (const char* name : {"case1", "case2"}) {
      std::filesystem::create_directories(ToFsPath(dir / name));
      Put(std::string(name) + "/THERMAL.INP", "------\r\n");
    }
    fake.dialogs.screens["InpBox"] = [this](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      asked.push_back(box.caption + ": " + box.Label1.caption + "[" + box.Text1.text + "]");
      if (answers.empty()) return box.Cancel();
      box.Text1.text = answers.front();
      answers.pop_front();
      box.Ok();
    };
  }

  // An element of `case_name` whose main construction (field 15) and hole
  // construction (field 22) are the given walls.
  void Element(const std::string& case_name, const std::string& main, const std::string& hole) {
    std::string bytes = "E\r\n";
    for (int field = 1; field <= 29; ++field) {
      bytes += "\t" + std::string(field == 15 ? main : field == 22 ? hole : "0") + "\r\n";
    }
    Put(case_name + "/SURFACE.INP", bytes);
  }

  std::string Bytes(const std::string& name) const { return ReadBytes(dir / name); }
  void Put(const std::string& name, const std::string& bytes) const {
    WriteBytes(dir / name, bytes);
  }

  TempDir dir;
  FakeSession fake;
  std::deque<std::string> answers;
  std::vector<std::string> asked;
};

}  // namespace zelmo::testing
