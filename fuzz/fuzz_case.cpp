#include "fuzz/fuzz_case.h"

#include "core/file_system.h"

namespace zelmo::fuzz {

FuzzCase::FuzzCase() {
  Workspace& w = ws();
  w.LocalPath = root_.path();
  w.MainDirectory = root_.path();
  w.ProjectName = "proj";
  w.ProjectPath = root_ / "proj";
  w.CaseName = "case1";
  w.CasePath = JoinPath(w.ProjectPath, "case1");
  CreateFolderTree(w.CasePath);
}

std::string FuzzCase::Put(const std::string& name, const uint8_t* data, size_t size,
                          bool in_project) {
  std::string path = JoinPath(in_project ? ws().ProjectPath : ws().CasePath, name);
  testing::WriteBytes(path, std::string(reinterpret_cast<const char*>(data), size));
  return path;
}

FuzzCase& TheCase() {
  static FuzzCase the_case;
  return the_case;
}

}  // namespace zelmo::fuzz
