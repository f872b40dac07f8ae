// What every fuzz target shares: a project folder with one case folder under
// a temporary root, a session wired to the scripted fakes, and one file
// written with the fuzzer's bytes before the reader runs on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::fuzz {

class FuzzCase {
 public:
  FuzzCase();
  // Writes the bytes as `name` in the case folder (or, with `in_project`, in
  // the project folder) and returns its path.
  std::string Put(const std::string& name, const uint8_t* data, size_t size,
                  bool in_project = false);
  Session& session() { return fakes_.session; }
  Workspace& ws() { return fakes_.ws(); }
  testing::FakeDialogs& dialogs() { return fakes_.dialogs; }

 private:
  testing::TempDir root_;
  testing::FakeSession fakes_;
};

// One case for the whole run of a target: the folders are made once.
FuzzCase& TheCase();

// Runs `read` and swallows the one failure a reader may raise, FileError: a
// damaged file is reported, never a crash. Anything else escapes and is a
// finding.
template <typename Read>
void Survive(Read read) {
  try {
    read();
  } catch (const FileError&) {
  }
}

}  // namespace zelmo::fuzz
