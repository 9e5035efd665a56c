#include "wizards/StoredOptions.h"

#include "model/StoredNumbers.h"
#include "wizards/Languages.h"

namespace wizards {

namespace {

constexpr const char* kBuildCommon = "BuildCommon";

}  // namespace

std::int32_t StoredOptions::ActiveConfiguration() const {
  constexpr const char* kKey = "ActiveConfig";
  return model::StoredInt32(project_.ReadVersionSetting(versionIndex_, kBuildCommon, kKey, "1"),
                            {project_.VersionFilePath(versionIndex_), kBuildCommon, kKey});
}

std::string StoredOptions::InstallerType() const {
  return project_.ReadVersionSetting(versionIndex_, kBuildCommon, "InstallerType", "1");
}

StoredOptions::Proposal StoredOptions::Of(std::int32_t configuration) const {
  const std::string section = "Build" + std::to_string(configuration);
  const std::string stored = project_.ReadVersionSetting(versionIndex_, section, "Locale", "");
  const std::string number = LanguageNumber(stored);
  return {.folder = project_.ReadVersionSetting(versionIndex_, section, "OutputFolder",
                                                project_.DefaultOutputFolder(configuration)),
          .language = number.empty() ? stored : number};
}

}  // namespace wizards
