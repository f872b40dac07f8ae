#include "modules/corv_fent_results.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "core/text_file.h"

namespace zelmo::modules {

std::string ResultNumber(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.12g", value);
  return text;
}

std::string ResultNumbers(const std::vector<double>& values) {
  std::string text;
  for (double value : values) text += "\t" + ResultNumber(value);
  return text;
}

void WriteReport(const std::string& path, const ModuleId& module, const std::string& text) {
  if (!WriteDerivedBytes(path, text)) {
    throw ModuleFailure(module.base + kWriteFailed, "Cannot write " + path);
  }
}

ResultCursor::ResultCursor(const std::vector<std::string>& lines, const ModuleId& writer,
                           std::string file, int code)
    : lines_(lines), writer_(writer), file_(std::move(file)), code_(code) {}

void ResultCursor::Fail() const {
  // The head line is line 1 of the file.
  throw ModuleFailure(code_, "The results of " + std::string(writer_.name) + " (" + file_ +
                                 ") are damaged at line " + std::to_string(next_ + 1) + ": run " +
                                 writer_.name + " again");
}

std::vector<std::string> ResultCursor::Fields(const std::string& tag, int count) {
  if (next_ >= lines_.size()) {
    ++next_;
    Fail();
  }
  const std::string& line = lines_[next_++];
  std::vector<std::string> fields;
  size_t at = 0;
  while (true) {
    const size_t tab = line.find('\t', at);
    fields.push_back(line.substr(at, tab == std::string::npos ? std::string::npos : tab - at));
    if (tab == std::string::npos) break;
    at = tab + 1;
  }
  if (fields.front() != tag) Fail();
  fields.erase(fields.begin());
  if (count >= 0 && fields.size() != static_cast<size_t>(count)) Fail();
  return fields;
}

int ResultCursor::Count(const std::string& tag, int lowest, int highest) {
  return Whole(Fields(tag, 1)[0], lowest, highest);
}

std::vector<double> ResultCursor::Values(const std::string& tag, size_t count) {
  const auto fields = Fields(tag, static_cast<int>(count));
  std::vector<double> values;
  values.reserve(count);
  for (const auto& field : fields) values.push_back(Value(field));
  return values;
}

int ResultCursor::Whole(const std::string& field, int lowest, int highest) const {
  const double value = Value(field);
  if (value != std::floor(value) || value < lowest || value > highest) Fail();
  return static_cast<int>(value);
}

double ResultCursor::Value(const std::string& field) const {
  if (field.empty()) Fail();
  char* end = nullptr;
  const double value = std::strtod(field.c_str(), &end);
  if (end != field.c_str() + field.size() || !std::isfinite(value)) Fail();
  return value;
}

void ResultCursor::End() const {
  if (next_ != lines_.size()) Fail();
}

}  // namespace zelmo::modules
