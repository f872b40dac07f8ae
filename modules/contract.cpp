#include "modules/contract.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>

#include "core/text_file.h"

namespace zelmo::modules {

namespace {

constexpr const char* kHeadWord = "ZELMO-QRN";

std::string HeadLine(const ModuleId& module, const std::string& fingerprint) {
  return std::string(kHeadWord) + " " + module.name + " " + fingerprint;
}

// The line of ECM.Dat is read as free-format text: in double quotes it is
// taken whole, commas and all.
std::string Quoted(std::string text) {
  std::replace(text.begin(), text.end(), '"', '\'');
  std::replace(text.begin(), text.end(), '\r', ' ');
  std::replace(text.begin(), text.end(), '\n', ' ');
  return "\"" + text + "\"";
}

std::string NameOf(const std::string& path) { return FromFsPath(ToFsPath(path).filename()); }

}  // namespace

ModuleFailure::ModuleFailure(int code, const std::string& detail)
    : std::runtime_error(detail), code_(code) {}

Fingerprint& Fingerprint::Add(std::string_view piece) {
  auto mix = [this](unsigned char byte) {
    hash_ ^= byte;
    hash_ *= 1099511628211ull;
  };
  for (char c : piece) mix(static_cast<unsigned char>(c));
  // The length closes the piece, so that "ab" + "c" differs from "a" + "bc".
  std::uint64_t length = piece.size();
  for (int i = 0; i < 8; ++i) mix(static_cast<unsigned char>(length >> (8 * i)));
  return *this;
}

std::string Fingerprint::Text() const {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash_));
  return text;
}

std::string CaseFile(const std::string& case_folder, const std::string& name) {
  return FromFsPath(ResolvePath(ToFsPath(JoinPath(case_folder, name))));
}

std::string ReadInput(const std::string& path, int code) {
  auto bytes = ReadAllBytes(path);
  if (!bytes) throw ModuleFailure(code, "Cannot read " + path);
  return *bytes;
}

void WriteResult(const std::string& path, const ModuleId& module, const std::string& fingerprint,
                 const std::vector<std::string>& lines) {
  std::string bytes = HeadLine(module, fingerprint) + "\r\n";
  size_t size = bytes.size();
  for (const auto& line : lines) size += line.size() + 2;
  bytes.reserve(size);
  for (const auto& line : lines) {
    bytes += line;
    bytes += "\r\n";
  }
  if (!WriteDerivedBytes(path, bytes)) {
    throw ModuleFailure(module.base + kWriteFailed, "Cannot write " + path);
  }
}

std::vector<std::string> ReadResult(const std::string& path, const ModuleId& writer,
                                    const std::string& fingerprint, int code) {
  std::string run_again = ": run " + std::string(writer.name) + " again";
  auto lines = ReadAllLines(path);
  if (!lines || lines->empty()) {
    throw ModuleFailure(code, "The results of " + std::string(writer.name) + " (" + NameOf(path) +
                                  ") are missing" + run_again);
  }
  if ((*lines)[0] != HeadLine(writer, fingerprint)) {
    throw ModuleFailure(code, "The results of " + std::string(writer.name) + " (" + NameOf(path) +
                                  ") are out of date" + run_again);
  }
  lines->erase(lines->begin());
  return std::move(*lines);
}

bool WriteStatus(const std::string& case_folder, int code, const std::string& module,
                 const std::string& text) {
  std::string number = std::to_string(code);
  if (number.size() < 5) number.insert(0, 5 - number.size(), ' ');
  std::string name = module;
  if (name.size() < 10) name.append(10 - name.size(), ' ');
  return WriteAllLines(JoinPath(case_folder, "ECM.Dat"), {number + " " + name, Quoted(text), "0"});
}

int RunModule(int argc, char** argv, const ModuleId& module, int damaged_input_code,
              const std::function<void(const std::string& case_folder)>& body) {
  if (argc != 2 || !FolderExists(argv[1])) {
    std::fprintf(stderr, "usage: %s <case folder>/\n", module.name);
    return 2;
  }
  std::string case_folder = argv[1];
  int code = 0;
  std::string text;
  try {
    body(case_folder);
  } catch (const ModuleFailure& failure) {
    code = failure.code();
    text = failure.what();
  } catch (const FileError& error) {
    code = damaged_input_code;
    text = error.what() + std::string(": ") + error.path();
    if (error.line() > 0) text += ", line " + std::to_string(error.line());
  } catch (const std::bad_alloc&) {
    code = module.base + kUnforeseen;
    text = "Out of memory";
  } catch (const std::exception& error) {
    code = module.base + kUnforeseen;
    text = error.what();
  }
  if (!WriteStatus(case_folder, code, module.name, text)) {
    std::fprintf(stderr, "%s: cannot write ECM.Dat in %s\n", module.name, case_folder.c_str());
    return 1;
  }
  if (code != 0) std::fprintf(stderr, "%s: error %d: %s\n", module.name, code, text.c_str());
  return code == 0 ? 0 : 1;
}

}  // namespace zelmo::modules
