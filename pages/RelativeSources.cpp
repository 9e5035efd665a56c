#include "pages/RelativeSources.h"

#include <algorithm>
#include <utility>

#include "model/SettingNames.h"
#include "model/TextTable.h"
#include "tools/StandardTexts.h"
#include "tools/desktop/Guard.h"
#include "tools/files/Path.h"

namespace pages {

namespace {

constexpr std::string_view kYes = "1";
constexpr std::string_view kNo = "0";

bool WantsRelativeSources(model::ModProject& project, tools::Dialogs& dialogs) {
  const std::string remembered = project.ReadProductSetting(model::setting::kRelativeSources);
  if (!remembered.empty()) return remembered == kYes;
  const bool wanted =
      dialogs.ShowMessage({.text = model::LoadText(model::Text::SaveSourcesRelative),
                           .caption = tools::StandardText(tools::kTextQuestion),
                           .icon = tools::MessageIcon::Question,
                           .buttons = tools::MessageButtons::YesNo,
                           .defaultAnswer = tools::MessageAnswer::Yes}) ==
      tools::MessageAnswer::Yes;
  // Files can be added all the same: the next ones ask anew.
  tools::Guard(dialogs, [&] {
    project.WriteProductSetting(model::setting::kRelativeSources, wanted ? kYes : kNo);
  });
  return wanted;
}

}  // namespace

std::string RelativeFolder(const std::string& folder, const std::string& productFolder) {
  if (!tools::IsAbsolutePath(folder) || !tools::IsSameOrBelow(folder, productFolder)) return {};
  std::string relative = folder.substr(std::min(folder.size(), productFolder.size()));
  // In a relative folder "\\" separates on every machine; here it belongs to a name.
  if (!tools::IsPathSeparator('\\') && relative.find('\\') != std::string::npos) return {};
  for (char& c : relative) {
    if (tools::IsPathSeparator(c)) c = '/';
  }
  relative.erase(0, relative.find_first_not_of('/'));
  return relative.empty() ? "." : relative;
}

void OfferRelativeSources(std::vector<model::ICFile>& entries, model::ModProject& project,
                          tools::Dialogs& dialogs) {
  const std::string productFolder = project.ProductFolder();
  std::vector<std::pair<model::ICFile*, std::string>> below;
  for (model::ICFile& entry : entries) {
    std::string relative = RelativeFolder(entry.SourcePath, productFolder);
    if (!relative.empty()) below.emplace_back(&entry, std::move(relative));
  }
  if (below.empty() || !WantsRelativeSources(project, dialogs)) return;
  for (auto& [entry, relative] : below) entry->SourcePath = std::move(relative);
}

std::string OfferRelativeFolder(const std::string& folder, model::ModProject& project,
                                tools::Dialogs& dialogs) {
  const std::string relative = RelativeFolder(folder, project.ProductFolder());
  return !relative.empty() && WantsRelativeSources(project, dialogs) ? relative : folder;
}

std::vector<FieldEdit> EditsToRelativeSources(const model::FileEntries& entries,
                                              const std::string& productFolder) {
  std::vector<FieldEdit> edits;
  for (const model::ICFile& entry : entries) {
    std::string relative = RelativeFolder(entry.SourcePath, productFolder);
    if (!relative.empty()) edits.push_back({entry.ID, "SourcePath", std::move(relative)});
  }
  return edits;
}

}  // namespace pages
