#include <atomic>
#include <memory>

#include "console/Platform.h"
#include "tools/WindowsApi.h"
#include "tools/files/Path.h"
// The shell's header wants the system's before it.
#include <shellapi.h>

namespace console {

namespace {

// The system calls the handler on a thread of its own.
std::atomic<bool> interrupted{false};

BOOL WINAPI OnControl(DWORD event) {
  const bool isSecond = interrupted.exchange(true);
  // When the console closes, the system ends the program as soon as this returns: main comes first.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return isSecond ? FALSE : TRUE;
}

bool IsConsole(DWORD handle) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(handle), &mode) != 0;
}

}  // namespace

std::vector<std::string> ProgramArguments(int, const char* const*) {
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> values(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(tools::FromWide(values.get()[i]));
  return arguments;
}

std::string ProgramFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return tools::FolderOf(tools::FromWide(path));
}

std::string WorkingFolder() {
  std::wstring folder(32768, L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return tools::FromWide(folder);
}

bool ErrorsGoToTerminal() { return IsConsole(STD_ERROR_HANDLE); }

bool OutputGoesToTerminal() { return IsConsole(STD_OUTPUT_HANDLE); }

void KeepTimeZone() {
  // The system keeps it.
}

void WatchForInterrupt() { SetConsoleCtrlHandler(OnControl, TRUE); }

bool WasInterrupted() { return interrupted; }

}  // namespace console
