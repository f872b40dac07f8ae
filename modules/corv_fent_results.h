// The lines of the conduction and window modules' result files: fields
// separated by TAB, numbers written with twelve significant digits, read back
// strictly, so a damaged file fails with the reading module's code naming
// the file and line and the module to run again.
#pragma once

#include <string>
#include <vector>

#include "modules/contract.h"

namespace zelmo::modules {

// A number as the result files write it ("%.12g").
std::string ResultNumber(double value);
// Each value behind a TAB.
std::string ResultNumbers(const std::vector<double>& values);

// Writes a module's report (.LIS) whole; a write that fails throws the
// module's kWriteFailed code.
void WriteReport(const std::string& path, const ModuleId& module, const std::string& text);

class ResultCursor {
 public:
  ResultCursor(const std::vector<std::string>& lines, const ModuleId& writer, std::string file,
               int code);
  // The next line, which must start with the field `tag`; the fields after
  // it (`count` of them, or any number when count is negative).
  std::vector<std::string> Fields(const std::string& tag, int count);
  // The line `tag` TAB n, n a whole number from lowest to highest.
  int Count(const std::string& tag, int lowest, int highest);
  // The line `tag` and `count` numbers.
  std::vector<double> Values(const std::string& tag, size_t count);
  int Whole(const std::string& field, int lowest, int highest) const;
  double Value(const std::string& field) const;
  // Nothing may follow the last record.
  void End() const;
  [[noreturn]] void Fail() const;

 private:
  const std::vector<std::string>& lines_;
  ModuleId writer_;
  std::string file_;
  int code_;
  size_t next_ = 0;
};

}  // namespace zelmo::modules
