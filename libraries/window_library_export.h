// Wndw.Lib: the glass, gas and window type libraries of a project in the one
// fixed-width file that the calculation modules and the window properties
// routine read.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

struct Workspace;
struct GlassTable;
struct GasTable;
struct WindowTable;

inline constexpr const char* kWindowLibraryFile = "Wndw.Lib";
// What a run of the modules says when the library refuses a window type.
inline constexpr const char* kWindowLibraryFault = "Some error in window library ";

// The lines of Wndw.Lib for the three tables. `library_ok` turns false when
// a window type with a name has 0 panes; the lines go on to the end all the
// same.
std::vector<std::string> WindowLibraryLines(const GlassTable& glass, const GasTable& gas,
                                            const WindowTable& windows, bool& library_ok);

// Writes Wndw.Lib whole in the project folder from the three tables. Returns
// the library's flag; the file is written also when it is false. Throws
// FileError when the file cannot be written.
bool WriteWindowLibrary(const Workspace& ws, const GlassTable& glass, const GasTable& gas,
                        const WindowTable& windows);
// The same with the three libraries read from the project's files.
bool WriteWindowLibrary(const Workspace& ws);

}  // namespace zelmo
