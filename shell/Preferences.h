// Where the program keeps what it remembers from one run to the next: string values of one key of
// the current user's registry.
#pragma once

#include <string_view>

namespace shell {

inline constexpr std::string_view kPreferencesKey = "Software\\Quillon\\Packwright";
inline constexpr std::string_view kLastAuthor = "LastAuthor";
inline constexpr std::string_view kWindowGeometry = "WindowGeometry";
inline constexpr std::string_view kSplitterPosition = "SplitterPosition";

}  // namespace shell
