// The drive, folder and file lists through which a screen picks files from
// the disk. The drive list holds the roots (on a platform without drives,
// the one root); the folder list the current folder's ancestors, open, and its
// sub-folders below; the file list the current folder's files of one
// extension, whatever the case of its letters.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

class FolderLists {
 public:
  // `files` may be null for a screen without a file list.
  FolderLists(Control& drive, Control& dir, Control* files, std::string extension);

  const std::string& folder() const { return folder_; }
  // Makes `folder` current and fills the lists; false, and nothing changes,
  // when it is not an existing folder.
  bool SetFolder(const std::string& folder);
  // The root chosen in the drive list becomes current.
  bool DriveChosen();
  // The folder selected in the folder list becomes current.
  bool DirOpened();
  // The folder the folder list's selection stands for, or empty.
  std::string SelectedDir() const;
  // Fills the lists again from the disk.
  void Refresh();

 private:
  Control& drive_;
  Control& dir_;
  Control* files_;
  std::string extension_;
  std::string folder_;
  std::vector<std::string> dir_paths_;  // one per item of the folder list
};

// The roots of the file system: drive letters where there are any, else "/".
std::vector<std::string> DriveRoots();

}  // namespace zelmo
