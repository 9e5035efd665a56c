#include "pages/FileProperties.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <variant>

#include "pages/PageText.h"
#include "tools/StandardTexts.h"
#include "tools/files/FileInformation.h"
#include "tools/files/Path.h"

namespace pages {

namespace {

constexpr const char* kExisting = "Existing";
constexpr const char* kVersion = "Version";
constexpr const char* kFileDateTime = "FileDateTime";

/// The names of the fields whose value is the same in all entries. Each entry is looked at once:
/// many thousands do not fit the processor's caches.
std::set<std::string_view> AgreeingFields(const std::vector<const model::ICFile*>& entries) {
  const model::ICFile& first = *entries.front();
  std::vector<const model::FileEntryField*> agreeing;
  for (const model::FileEntryField& field : model::FileEntryFields()) agreeing.push_back(&field);
  for (const model::ICFile* entry : entries) {
    std::erase_if(agreeing, [&](const model::FileEntryField* field) {
      return std::visit([&](auto member) { return entry->*member != first.*member; },
                        field->member);
    });
  }
  std::set<std::string_view> names;
  for (const model::FileEntryField* field : agreeing) names.insert(field->name);
  return names;
}

void ShowSourceFile(grid::ctlPropertyEditor& grid, const model::ICFile& entry,
                    const std::string& productFolder) {
  const tools::FileInformation file = tools::InformationOf(
      tools::JoinPath(tools::ResolvePath(entry.SourcePath, productFolder), entry.SourceName));
  const auto add = [&grid](const char* name, Text title, const std::string& value) {
    grid.AddProperty(QString::fromLatin1(name), Caption(title), tools::ToQString(value), 1, true);
  };
  add(kExisting, Text::SourceExists,
      tools::StandardText(file.exists ? tools::kTextExisting : tools::kTextMissing));
  add(kVersion, Text::SourceVersion, file.version);
  add(kFileDateTime, Text::SourceDate, file.dateTime);
}

}  // namespace

void ShowFileProperties(grid::ctlPropertyEditor& grid,
                        const std::vector<const model::ICFile*>& entries,
                        const std::string& productFolder) {
  grid.Clear();
  if (entries.empty()) return;
  const model::ICFile& first = *entries.front();
  const std::set<std::string_view> agreeing = AgreeingFields(entries);
  for (const model::FileEntryField& field : model::FileEntryFields()) {
    const QString name = tools::ToQString(field.name);
    if (!agreeing.contains(field.name)) {
      grid.AddMixedProperty(name, Caption(field.title));
      continue;
    }
    grid.AddProperty(name, Caption(field.title),
                     tools::ToQString(model::FileEntryFieldText(first, field)), 1,
                     field.access == model::FileEntryField::Access::ReadOnly);
  }
  if (entries.size() == 1 && first.Type == model::ICFile::kSingleFile) {
    ShowSourceFile(grid, first, productFolder);
  }
}

bool IsFilePropertyEditable(const QString& name) {
  const char* const fixed[] = {kVersion, kFileDateTime, "ID", kExisting};
  return std::none_of(std::begin(fixed), std::end(fixed),
                      [&name](const char* row) { return name == QLatin1StringView(row); });
}

}  // namespace pages
