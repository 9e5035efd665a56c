// What the console program needs of the system it runs on.
#pragma once

#include <string>
#include <vector>

namespace console {

/// The arguments of this call as UTF-8, without the program's name. On Windows this also makes the
/// console take UTF-8.
[[nodiscard]] std::vector<std::string> ProgramArguments(int count, const char* const* values);

/// The folder that this program's own file lies in.
[[nodiscard]] std::string ProgramFolder();

/// The current folder.
[[nodiscard]] std::string WorkingFolder();

/// True when standard error is a terminal, so that a line on it can be written again and again.
[[nodiscard]] bool ErrorsGoToTerminal();

/// True when standard output is a terminal, so that tables on it are for people.
[[nodiscard]] bool OutputGoesToTerminal();

/// Looks the time zone up once instead of for each date that is converted, such as those of the
/// 100,000 members of an archive. To be called before there are threads.
void KeepTimeZone();

/// From now on Ctrl+C, a closed terminal and a request to end set a flag instead of ending the
/// program, so that it can tidy up. The second Ctrl+C ends it at once.
void WatchForInterrupt();
/// True once one of them came.
[[nodiscard]] bool WasInterrupted();

}  // namespace console
