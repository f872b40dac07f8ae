#include "site/folder_lists.h"

#include <filesystem>
#include <system_error>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/text_file.h"

namespace zelmo {

namespace fs = std::filesystem;

namespace {

constexpr const char* kIndent = "  ";

std::string Indent(size_t level) {
  std::string text;
  for (size_t i = 0; i < level; ++i) text += kIndent;
  return text;
}

std::string RootOf(const std::string& folder) { return FromFsPath(ToFsPath(folder).root_path()); }

}  // namespace

std::vector<std::string> DriveRoots() {
  std::vector<std::string> roots;
#ifdef _WIN32
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    std::string root = std::string(1, letter) + ":\\";
    std::error_code ec;
    if (fs::exists(fs::path(root), ec)) roots.push_back(root);
  }
#else
  roots.push_back("/");
#endif
  return roots;
}

FolderLists::FolderLists(Control& drive, Control& dir, Control* files, std::string extension)
    : drive_(drive), dir_(dir), files_(files), extension_(std::move(extension)) {}

bool FolderLists::SetFolder(const std::string& folder) {
  std::string wanted = TrimBlanks(folder);
  if (wanted.empty() || !FolderExists(wanted)) return false;
  std::error_code ec;
  fs::path absolute = fs::absolute(ResolvePath(ToFsPath(wanted)), ec);
  if (ec) return false;
  folder_ = StripTrailingSeparator(FromFsPath(absolute.lexically_normal()));
  if (folder_.empty()) folder_ = RootOf(wanted);
  Refresh();
  return true;
}

void FolderLists::Refresh() {
  // Drive list: every root, the current one chosen.
  std::string root = RootOf(folder_);
  drive_.items = DriveRoots();
  drive_.list_index = -1;
  for (size_t i = 0; i < drive_.items.size(); ++i) {
    if (EqualsIgnoringCase(drive_.items[i], root)) drive_.list_index = static_cast<int>(i);
  }
  if (drive_.list_index < 0 && !root.empty()) {
    drive_.items.push_back(root);
    drive_.list_index = static_cast<int>(drive_.items.size()) - 1;
  }
  drive_.text = drive_.SelectedItem();

  // Folder list: the chain from the root down to the current folder, then the
  // sub-folders of the current one, one level deeper.
  dir_.items.clear();
  dir_paths_.clear();
  fs::path current = ToFsPath(folder_);
  fs::path walked = current.root_path();
  dir_.items.push_back(FromFsPath(walked));
  dir_paths_.push_back(FromFsPath(walked));
  size_t level = 0;
  for (const auto& part : current.relative_path()) {
    if (part.empty()) continue;
    walked /= part;
    ++level;
    dir_.items.push_back(Indent(level) + FromFsPath(part));
    dir_paths_.push_back(FromFsPath(walked));
  }
  dir_.list_index = static_cast<int>(dir_.items.size()) - 1;
  for (const auto& name : SubFolders(folder_)) {
    dir_.items.push_back(Indent(level + 1) + name);
    dir_paths_.push_back(JoinPath(folder_, name));
  }
  dir_.text = folder_;

  if (files_) {
    files_->items = FilesWithExtension(folder_, extension_);
    files_->list_index = -1;
  }
}

bool FolderLists::DriveChosen() {
  std::string root = drive_.SelectedItem();
  if (root.empty() || EqualsIgnoringCase(root, RootOf(folder_))) return false;
  if (SetFolder(root)) return true;
  Refresh();  // the drive is not ready: the lists stay on the folder
  return false;
}

std::string FolderLists::SelectedDir() const {
  int index = dir_.list_index;
  if (index < 0 || index >= static_cast<int>(dir_paths_.size())) return {};
  return dir_paths_[index];
}

bool FolderLists::DirOpened() {
  std::string chosen = SelectedDir();
  if (chosen.empty() || chosen == folder_) return false;
  if (SetFolder(chosen)) return true;
  Refresh();  // gone meanwhile: show what is there now
  return false;
}

}  // namespace zelmo
