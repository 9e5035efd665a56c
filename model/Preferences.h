// Where the program keeps what it remembers from one run to the next: string values of one key of
// the current user's registry.
#pragma once

#include <string_view>

namespace model {

inline constexpr std::string_view kPreferencesKey = "Software\\Quillon\\Packwright";
inline constexpr std::string_view kLastAuthor = "LastAuthor";
inline constexpr std::string_view kRecentProducts = "RecentProducts";  ///< tabs between the paths
inline constexpr std::string_view kWindowGeometry = "WindowGeometry";
inline constexpr std::string_view kSplitterPosition = "SplitterPosition";

/// The key below it that holds the options of each version's last build.
inline constexpr std::string_view kLastBuildsKey = "Software\\Quillon\\Packwright\\LastBuilds";

}  // namespace model
