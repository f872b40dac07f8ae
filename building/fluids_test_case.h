// A case folder for the tests of the fluid, connection and ventilation files
// and screens: THERMAL.INP with every module done, and SURFACE.INP written
// from the two sides of each element.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/testing/fakes.h"

namespace zelmo::testing {

struct FluidsCase {
  FluidsCase() {
    fake.ws().CasePath = dir.path();
    WriteBytes(dir / "THERMAL.INP", "------\r\n");
  }

  // One element per (front, back) pair, named "E1", "E2", ...
  void Elements(const std::vector<std::pair<std::string, std::string>>& sides) {
    std::string bytes;
    int n = 0;
    for (const auto& [front, back] : sides) {
      bytes += "E" + std::to_string(++n) + "\r\n";
      for (int field = 1; field <= 29; ++field) {
        std::string text = field == 7 ? front : field == 8 ? back : "0";
        bytes += "\t" + text + "\r\n";
      }
    }
    WriteBytes(dir / "SURFACE.INP", bytes);
  }

  std::string Bytes(const std::string& name) const { return ReadBytes(dir / name); }
  void Put(const std::string& name, const std::string& bytes) const {
    WriteBytes(dir / name, bytes);
  }

  TempDir dir;
  FakeSession fake;
};

}  // namespace zelmo::testing
