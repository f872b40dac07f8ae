#include "core/text_file.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>

#include "core/fields.h"
#include "core/live_process.h"

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace zelmo {
namespace fs = std::filesystem;

namespace {

// Code points of the bytes 0x80 to 0x9F in Windows-1252; 0 where unassigned.
constexpr std::array<char32_t, 32> kHighTable = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Two names in a folder that differ only in the case of their letters. The
// names are compared as the program's single-byte text, so "Åsa" finds
// "åsa"; a name with a character outside that code page is compared exactly.
bool SameIgnoringCase(const fs::path& a, const fs::path& b) {
  std::string a_text = FromFsPath(a);
  std::string b_text = FromFsPath(b);
  if (ToFsPath(a_text) != a || ToFsPath(b_text) != b) return a == b;
  return EqualsIgnoringCase(a_text, b_text);
}

// Where each line lies in the bytes of a file. Lines end at CR LF, at a CR
// or a LF alone, and at the end of the file. The ends are searched with the
// library's block search, a file of schedules being several hundred
// kilobytes.
std::vector<std::pair<size_t, size_t>> LineSpans(const std::string& bytes) {
  std::vector<std::pair<size_t, size_t>> spans;
  const char* const begin = bytes.data();
  const char* const end = begin + bytes.size();
  const char* at = begin;
  const char* lf = nullptr;  // the next LF at or after `at`, or end
  while (at < end) {
    if (lf < at) {
      lf = static_cast<const char*>(std::memchr(at, '\n', static_cast<size_t>(end - at)));
      if (!lf) lf = end;
    }
    const char* cr = static_cast<const char*>(std::memchr(at, '\r', static_cast<size_t>(lf - at)));
    const char* stop = cr ? cr : lf;
    spans.emplace_back(static_cast<size_t>(at - begin), static_cast<size_t>(stop - at));
    if (stop == end) break;
    at = stop + 1;
    if (*stop == '\r' && at < end && *at == '\n') ++at;
  }
  return spans;
}

std::vector<std::string> SplitLines(const std::string& bytes) {
  std::vector<std::string> lines;
  for (const auto& [start, size] : LineSpans(bytes)) lines.emplace_back(bytes, start, size);
  return lines;
}

// The bytes reach the disk before the name moves, so a power cut leaves the
// old file or the new one, never an empty one. A file made again from the
// others at every use need not outlive a power cut: it goes only as far as
// the system's cache (`durable` false), and the rename still shows the old
// file or the new one to every reader.
bool WriteAndSync(const fs::path& temp, const std::string& bytes, bool durable) {
#ifdef _WIN32
  FILE* file = _wfopen(temp.c_str(), L"wb");
#else
  FILE* file = std::fopen(temp.c_str(), "wb");
#endif
  if (!file) return false;
  bool written =
      std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && std::fflush(file) == 0;
  if (durable) {
#ifdef _WIN32
    written = written && _commit(_fileno(file)) == 0;
#else
    written = written && fsync(fileno(file)) == 0;
#endif
  }
  return std::fclose(file) == 0 && written;
}

// A file the user marked read-only is not replaced behind his back.
bool ReadOnlyFile(const fs::path& target) {
  std::error_code ec;
  fs::file_status status = fs::status(target, ec);
  if (ec || !fs::exists(status)) return false;
  return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

void SweepTemporaries(const fs::path& folder) {
  const long long self = CurrentProcess();
  const auto now = fs::file_time_type::clock::now();
  std::error_code ec;
  for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, ec), end;
       !ec && it != end; it.increment(ec)) {
    const std::optional<long long> owner = TemporaryOwner(FromFsPath(it->path().filename()));
    std::error_code file_ec;
    if (!owner || !it->is_regular_file(file_ec)) continue;
    const auto written = it->last_write_time(file_ec);
    const bool old = !file_ec && now - written > std::chrono::minutes(kStaleTemporaryMinutes);
    // Another thread of this process may be writing its own right now.
    if (old || (*owner != self && !ProcessIsAlive(*owner))) fs::remove(it->path(), file_ec);
  }
}

bool WriteBytesTo(const fs::path& target, const fs::path& temp, const std::string& bytes,
                  bool durable = true) {
  if (ReadOnlyFile(target)) return false;
  SweepTemporaries(target.parent_path());
  std::error_code ignored;
  if (!WriteAndSync(temp, bytes, durable)) {
    fs::remove(temp, ignored);
    return false;
  }
  // One step replaces the file: rename on POSIX, a replacing move on Windows.
  std::error_code ec;
  fs::rename(temp, target, ec);
  if (ec) {
    fs::remove(temp, ignored);
    return false;
  }
#ifndef _WIN32
  // The new name is on disk too.
  if (!durable) return true;
  if (int folder = open(target.parent_path().empty() ? "." : target.parent_path().c_str(),
                        O_RDONLY | O_DIRECTORY);
      folder >= 0) {
    fsync(folder);
    close(folder);
  }
#endif
  return true;
}

}  // namespace

