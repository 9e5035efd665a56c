#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "console/Platform.h"
#include "tools/files/Path.h"

namespace console {

namespace {

// The one thing a signal handler may touch.
volatile std::sig_atomic_t interrupted = 0;

// Restores the default of Ctrl+C, which ends the program at once. A closed terminal may send SIGHUP
// twice.

void OnSignal(int number) {
  interrupted = 1;
  if (number == SIGINT) std::signal(SIGINT, SIG_DFL);
}

}  // namespace

std::vector<std::string> ProgramArguments(int count, const char* const* values) {
  return {values + (count > 0 ? 1 : 0), values + count};
}

std::string ProgramFolder() {
  std::error_code failure;
  return tools::FolderOf(tools::FromPath(std::filesystem::read_symlink("/proc/self/exe", failure)));
}

std::string WorkingFolder() {
  std::error_code failure;
  return tools::FromPath(std::filesystem::current_path(failure));
}

bool ErrorsGoToTerminal() { return ::isatty(STDERR_FILENO) == 1; }

bool OutputGoesToTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

void KeepTimeZone() {
  // Without TZ the C library looks whether this file has changed, each time.
  ::setenv("TZ", ":/etc/localtime", 0);
}

void WatchForInterrupt() {
  struct sigaction action {};
  action.sa_handler = OnSignal;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    // What the caller chose to ignore (nohup) stays ignored.
    struct sigaction old {};
    if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) {
      ::sigaction(signal, &action, nullptr);
    }
  }
  // A reader that goes away is noticed by the failing write.
  std::signal(SIGPIPE, SIG_IGN);
}

bool WasInterrupted() { return interrupted != 0; }

}  // namespace console
