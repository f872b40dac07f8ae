// Text files as the system keeps them: single-byte Windows-1252 bytes, lines
// ended by CR LF, a last line without its end read as a line. Every file is
// read or written whole; a whole-file write goes through a temporary file
// beside the target that is renamed over it.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelmo {

// A file read past its end, or otherwise unreadable in the middle of an
// operation. It names the file and the line, so the screen that catches it can
// say where the data is damaged.
class FileError : public std::runtime_error {
 public:
  FileError(std::string path, int line, std::string what);
  const std::string& path() const { return path_; }
  int line() const { return line_; }
  // The text the user is shown: what went wrong, the file and the line.
  std::string UserText() const;

 private:
  std::string path_;
  int line_;
};

// Finds an existing file or folder whose name differs from `path` only in the
// case of its letters, component by component. Returns `path` itself when it
// exists as given or nothing matches, so a write goes to the exact form.
std::filesystem::path ResolvePath(const std::filesystem::path& path);

// The file system's path for a path held as Windows-1252 text, and back.
std::filesystem::path ToFsPath(const std::string& cp1252);
std::string FromFsPath(const std::filesystem::path& path);

// Joins a folder and a name with the platform's separator.
std::string JoinPath(const std::string& folder, const std::string& name);

// True when the file can be opened for reading. Every failure gives false.
bool FileCanOpen(const std::string& path);
bool FolderExists(const std::string& path);

// Blanks (U+0020 only) removed at both ends; TABs stay.
std::string TrimBlanks(const std::string& text);

// All lines of a file, without their ends. Nothing when it cannot be opened.
std::optional<std::vector<std::string>> ReadAllLines(const std::string& path);

// A whole file read into memory and handed out line by line. Reading past the
// last line throws FileError naming the file and the line wanted.
class TextReader {
 public:
  // Throws FileError (line 0) when the file cannot be opened.
  explicit TextReader(const std::string& path);
  TextReader(std::string path, const std::vector<std::string>& lines);

  bool AtEnd() const { return next_ >= spans_.size(); }
  // Back to the first line.
  void Rewind() { next_ = 0; }
  // The next line as it stands.
  std::string ReadLine();
  // The same without a copy, for readers of large files; valid as long as
  // the reader lives.
  const std::string& NextLine();
  // The next line as a view into the file's bytes, for readers that take
  // a line apart at once; valid as long as the reader lives.
  std::string_view NextView();
  // Passes over `count` lines, as reading them would.
  void Skip(size_t count);
  // The next line with blanks removed at both ends.
  std::string ReadTrimmedLine() { return TrimBlanks(ReadLine()); }
  // Number of the line read last, from 1.
  int LineNumber() const { return static_cast<int>(next_); }
  const std::string& path() const { return path_; }
  // Raises FileError on the line read last, for a value that cannot be taken.
  [[noreturn]] void Fail(const std::string& what) const;

 private:
  void Split();

  std::string path_;
  // The file's bytes and where each line lies in them; a line is made a
  // string only when it is asked for as one.
  std::string bytes_;
  std::vector<std::pair<size_t, size_t>> spans_;
  std::vector<std::string> lines_;
  size_t next_ = 0;
};

// Writes the lines, each ended by CR LF, as the whole file: into a file
// beside it, flushed to disk, then renamed over it in one step. An existing
// file whose name differs only in case is replaced; a file marked read-only
// is not. Returns false on failure, and then the old file stands as it was.
bool WriteAllLines(const std::string& path, const std::vector<std::string>& lines);
// Writes the bytes exactly as given, as the whole file.
bool WriteAllBytes(const std::string& path, const std::string& bytes);
// The same for a file made again from the others whenever it is used (the
// input of the calculation modules): replaced in one step like every file,
// but not forced to the disk, as a power cut costs only its next remaking.
bool WriteDerivedBytes(const std::string& path, const std::string& bytes);
// The same through a temporary named by the caller (a conversion's "X"
// copy beside the file): the temporary is filled and renamed over `path`,
// and removed again when the write fails.
bool WriteBytesThrough(const std::string& path, const std::string& temp, const std::string& bytes);
// The file beside `path` that a whole-file write fills before it is renamed
// over `path`. Each process has its own, so that processes writing the same
// file at once (cases run side by side all write the project's window
// library) never write into one another's.
std::string TemporaryOf(const std::string& path);
// The process whose whole-file write a file of this name is the temporary
// of ("HVAC_Cal.Inp.tmp~4711": 4711), or nothing for any other name.
std::optional<long long> TemporaryOwner(const std::string& name);
// How old a temporary of a process still running may grow before it counts
// as left over: a write takes seconds, so only a process whose number came
// back to another program keeps one this long.
inline constexpr int kStaleTemporaryMinutes = 60;
// Every whole-file write first removes from its folder the temporaries that
// a killed save left there: those of a process no longer running, and those
// older than kStaleTemporaryMinutes. A write in progress, in this process or
// another, is left alone.
// The bytes of a file, or nothing.
std::optional<std::string> ReadAllBytes(const std::string& path);

// Appends one line with CR LF, creating the file when it is missing. The
// file is replaced whole, so a failed append leaves it as it was.
bool AppendLine(const std::string& path, const std::string& line);

// The path with the name of the file or folder as it stands on disk, where
// the two differ only in the case of their letters.
std::string PathOnDisk(const std::string& path);
// Reports a whole-file write that failed: a FileError naming the file as it
// stands on disk.
[[noreturn]] void FailWrite(const std::string& path);

// Rewrites a list file through `<stem>.XXX` beside it: each line, trimmed, is
// handed to `edit`, which returns the line to keep or nothing to leave it out.
// When the list file cannot be opened nothing happens and false comes back.
template <typename Edit>
bool RewriteListFile(const std::string& path, Edit edit);
bool RewriteListFileLines(const std::string& path,
                          const std::vector<std::optional<std::string>>& kept);

// The `.XXX` name beside a list file: PROJECTS.LIB gives PROJECTS.XXX.
std::string ListTempPath(const std::string& path);

template <typename Edit>
bool RewriteListFile(const std::string& path, Edit edit) {
  auto lines = ReadAllLines(path);
  if (!lines) return false;
  std::vector<std::optional<std::string>> kept;
  kept.reserve(lines->size());
  for (const auto& line : *lines) kept.push_back(edit(TrimBlanks(line)));
  return RewriteListFileLines(path, kept);
}

// Windows-1252 text for a single-byte string from UTF-8, for literals in code
// that hold letters such as å; characters with no single byte become "?".
std::string Cp1252FromUtf8(const std::string& utf8);
std::string Utf8FromCp1252(const std::string& bytes);

}  // namespace zelmo
