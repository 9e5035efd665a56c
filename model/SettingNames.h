// The names of the settings that several parts of the program read or write, each spelled here
// alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace model {

struct SettingName {
  std::string_view section;
  std::string_view key;
  std::string_view standard = "";  ///< what an absent setting counts as
};

namespace setting {

// Of the product file.
inline constexpr SettingName kFormat{"General", "Version"};
inline constexpr SettingName kProductTitle{"Product", "Title"};
inline constexpr SettingName kProductAuthor{"Product", "Author"};
/// Whether sources below the product's folder are added as relative ones: 1, 0; empty: ask.
inline constexpr SettingName kRelativeSources{"Sources", "Relative"};
inline constexpr SettingName kVersionCount{"Versions", "Count", "0"};

// Of a version's file.
inline constexpr SettingName kCreated{"General", "Created"};
inline constexpr SettingName kComponentCount{"Components", "Count", "0"};
inline constexpr SettingName kInstallerType{"BuildCommon", "InstallerType", "1"};
inline constexpr SettingName kActiveConfiguration{"BuildCommon", "ActiveConfig", "1"};
inline constexpr std::string_view kOutputFolder = "OutputFolder";  ///< in a build section
inline constexpr std::string_view kLanguage = "Locale";            ///< in a build section
inline constexpr SettingName kCatalogueKey{"Tessel", "Key"};
inline constexpr SettingName kCatalogueTitle{"Tessel", "Title"};
inline constexpr SettingName kCatalogueType{"Tessel", "Type", "1"};

// Of a component's file.
inline constexpr SettingName kComponentTitle{"Component", "Title"};
inline constexpr SettingName kFileCount{"Files", "Count", "0"};
inline constexpr SettingName kRegistryKeyCount{"Registry", "Keys", "0"};

/// The section of a build configuration (1 debug, 2 release).
[[nodiscard]] inline std::string BuildSection(std::int32_t configuration) {
  return "Build" + std::to_string(configuration);
}

}  // namespace setting

}  // namespace model
