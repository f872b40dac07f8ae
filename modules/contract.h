// What every calculation module keeps to with the front end: it is started
// with the case folder as its one argument, reads only the module input and
// the results of the modules before it, writes its own results each through
// a temporary file and a rename, and last of all ECM.Dat, the status file
// the front end reads: code 0 and its name on success, otherwise a code of
// the error table (ErrorCodesZelmo/ErrorsZelmo.err) and a line naming what
// failed.
//
// Every result file starts with a line naming the module that wrote it and a
// fingerprint of the input it was computed from. A module reading a
// predecessor's file computes that fingerprint again from the input as it
// stands now; a file whose fingerprint differs is out of date, and the module
// fails naming the predecessor to run again, so a stale result never flows
// on silently.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo::modules {

// A module and the hundred of error codes it owns: PLOR 101 to 199, NEB 201
// to 299, and so on.
struct ModuleId {
  const char* name;
  int base;
};
inline constexpr ModuleId kPlor{"PLOR", 100};
inline constexpr ModuleId kNeb{"NEB", 200};
inline constexpr ModuleId kCorv{"CORV", 300};
inline constexpr ModuleId kFent{"FENT", 400};
inline constexpr ModuleId kDane{"DANE", 500};
inline constexpr ModuleId kMuk{"MUK", 600};

// Codes every module has, added to its base: its results could not be
// written (a full disk, a folder that is read-only), and a failure the module
// did not foresee (memory ran out).
inline constexpr int kWriteFailed = 98;
inline constexpr int kUnforeseen = 99;

// A failure with its code in the error table and the line of ECM.Dat that
// says what failed (the file and line, the element, the construction).
class ModuleFailure : public std::runtime_error {
 public:
  ModuleFailure(int code, const std::string& detail);
  int code() const { return code_; }

 private:
  int code_;
};

// A fingerprint of the input a result was computed from: FNV-1a, 64 bits,
// over each piece and its length, written as 16 hexadecimal digits.
class Fingerprint {
 public:
  Fingerprint& Add(std::string_view piece);
  std::string Text() const;

 private:
  std::uint64_t hash_ = 14695981039346656037ull;
};

// The path of a file in the case folder; an existing file whose name differs
// only in case is found.
std::string CaseFile(const std::string& case_folder, const std::string& name);

// The bytes of an input file in the case folder (or any path). A file that
// cannot be read fails with `code` and a line naming it.
std::string ReadInput(const std::string& path, int code);

// Writes a result file: the head line "ZELMO-QRN <module> <fingerprint>",
// then the lines, each ended by CR LF, through a temporary file renamed over
// the old one. A write that fails throws ModuleFailure with the module's
// kWriteFailed code, and the old file stands.
void WriteResult(const std::string& path, const ModuleId& module, const std::string& fingerprint,
                 const std::vector<std::string>& lines);

// Reads a predecessor's result file and hands back its lines without the
// head line. A file that is missing, written by another module, or computed
// from another input than `fingerprint` fails with `code`, and the line
// names the predecessor to run again.
std::vector<std::string> ReadResult(const std::string& path, const ModuleId& writer,
                                    const std::string& fingerprint, int code);

// Writes ECM.Dat in the case folder: the code right-aligned in five places, a
// blank, the module's name, then the line of text and "0". False when it
// could not be written.
bool WriteStatus(const std::string& case_folder, int code, const std::string& module,
                 const std::string& text);

// The whole of a module's main(): takes the case folder from the command
// line, runs `body` on it and leaves ECM.Dat whatever happens. A failure
// leaves its code; a FileError from a reader (a damaged input) leaves
// `damaged_input_code` with the file and the line; anything else leaves the
// module's kUnforeseen code. Returns the process's exit status: 0 on
// success, 1 on a failure, 2 when the command line holds no case folder.
int RunModule(int argc, char** argv, const ModuleId& module, int damaged_input_code,
              const std::function<void(const std::string& case_folder)>& body);

}  // namespace zelmo::modules
