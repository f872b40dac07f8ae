// Folder and file services of the platform, on paths held as text. Every
// call finds an existing name whatever its case and reports failure by its
// result, never by an exception.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

bool CreateFolder(const std::string& path);      // one level
bool CreateFolderTree(const std::string& path);  // every missing level
bool DeleteFolderTree(const std::string& path);  // false when it is not there
// Overwriting; the temporaries of whole-file writes are not copied.
bool CopyFolderTree(const std::string& from, const std::string& to);
bool CopyFileOver(const std::string& from, const std::string& to);
bool RenamePath(const std::string& from, const std::string& to);
bool DeleteFile(const std::string& path);
// Names (not paths) of the files in a folder whose name ends in `extension`
// (".TXT"), the case of the letters ignored; sorted by name whatever the case.
std::vector<std::string> FilesWithExtension(const std::string& folder,
                                            const std::string& extension);
// Names of the sub-folders of a folder, sorted the same way.
std::vector<std::string> SubFolders(const std::string& folder);
// Deletes the files of a folder whose extension is one of `extensions`, the
// case ignored; failures are ignored.
void DeleteFilesWithExtensions(const std::string& folder,
                               const std::vector<std::string>& extensions);
// The folder part of a path and its last name.
std::string ParentFolder(const std::string& path);
std::string LastName(const std::string& path);
// The path with one trailing separator removed.
std::string StripTrailingSeparator(const std::string& path);
// True when a name typed by the user would leave its folder: it holds a path
// separator or a control character, or is "." or "..".
bool EscapesFolder(const std::string& name);
// True when a project or case name typed by the user cannot be stored: it
// would leave its folder, or it holds " -", which the lists of projects and
// cases ("<name> - <headline>") take for the end of the name.
bool UnfitName(const std::string& name);
// A name that stays inside its folder and is not blank: the only kind of
// register line that may name a project's or a case's folder.
bool IsPlainFolderName(const std::string& name);
// The folder as it stands on disk: the registers hold project and case names
// in lower case, while a folder keeps the case it was made in. Where case
// matters, the path that the modules and other programs get must be the
// folder's own; a folder that is not there gives the path unchanged.
std::string FolderOnDisk(const std::string& path);
// A path the system shows lower-cased: lower case where the file system
// ignores case; elsewhere a folder keeps the case the user gave it.
std::string LowerPathWhereCaseIgnored(const std::string& path);
// The platform's separator as text.
std::string Separator();

}  // namespace zelmo
