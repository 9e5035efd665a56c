#include "pages/FileProperties.h"

#include <algorithm>
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

bool AllAgree(const std::vector<const model::ICFile*>& entries,
              const model::FileEntryField& field) {
  const model::ICFile& first = *entries.front();
  return std::visit(
      [&](auto member) {
        return std::all_of(entries.begin(), entries.end(), [&](const model::ICFile* entry) {
          return entry->*member == first.*member;
        });
      },
      field.member);
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
  for (const model::FileEntryField& field : model::FileEntryFields()) {
    const QString value = AllAgree(entries, field)
                              ? tools::ToQString(model::FileEntryFieldText(first, field))
                              : QString();
    grid.AddProperty(tools::ToQString(field.name), Caption(field.title), value, 1,
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
