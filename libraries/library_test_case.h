// A project for the tests of the construction libraries: two cases, case1
// (the current one) and case2, each with THERMAL.INP of every module done,
// the example project's glass, gas and window type files unless told not
// to, and scripted answers for the input box.
#pragma once

#include <cstdlib>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "core/file_system.h"
#include "core/inpbox.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {

inline std::string ExampleFile(const std::string& name) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  return ReadBytes(std::string(source ? source : ".") + "/system/tree/ZELMOPROJ/Example/" + name);
}

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

using Element = std::vector<std::pair<int, std::string>>;  // (field, text)

struct LibraryCase {
  explicit LibraryCase(bool example = true) {
    fake.ws().ProjectPath = dir.path();
    fake.ws().CasePath = dir / "case1";
    fake.ws().MainDirectory = dir / "main";
    CreateFolderTree(fake.ws().MainDirectory);
    for (const char* name : {"case1", "case2"}) {
      CreateFolderTree(dir / name);
      Put(std::string(name) + "/THERMAL.INP", "------\r\n");
    }
    Put("CASES.LIB", "case1 - One\r\ncase2 - Two\r\n");
    for (const char* name : {"GLASSTP.INP", "GASTP.INP", "WNDTP.LIB"}) {
      if (example) Put(name, ExampleFile(std::string(name) + "_Temp"));
    }
    // The input box records what it asked and answers the next of `answers`;
    // none left cancels it.
    fake.dialogs.screens["InpBox"] = [this](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      asked.push_back(box.caption + ": " + box.Label1.caption + "[" + box.Text1.text + "]");
      if (answers.empty()) return box.Cancel();
      box.Text1.text = answers.front();
      answers.pop_front();
      box.Ok();
    };
  }
  std::string Path(const std::string& name) const { return dir / name; }
  void Put(const std::string& name, const std::string& bytes) const {
    WriteBytes(dir / name, bytes);
  }
  std::string Bytes(const std::string& name) const { return ReadBytes(dir / name); }
  // SURFACE.INP of `case_name`: an element "E" for each list of fields; the
  // other fields are "0" (both sides face Outdoor).
  void Elements(const std::vector<Element>& elements, const std::string& case_name = "case1") {
    std::string bytes;
    for (const auto& set : elements) {
      bytes += "E\r\n";
      for (int field = 1; field <= 29; ++field) {
        std::string text = "0";
        for (const auto& [at, value] : set) text = at == field ? value : text;
        bytes += "\t" + text + "\r\n";
      }
    }
    Put(case_name + "/SURFACE.INP", bytes);
  }
  bool AllStale() const {
    return Bytes("case1/THERMAL.INP") == "XXXXXX\r\n" && Bytes("case2/THERMAL.INP") == "XXXXXX\r\n";
  }
  // The last message as "title|text".
  std::string Said() const { return fake.dialogs.Last().title + "|" + fake.dialogs.Last().text; }
  int Style() const { return fake.dialogs.Last().style; }

  TempDir dir;
  FakeSession fake;
  std::deque<std::string> answers;
  std::vector<std::string> asked;
};

}  // namespace zelmo::testing
