// Start-up, settings and paths: what happens from program entry to the first
// idle moment, and where the settings are kept.
#pragma once

#include <string>

namespace zelmo {

class StartForm;
class SettingsStore;
struct Session;
struct Workspace;

// The per-user settings store: application, section and keys.
inline constexpr char kSettingsApplication[] = "Zelmo-QRN";
inline constexpr char kSettingsSection[] = "Project";
inline constexpr char kKeySystemPath[] = "SystemPath";
inline constexpr char kKeyLocalPath[] = "LocalPath";
inline constexpr char kKeyAccuracyLevel[] = "AccuracyLevelTL";

// The texts of the two accuracy levels; the first character is the level.
inline constexpr char kAccuracyTimestep[] = "2-New coeff. each timestep";
inline constexpr char kAccuracyIteration[] = "4-New coeff. each iteration";

// The version shown in the title while the window loads.
inline constexpr char kVersionText[] = "v2.0 under utveckling 1015/1-081022";

// The installer leaves this file beside the program so that the first start
// adopts the install location.
inline constexpr char kFirstStartMarker[] = "NYINSTALLATION.dat";

// The name of the program's file: the first start is only taken when the
// running program carries it.
#ifdef _WIN32
inline constexpr char kProgramFileName[] = "Tgzelmo.exe";
#else
inline constexpr char kProgramFileName[] = "Tgzelmo";
#endif

// The defaults of the two paths. Where the platform has drive letters they
// are "C:\Zelmo" and "C:\ZELMOPROJ"; elsewhere the program's own folder and
// ZELMOPROJ in the user's home folder.
std::string DefaultSystemPath(const std::string& program_directory);
std::string DefaultLocalPath();

// A path as read at start: whole, whatever its length, and trimmed.
std::string SettingsPathRead(const std::string& value);

// A path as stored on saving: trimmed; on a file system that ignores case
// also in upper case. A folder the user gave keeps its case where case tells
// folders apart.
std::string StoredPathForm(const std::string& path);

// MainDirectory, ThermalDirectory and ComfortDirectory from SystemPath, and
// DiagramDirectory too when `with_diagram` (at start only).
void DeriveDirectories(Workspace& ws, bool with_diagram);

// `<program directory>/Help_English/ZELMO_e.chm`.
std::string MainHelpFile(const Workspace& ws);

// True when the user's number format writes 2 with the mask "0.00" with a
// comma.
bool SystemDecimalComma();

// True when a folder can be made current: it exists and is a full path.
bool CanChangeToFolder(const std::string& path);

// The paths and the accuracy level as the program takes them from the
// settings store, the program's folder (`ProgramDirectory`) already known.
void ReadStoredSettings(SettingsStore& store, Workspace& ws);

// The main window's start, given the path of the running program: settings,
// the first-start adoption, the derived directories and the command state.
void StartUp(Session& session, StartForm& main, const std::string& program_path);

}  // namespace zelmo
