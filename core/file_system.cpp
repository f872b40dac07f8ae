#include "core/file_system.h"

#include <algorithm>
#include <filesystem>

#include "core/fields.h"
#include "core/text_file.h"

namespace zelmo {
namespace fs = std::filesystem;

namespace {
fs::path Real(const std::string& path) { return ResolvePath(ToFsPath(path)); }
}  // namespace

bool CreateFolder(const std::string& path) {
  std::error_code ec;
  return fs::create_directory(Real(path), ec) && !ec;
}

bool CreateFolderTree(const std::string& path) {
  std::error_code ec;
  fs::create_directories(Real(path), ec);
  return !ec && fs::is_directory(Real(path), ec);
}

bool DeleteFolderTree(const std::string& path) {
  std::error_code ec;
  fs::path real = Real(path);
  if (path.empty() || !fs::is_directory(real, ec)) return false;
  fs::remove_all(real, ec);
  return !ec;
}

bool CopyFolderTree(const std::string& from, const std::string& to) {
  std::error_code ec;
  fs::path source = Real(from);
  if (!fs::is_directory(source, ec)) return false;
  fs::path target = Real(to);
  fs::create_directories(target, ec);
  for (fs::recursive_directory_iterator it(source, ec), end; !ec && it != end; it.increment(ec)) {
    fs::path relative = fs::relative(it->path(), source, ec);
    if (ec) return false;
    // A name that exists in the target under another case is overwritten.
    fs::path dest = ResolvePath(target / relative);
    if (it->is_directory(ec)) {
      fs::create_directories(dest, ec);
    } else if (TemporaryOwner(FromFsPath(it->path().filename()))) {
      // A save's temporary is no part of the copy, whether its write runs
      // still or was killed.
      continue;
    } else {
      fs::copy_file(it->path(), dest, fs::copy_options::overwrite_existing, ec);
    }
    if (ec) return false;
  }
  return !ec;
}

bool CopyFileOver(const std::string& from, const std::string& to) {
  std::error_code ec;
  fs::copy_file(Real(from), Real(to), fs::copy_options::overwrite_existing, ec);
  return !ec;
}

bool RenamePath(const std::string& from, const std::string& to) {
  std::error_code ec;
  fs::path source = Real(from);
  if (!fs::exists(source, ec)) return false;
  fs::rename(source, Real(to), ec);
  return !ec;
}

bool DeleteFile(const std::string& path) {
  std::error_code ec;
  fs::path real = Real(path);
  if (!fs::is_regular_file(real, ec)) return false;
  return fs::remove(real, ec) && !ec;
}

namespace {

// A folder list runs in the order of the names whatever the case of their
// letters, as a file system that ignores case lists them; names equal but
// for case keep the byte order.
void SortNames(std::vector<std::string>& names) {
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    std::string ua = ToUpper(a), ub = ToUpper(b);
    return ua != ub ? ua < ub : a < b;
  });
}

}  // namespace

std::vector<std::string> FilesWithExtension(const std::string& folder,
                                            const std::string& extension) {
  std::vector<std::string> names;
  std::error_code ec;
  const std::string wanted = ToUpper(extension);
  for (fs::directory_iterator it(Real(folder), ec), end; !ec && it != end; it.increment(ec)) {
    if (!it->is_regular_file(ec)) continue;
    std::string name = FromFsPath(it->path().filename());
    if (name.size() >= wanted.size() &&
        ToUpper(name.substr(name.size() - wanted.size())) == wanted) {
      names.push_back(name);
    }
  }
  SortNames(names);
  return names;
}

std::vector<std::string> SubFolders(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (fs::directory_iterator it(Real(folder), ec), end; !ec && it != end; it.increment(ec)) {
    if (it->is_directory(ec)) names.push_back(FromFsPath(it->path().filename()));
  }
  SortNames(names);
  return names;
}

void DeleteFilesWithExtensions(const std::string& folder,
                               const std::vector<std::string>& extensions) {
  for (const auto& extension : extensions) {
    for (const auto& name : FilesWithExtension(folder, extension)) {
      DeleteFile(JoinPath(folder, name));
    }
  }
}

std::string ParentFolder(const std::string& path) {
  size_t sep = path.find_last_of("/\\");
  if (sep == std::string::npos) return {};
  if (sep == 0) return path.substr(0, 1);
  return path.substr(0, sep);
}

std::string LastName(const std::string& path) {
  size_t sep = path.find_last_of("/\\");
  return sep == std::string::npos ? path : path.substr(sep + 1);
}

std::string StripTrailingSeparator(const std::string& path) {
  if (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) {
    return path.substr(0, path.size() - 1);
  }
  return path;
}

bool EscapesFolder(const std::string& name) {
  std::string trimmed = TrimBlanks(name);
  if (trimmed == "." || trimmed == "..") return true;
  // A line break would also end the name's record in its register and start
  // another one.
  return name.find('/') != std::string::npos || name.find('\\') != std::string::npos ||
         OneLineText(name) != name;
}

bool UnfitName(const std::string& name) {
  return EscapesFolder(name) || name.find(" -") != std::string::npos;
}

bool IsPlainFolderName(const std::string& name) {
  return !TrimBlanks(name).empty() && !EscapesFolder(name);
}

std::string FolderOnDisk(const std::string& path) { return FromFsPath(Real(path)); }

std::string Separator() { return std::string(1, static_cast<char>(fs::path::preferred_separator)); }

std::string LowerPathWhereCaseIgnored(const std::string& path) {
#ifdef _WIN32
  return ToLower(path);
#else
  return path;
#endif
}

}  // namespace zelmo
