// Windows only: the system's header without its macros that rename this program's own functions,
// and text as its functions take it. Include this instead of <windows.h>.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef ReplaceFile

namespace tools {

/// UTF-8 to UTF-16 and back. Bytes that are no valid text become U+FFFD.
[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string FromWide(std::wstring_view wide);

}  // namespace tools