fs::path ToFsPath(const std::string& cp1252) {
  std::string utf8 = Utf8FromCp1252(cp1252);
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string FromFsPath(const fs::path& path) {
  std::u8string utf8 = path.u8string();
  return Cp1252FromUtf8(std::string(utf8.begin(), utf8.end()));
}

FileError::FileError(std::string path, int line, std::string what)
    : std::runtime_error(what), path_(std::move(path)), line_(line) {}

std::string FileError::UserText() const {
  std::string text = what();
  text += "\r" + path_;
  if (line_ > 0) text += ", line " + std::to_string(line_);
  return text;
}

std::string Utf8FromCp1252(const std::string& bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (char c : bytes) {
    unsigned char u = static_cast<unsigned char>(c);
    char32_t cp = u;
    if (u >= 0x80 && u <= 0x9F) cp = kHighTable[u - 0x80] ? kHighTable[u - 0x80] : u;
    if (cp < 0x80) {
      out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
      out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
      out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
  }
  return out;
}

std::string Cp1252FromUtf8(const std::string& utf8) {
  std::string out;
  out.reserve(utf8.size());
  size_t i = 0;
  while (i < utf8.size()) {
    unsigned char u = static_cast<unsigned char>(utf8[i]);
    char32_t cp;
    size_t len;
    if (u < 0x80) {
      cp = u, len = 1;
    } else if ((u & 0xE0) == 0xC0) {
      cp = u & 0x1F, len = 2;
    } else if ((u & 0xF0) == 0xE0) {
      cp = u & 0x0F, len = 3;
    } else if ((u & 0xF8) == 0xF0) {
      cp = u & 0x07, len = 4;
    } else {
      out.push_back('?');
      ++i;
      continue;
    }
    if (i + len > utf8.size()) {
      out.push_back('?');
      break;
    }
    for (size_t k = 1; k < len; ++k) cp = (cp << 6) | (utf8[i + k] & 0x3F);
    i += len;
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
      out.push_back(static_cast<char>(cp));
      continue;
    }
    char byte = '?';
    for (size_t k = 0; k < kHighTable.size(); ++k) {
      if (kHighTable[k] == cp) byte = static_cast<char>(0x80 + k);
    }
    out.push_back(byte);
  }
  return out;
}

fs::path ResolvePath(const fs::path& path) {
  std::error_code ec;
  if (path.empty() || fs::exists(path, ec)) return path;
  fs::path resolved = path.root_path();
  bool matching = true;
  for (const auto& part : path.relative_path()) {
    if (matching) {
      fs::path exact = resolved / part;
      if (fs::exists(exact, ec)) {
        resolved = exact;
        continue;
      }
      bool found = false;
      fs::path folder = resolved.empty() ? fs::path(".") : resolved;
      for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (SameIgnoringCase(it->path().filename(), part)) {
          resolved = resolved.empty() ? it->path().filename() : resolved / it->path().filename();
          found = true;
          break;
        }
      }
      if (found) continue;
      matching = false;
    }
    resolved /= part;
  }
  return resolved;
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  char last = folder.back();
  if (last == '/' || last == static_cast<char>(fs::path::preferred_separator)) return folder + name;
  return folder + static_cast<char>(fs::path::preferred_separator) + name;
}

bool FileCanOpen(const std::string& path) {
  if (path.empty()) return false;
  fs::path real = ResolvePath(ToFsPath(path));
  std::error_code ec;
  if (!fs::is_regular_file(real, ec)) return false;
  std::ifstream in(real, std::ios::binary);
  return static_cast<bool>(in);
}

bool FolderExists(const std::string& path) {
  if (path.empty()) return false;
  std::error_code ec;
  return fs::is_directory(ResolvePath(ToFsPath(path)), ec);
}

std::string TrimBlanks(const std::string& text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  size_t last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

std::optional<std::string> ReadAllBytes(const std::string& path) {
  if (path.empty()) return std::nullopt;
  // The name is resolved and the file opened once.
  const fs::path real = ResolvePath(ToFsPath(path));
  std::error_code ec;
  if (!fs::is_regular_file(real, ec)) return std::nullopt;
  std::ifstream in(real, std::ios::binary);
  if (!in) return std::nullopt;
  // Read in one piece where the size is known; a stream of unknown length
  // (a pipe) is read as it comes.
  in.seekg(0, std::ios::end);
  const std::streamoff size = in.tellg();
  in.seekg(0, std::ios::beg);
  if (size > 0) {
    std::string bytes(static_cast<size_t>(size), '\0');
    if (in.read(bytes.data(), size)) return bytes;
    in.clear();
    in.seekg(0, std::ios::beg);
  }
  std::ostringstream buffer;
  buffer << in.rdbuf();
  return buffer.str();
}

std::optional<std::vector<std::string>> ReadAllLines(const std::string& path) {
  auto bytes = ReadAllBytes(path);
  if (!bytes) return std::nullopt;
  return SplitLines(*bytes);
}

TextReader::TextReader(const std::string& path) : path_(path) {
  auto bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "File not found");
  bytes_ = std::move(*bytes);
  Split();
}

