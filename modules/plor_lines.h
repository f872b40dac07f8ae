// A walk over the lines of a result file of the geometry modules (PLOR.RES,
// NEB.RES): each line opens with a tag and holds tab-separated values; a line
// that is not as expected fails with the file and its line number, the head
// line counted as the first.
#pragma once

#include <string>
#include <vector>

#include "modules/geometry.h"

namespace zelmo::modules {

class ResultLines {
 public:
  ResultLines(const std::string& path, const std::vector<std::string>& lines)
      : path_(path), lines_(lines) {}

  bool AtEnd() const { return next_ >= lines_.size(); }
  // The next line cut at its tabs; it must open with `tag` and hold at
  // least `fields` values after it.
  std::vector<std::string> Next(const std::string& tag, size_t fields);
  double Real(const std::string& text) const;
  int Whole(const std::string& text, int low, int high) const;
  // A line P of `count` points.
  std::vector<Vec3> Points(size_t count);
  // Fails with `what` at the next line when there is one.
  void ExpectEnd(const std::string& what);
  [[noreturn]] void Fail(const std::string& what) const;

 private:
  const std::string& path_;
  const std::vector<std::string>& lines_;
  size_t next_ = 0;
};

}  // namespace zelmo::modules
