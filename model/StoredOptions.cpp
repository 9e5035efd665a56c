#include "model/StoredOptions.h"

#include "model/SettingNames.h"
#include "model/StoredNumbers.h"

namespace model {

std::int32_t StoredOptions::ActiveConfiguration() const {
  constexpr SettingName kName = setting::kActiveConfiguration;
  return StoredInt32(project_.ReadVersionSetting(version_, kName),
                     {project_.VersionFilePath(version_), kName});
}

std::string StoredOptions::InstallerType() const {
  return project_.ReadVersionSetting(version_, setting::kInstallerType);
}

StoredOptions::Proposal StoredOptions::Of(std::int32_t configuration) const {
  const std::string section = setting::BuildSection(configuration);
  return {.folder = project_.ReadVersionSetting(version_, section, setting::kOutputFolder,
                                                project_.DefaultOutputFolder(configuration)),
          .language = project_.ReadVersionSetting(version_, section, setting::kLanguage, "")};
}

StoredOptions::CatalogueEntry StoredOptions::Catalogue(const std::string& standardTitle) const {
  constexpr SettingName kTitle = setting::kCatalogueTitle;
  return {.key = project_.ReadVersionSetting(version_, setting::kCatalogueKey),
          .title = project_.ReadVersionSetting(version_, kTitle.section, kTitle.key, standardTitle),
          .type = project_.ReadVersionSetting(version_, setting::kCatalogueType)};
}

}  // namespace model