TextReader::TextReader(std::string path, const std::vector<std::string>& lines)
    : path_(std::move(path)) {
  for (const auto& line : lines) {
    bytes_ += line;
    bytes_ += "\r\n";
  }
  Split();
}

void TextReader::Split() {
  spans_ = LineSpans(bytes_);
  lines_.resize(spans_.size());
}

std::string TextReader::ReadLine() { return NextLine(); }

void TextReader::Skip(size_t count) {
  if (count > spans_.size() - std::min(next_, spans_.size())) {
    next_ = spans_.size();
    NextView();  // past the end: the reader's own failure
  }
  next_ += count;
}

std::string_view TextReader::NextView() {
  if (next_ >= spans_.size()) {
    throw FileError(path_, static_cast<int>(next_) + 1, "Input past end of file");
  }
  const auto [start, size] = spans_[next_++];
  return std::string_view(bytes_.data() + start, size);
}

const std::string& TextReader::NextLine() {
  std::string_view view = NextView();
  std::string& line = lines_[next_ - 1];
  line.assign(view.data(), view.size());
  return line;
}

void TextReader::Fail(const std::string& what) const {
  throw FileError(path_, static_cast<int>(next_), what);
}

namespace {
fs::path TemporaryPath(const fs::path& target) {
  fs::path temp = target;
  temp += ".tmp~" + std::to_string(CurrentProcess());
  return temp;
}
}  // namespace

std::string TemporaryOf(const std::string& path) {
  return FromFsPath(TemporaryPath(ResolvePath(ToFsPath(path))));
}

std::optional<long long> TemporaryOwner(const std::string& name) {
  const size_t mark = name.rfind(".tmp~");
  if (mark == std::string::npos || mark == 0) return std::nullopt;
  const std::string digits = name.substr(mark + 5);
  if (digits.empty() || digits.size() > 10 || !IsDigitsOnly(digits)) return std::nullopt;
  return std::stoll(digits);
}

bool WriteAllBytes(const std::string& path, const std::string& bytes) {
  fs::path target = ResolvePath(ToFsPath(path));
  return WriteBytesTo(target, TemporaryPath(target), bytes);
}

bool WriteBytesThrough(const std::string& path, const std::string& temp, const std::string& bytes) {
  return WriteBytesTo(ResolvePath(ToFsPath(path)), ResolvePath(ToFsPath(temp)), bytes);
}

bool WriteDerivedBytes(const std::string& path, const std::string& bytes) {
  fs::path target = ResolvePath(ToFsPath(path));
  return WriteBytesTo(target, TemporaryPath(target), bytes, false);
}

namespace {
std::string JoinCrLf(const std::vector<std::string>& lines) {
  std::string bytes;
  size_t size = 0;
  for (const auto& line : lines) size += line.size() + 2;
  bytes.reserve(size);
  for (const auto& line : lines) {
    bytes += line;
    bytes += "\r\n";
  }
  return bytes;
}
}  // namespace

bool WriteAllLines(const std::string& path, const std::vector<std::string>& lines) {
  return WriteAllBytes(path, JoinCrLf(lines));
}

bool AppendLine(const std::string& path, const std::string& line) {
  // The list is written whole with its new line, so an append that cannot be
  // completed leaves the list as it was.
  std::optional<std::string> old = ReadAllBytes(path);
  std::error_code ec;
  if (!old && fs::exists(ResolvePath(ToFsPath(path)), ec)) return false;
  std::string bytes = old.value_or("");
  // A last line without its end (a file edited by hand) is ended first, so
  // the new record does not run on from it.
  if (!bytes.empty() && bytes.back() != '\n' && bytes.back() != '\r') bytes += "\r\n";
  bytes += line + "\r\n";
  return WriteAllBytes(path, bytes);
}

std::string PathOnDisk(const std::string& path) { return FromFsPath(ResolvePath(ToFsPath(path))); }

void FailWrite(const std::string& path) {
  throw FileError(PathOnDisk(path), 0, "The file could not be written.");
}

std::string ListTempPath(const std::string& path) {
  size_t dot = path.find_last_of('.');
  size_t sep = path.find_last_of("/\\");
  if (dot == std::string::npos || (sep != std::string::npos && dot < sep)) return path + ".XXX";
  return path.substr(0, dot) + ".XXX";
}

bool RewriteListFileLines(const std::string& path,
                          const std::vector<std::optional<std::string>>& kept) {
  std::vector<std::string> lines;
  for (const auto& line : kept) {
    if (line) lines.push_back(*line);
  }
  return WriteBytesThrough(path, ListTempPath(path), JoinCrLf(lines));
}

}  // namespace zelmo
