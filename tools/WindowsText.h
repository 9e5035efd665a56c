// Windows only: text as the system's functions take it.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// UTF-8 to UTF-16 and back. Bytes that are no valid text become U+FFFD.
[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string FromWide(std::wstring_view wide);

}  // namespace tools
