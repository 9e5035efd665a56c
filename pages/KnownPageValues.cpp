#include "pages/KnownPageValues.h"

#include <algorithm>
#include <iterator>

#include "model/FolderTable.h"
#include "model/Languages.h"
#include "pages/PageText.h"
#include "pages/RelativeSources.h"
#include "pages/TargetFolders.h"
#include "tools/desktop/Guard.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFileSystemFoldersWithEditBox = 17;  ///< flags of the shell's folder browser

bool IsFlag(const QString& field) {
  const char* const flags[] = {"Exclude",      "IncludeChildren", "Overwrite", "Permanent",
                               "RegisterPath", "SelfRegisterDLL", "Vital"};
  return std::any_of(std::begin(flags), std::end(flags),
                     [&field](const char* flag) { return field == QLatin1StringView(flag); });
}

grid::ValueHelp TargetFolderHelp() {
  grid::ValueHelp help;
  for (const std::int32_t number : TargetFolderNumbers()) {
    help.values.push_back(
        {QString::number(number), tools::ToQString(model::FolderDisplayName(number))});
  }
  return help;
}

grid::ValueHelp SourceFolderHelp(model::ModProject& project, tools::Dialogs& dialogs) {
  return {.browse = [&project, &dialogs] {
    const QString folder = FolderHelp(dialogs).browse();
    std::string stored = tools::ToUtf8(folder);
    tools::Guard(dialogs, [&] { stored = OfferRelativeFolder(stored, project, dialogs); });
    return tools::ToQString(stored);
  }};
}

}  // namespace

grid::ValueHelp FileFieldHelp(const QString& field, model::ModProject& project,
                              tools::Dialogs& dialogs) {
  if (field == "Type"_L1) {
    return {.values = {{u"1"_s, Caption(Text::TypeSingleFile)},
                       {u"2"_s, Caption(Text::TypeFolderScan)}}};
  }
  if (IsFlag(field)) {
    return {.values = {{u"0"_s, Caption(Text::FlagNo)}, {u"1"_s, Caption(Text::FlagYes)}}};
  }
  if (field == "TargetFolder"_L1) return TargetFolderHelp();
  if (field == "SourcePath"_L1) return SourceFolderHelp(project, dialogs);
  return {};
}

grid::ValueHelp LanguageHelp() {
  grid::ValueHelp help;
  for (const model::Language& language : model::CommonLanguages()) {
    help.values.push_back({QString::number(language.lcid), QString::fromUtf8(language.name)});
  }
  return help;
}

grid::ValueHelp FolderHelp(tools::Dialogs& dialogs) {
  return {.browse = [&dialogs] {
    std::string folder;
    tools::Guard(dialogs, [&] {
      folder =
          dialogs.BrowseFolder(model::LoadText(Text::ChooseFolder), kFileSystemFoldersWithEditBox);
    });
    return tools::ToQString(folder);
  }};
}

}  // namespace pages
