#include "wizards/StoredOptions.h"

#include "tools/Numbers.h"
#include "wizards/Languages.h"

namespace wizards {

namespace {

constexpr const char* kBuildCommon = "BuildCommon";

}  // namespace

std::int32_t StoredOptions::ActiveConfiguration() const {
  return tools::ToInt32(
      project_.ReadVersionSetting(versionIndex_, kBuildCommon, "ActiveConfig", "1"));
}

std::string StoredOptions::InstallerType() const {
  return project_.ReadVersionSetting(versionIndex_, kBuildCommon, "InstallerType", "1");
}

StoredOptions::Proposal StoredOptions::Of(std::int32_t configuration) const {
  const std::string section = "Build" + std::to_string(configuration);
  return {.folder = project_.ReadVersionSetting(versionIndex_, section, "OutputFolder",
                                                project_.DefaultOutputFolder(configuration)),
          .language =
              LanguageNumber(project_.ReadVersionSetting(versionIndex_, section, "Locale", ""))};
}

}  // namespace wizards
