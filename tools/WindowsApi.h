// Windows only: the system's header without its macros that rename this program's own functions,
// and text and times as its functions take them. Include this instead of <windows.h>.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "tools/Clock.h"

#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef ReplaceFile

namespace tools {

/// UTF-8 to UTF-16 and back. Bytes that are no valid text become U+FFFD.
[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string FromWide(std::wstring_view wide);

/// A file's time as the system counts it, and back. Times that a FileTime cannot hold (from 2262
/// on) become the last that it can.
[[nodiscard]] FILETIME ToSystemForm(FileTime time);
[[nodiscard]] FileTime FromSystemForm(const FILETIME& time);

}  // namespace tools
