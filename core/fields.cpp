#include "core/fields.h"

#include <cmath>

#include "core/dialogs.h"

namespace zelmo {

std::string OneLineText(const std::string& text) {
  std::string line;
  line.reserve(text.size());
  for (char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7F) line.push_back(c);
  }
  return line;
}

std::string FieldBefore(const std::string& text, const std::string& delimiter) {
  if (delimiter.empty()) return {};
  size_t at = text.find(delimiter);
  return at == std::string::npos ? std::string() : text.substr(0, at);
}

std::string FieldAfter(const std::string& text, const std::string& delimiter) {
  if (text.empty() || delimiter.empty()) return {};
  size_t at = text.find(delimiter);
  return at == std::string::npos ? std::string() : text.substr(at + delimiter.size());
}

std::string NthFieldBefore(const std::string& text, const std::string& delimiter, int n) {
  std::string rest = text;
  for (int i = 1; i < n; ++i) rest = FieldAfter(rest, delimiter);
  return FieldBefore(rest, delimiter);
}

std::string NthFieldAfter(const std::string& text, const std::string& delimiter, int n) {
  std::string rest = text;
  for (int i = 0; i < n; ++i) rest = FieldAfter(rest, delimiter);
  return rest;
}

std::string FieldBetween(const std::string& text, const std::string& first,
                         const std::string& second) {
  return FieldBefore(FieldAfter(text, first), second);
}

std::string ToUpper(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    unsigned char u = static_cast<unsigned char>(c);
    if ((u >= 'a' && u <= 'z') || (u >= 0xE0 && u <= 0xFE && u != 0xF7)) {
      c = static_cast<char>(u - 32);
    } else if (u == 0x9A || u == 0x9C || u == 0x9E) {
      c = static_cast<char>(u - 16);  // š œ ž
    } else if (u == 0xFF) {
      c = static_cast<char>(0x9F);  // ÿ
    }
  }
  return out;
}

std::string ToLower(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    unsigned char u = static_cast<unsigned char>(c);
    if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7)) {
      c = static_cast<char>(u + 32);
    } else if (u == 0x8A || u == 0x8C || u == 0x8E) {
      c = static_cast<char>(u + 16);
    } else if (u == 0x9F) {
      c = static_cast<char>(0xFF);
    }
  }
  return out;
}

bool EqualsIgnoringCase(const std::string& a, const std::string& b) {
  return ToLower(a) == ToLower(b);
}

int16_t MaxInt(int16_t a, int16_t b) { return a > b ? a : b; }
int16_t MinInt(int16_t a, int16_t b) { return a < b ? a : b; }
void SwapText(std::string& a, std::string& b) { a.swap(b); }

bool IsDigitsOnly(const std::string& text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

bool IsDigitsOrEmpty(const std::string& text) { return text.empty() || IsDigitsOnly(text); }

std::string PadField(const std::string& text, int width, const std::string& mode,
                     Dialogs* dialogs) {
  if (width < 0) width = 0;
  std::string cut = text.size() > static_cast<size_t>(width) ? text.substr(0, width) : text;
  int blanks = width - static_cast<int>(cut.size());
  if (mode == "V" || mode == "v") return cut + std::string(blanks, ' ');
  if (mode == "H" || mode == "h") return std::string(blanks, ' ') + cut;
  if (mode == "C" || mode == "c") {
    int behind = static_cast<int>(std::nearbyint(blanks / 2.0));  // half to even
    return std::string(blanks - behind, ' ') + cut + std::string(behind, ' ');
  }
  if (dialogs) dialogs->MsgBox("Ange V,H eller C ", mb::kOkOnly, "");
  return cut;
}

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> fields;
  size_t start = 0;
  while (true) {
    size_t at = line.find('\t', start);
    if (at == std::string::npos) {
      fields.push_back(line.substr(start));
      return fields;
    }
    fields.push_back(line.substr(start, at - start));
    start = at + 1;
  }
}

}  // namespace zelmo
