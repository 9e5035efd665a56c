#include "model/ICFile.h"

#include "model/SettingNames.h"
#include "model/StoredNumbers.h"
#include "tools/Numbers.h"

namespace model {

namespace {

using Access = FileEntryField::Access;
using BuildUse = FileEntryField::BuildUse;

struct TextOf {
  const ICFile& entry;

  std::string operator()(std::string ICFile::*member) const { return entry.*member; }
  template <typename Integer>
  std::string operator()(Integer ICFile::*member) const {
    return std::to_string(entry.*member);
  }
};

struct TakeText {
  ICFile& entry;
  std::string_view text;

  void operator()(std::string ICFile::*member) const { entry.*member = text; }
  void operator()(std::int16_t ICFile::*member) const { entry.*member = tools::ToInt16(text); }
  void operator()(std::int32_t ICFile::*member) const { entry.*member = tools::ToInt32(text); }
};

struct TakeStoredText {
  ICFile& entry;
  std::string text;
  SettingPlace place;

  void operator()(std::string ICFile::*member) { entry.*member = std::move(text); }
  void operator()(std::int16_t ICFile::*member) { entry.*member = StoredInt16(text, place); }
  void operator()(std::int32_t ICFile::*member) { entry.*member = StoredInt32(text, place); }
};

bool IsNeeded(const FileEntryField& field, const ICFile& entry, EntryUse use) {
  if (use == EntryUse::Edit || field.buildUse == BuildUse::Always) return true;
  return field.buildUse == BuildUse::FolderScan && entry.Type == ICFile::kFolderScan;
}

}  // namespace

const std::array<FileEntryField, 14>& FileEntryFields() {
  static constexpr std::array<FileEntryField, 14> kFields{{
      {"Type", Text::EntryType, &ICFile::Type, "0"},
      {"Exclude", Text::EntryExclude, &ICFile::Exclude, "0"},
      {"ID", Text::EntryGuid, &ICFile::ID, "", BuildUse::Always, Access::ReadOnly},
      {"IncludeChildren", Text::EntryIncludeSubfolders, &ICFile::IncludeChildren, "0",
       BuildUse::FolderScan},
      {"Overwrite", Text::EntryOverwrite, &ICFile::Overwrite, "0"},
      {"Permanent", Text::EntryPermanent, &ICFile::Permanent, "0", BuildUse::Never},
      {"RegisterPath", Text::EntryRegisterPath, &ICFile::RegisterPath, "0"},
      {"SelfRegisterDLL", Text::EntrySelfRegister, &ICFile::SelfRegisterDLL, "0"},
      {"SourceName", Text::EntrySourceName, &ICFile::SourceName},
      {"SourcePath", Text::EntrySourceFolder, &ICFile::SourcePath},
      {"TargetFolder", Text::EntryTargetFolder, &ICFile::TargetFolder, "0"},
      {"TargetName", Text::EntryTargetName, &ICFile::TargetName},
      {"TargetSubFolder", Text::EntryTargetSubfolder, &ICFile::TargetSubFolder},
      {"Vital", Text::EntryVital, &ICFile::Vital, "1"},
  }};
  return kFields;
}

std::string FileEntryFieldText(const ICFile& entry, const FileEntryField& field) {
  return std::visit(TextOf{entry}, field.member);
}

void SetFileEntryField(ICFile& entry, std::string_view name, std::string_view text) {
  for (const FileEntryField& field : FileEntryFields()) {
    if (field.name != name || field.access == Access::ReadOnly) continue;
    std::visit(TakeText{entry, text}, field.member);
  }
}

std::string FileEntrySection(std::int32_t number) {
  return std::string(kFileSection).append(std::to_string(number));
}

std::int32_t ReadFileCount(const SettingReader& read, std::string_view path) {
  constexpr SettingName kCount = setting::kFileCount;
  return StoredCount(read(kCount.section, kCount.key, kCount.standard), {path, kCount});
}

void WriteFileCount(const SettingWriter& write, std::int32_t count) {
  write(setting::kFileCount.section, setting::kFileCount.key, std::to_string(count));
}

ICFile ReadFileEntry(const SettingReader& read, std::string_view path, std::int32_t number,
                     EntryUse use) {
  const std::string section = FileEntrySection(number);
  ICFile entry;
  for (const FileEntryField& field : FileEntryFields()) {
    if (!IsNeeded(field, entry, use)) continue;
    const bool isBuildType = use == EntryUse::Build && field.name == "Type";
    std::visit(
        TakeStoredText{entry,
                       read(section, field.name, isBuildType ? kBuildDefaultType : field.standard),
                       {path, section, field.name}},
        field.member);
  }
  return entry;
}

void RequireShortTexts(const ICFile& entry, std::string_view path, std::int32_t number) {
  const std::string section = FileEntrySection(number);
  for (const FileEntryField& field : FileEntryFields()) {
    const auto* const text = std::get_if<std::string ICFile::*>(&field.member);
    if (text != nullptr) RequireShortText(entry.**text, {path, section, field.name});
  }
}

void WriteFileEntry(const SettingWriter& write, std::int32_t number, const ICFile& entry) {
  const std::string section = FileEntrySection(number);
  for (const FileEntryField& field : FileEntryFields()) {
    write(section, field.name, FileEntryFieldText(entry, field));
  }
}

}  // namespace model
