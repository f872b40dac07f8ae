// Running the calculation modules. Each module is a separate program that
// gets the case folder as its only argument; the system learns how it ended
// only from the status file ECM.Dat that the module leaves in the case folder.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

struct Session;
struct Workspace;

inline constexpr const char* kStatusFile = "ECM.Dat";

// The chain of modules in run order, as they lie in `ThermalDirectory`.
inline const std::vector<std::string> kModulePrograms = {"PLOR.EXE", "NEB.EXE",  "CORV.EXE",
                                                         "FENT.EXE", "DANE.EXE", "MUK.EXE"};

// The message of a program that could not be started, naming it.
std::string CannotStartText(const std::string& program);
inline constexpr const char* kCannotStartTitle = "Error message";

// Starts a program and waits for it to end; how it ended is not looked at.
// A program that cannot be started is never passed over in silence: the
// user is told its path, and the result is false.
bool RunProgram(Session& session, const std::string& program,
                const std::vector<std::string>& arguments, int window_mode);

// The case folder as a module takes it: `CasePath` with the separator behind.
std::string CaseArgument(const Workspace& ws);

// The program of a module: `<ThermalDirectory>/<program>`.
std::string ModuleProgramPath(const Workspace& ws, const std::string& program);
// Runs `<ThermalDirectory>/<program> <CasePath>/`, without taking the focus.
// False, with nothing said, when the program could not be started: the run
// reports it as the module's failure.
bool RunModule(Session& session, const std::string& program);

// Writes ECM.Dat as a chain of modules starts: code 0, module "Start".
bool InitStatusFile(const Workspace& ws);

// The code ECM.Dat holds after the user stopped a module: the run reads as
// failed, and the case's next run starts afresh.
inline constexpr int kStoppedCode = 999;
inline constexpr const char* kStoppedText = "Stopped by the user";
// Writes ECM.Dat as a module stopped by the user leaves it.
bool WriteStoppedStatus(const Workspace& ws, const std::string& module);
// The code of a module whose program could not be started: the run fails
// as it fails for a module's own error, with the program's path told.
inline constexpr int kCannotStartCode = 702;
// Writes ECM.Dat with an error code of the run itself for `module`, so that
// a later comfort or result step reports the run as failed.
bool WriteFailedStatus(const Workspace& ws, int code, const std::string& module,
                       const std::string& text);
// Reads ECM.Dat. True when the code is 0 or below; `code` comes back as its
// absolute value. When the file cannot be opened `module` is "??", `code`
// stays as it was and the result is false. A file cut short throws FileError.
bool ReadStatusFile(const Workspace& ws, int& code, std::string& module, std::string& text,
                    double& number);

}  // namespace zelmo
