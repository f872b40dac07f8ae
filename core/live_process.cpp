#include "core/live_process.h"

#ifdef _WIN32
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <process.h>
#include <windows.h>
#else
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <limits>
#endif

namespace zelmo {

long long CurrentProcess() {
#ifdef _WIN32
  return static_cast<long long>(_getpid());
#else
  return static_cast<long long>(getpid());
#endif
}

bool ProcessIsAlive(long long process) {
  if (process <= 0) return false;
#ifdef _WIN32
  if (process > 0xFFFFFFFFLL) return false;
  HANDLE handle =
      OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
  if (!handle) return GetLastError() == ERROR_ACCESS_DENIED;
  DWORD code = 0;
  const bool running = GetExitCodeProcess(handle, &code) && code == STILL_ACTIVE;
  CloseHandle(handle);
  return running;
#else
  // Signal 0 only asks whether the process is there; a process of another
  // user answers "not permitted", and is there all the same.
  if (process > std::numeric_limits<pid_t>::max()) return false;
  return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
#endif
}

}  // namespace zelmo
