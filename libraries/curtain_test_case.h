// A project folder with one case, case1, registered in CASES.LIB, for the
// tests of the curtain library, the curtain schedule and the output
// specification. THERMAL.INP starts with every module done.
#pragma once

#include <string>
#include <vector>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {

struct CurtainCase {
  CurtainCase() {
    fake.ws().ProjectPath = dir.path();
    fake.ws().CasePath = dir / "case1";
    WriteBytes(dir / "CASES.LIB", "case1 - Test\r\n");
    WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
  }
  // SURFACE.INP of case1: one element per list of (field, text); the other
  // fields are "0" and both sides face Outdoor.
  void Elements(const std::vector<std::vector<std::pair<int, std::string>>>& elements) {
    std::string bytes;
    for (const auto& set : elements) {
      bytes += "E\r\n";
      for (int field = 1; field <= 29; ++field) {
        std::string text = "0";
        for (const auto& [at, value] : set) {
          if (at == field) text = value;
        }
        bytes += "\t" + text + "\r\n";
      }
    }
    Put("SURFACE.INP", bytes);
  }
  std::string Bytes(const std::string& name) const { return ReadBytes(dir / ("case1/" + name)); }
  void Put(const std::string& name, const std::string& bytes) const {
    WriteBytes(dir / ("case1/" + name), bytes);
  }

  TempDir dir;
  FakeSession fake;
};

}  // namespace zelmo::testing
