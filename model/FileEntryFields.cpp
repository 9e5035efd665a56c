#include "model/FileEntryFields.h"

#include "tools/Numbers.h"

namespace model {

namespace {

struct Reader {
  const ICFile& entry;

  std::string operator()(std::string ICFile::*member) const { return entry.*member; }
  template <typename Integer>
  std::string operator()(Integer ICFile::*member) const {
    return std::to_string(entry.*member);
  }
};

struct Writer {
  ICFile& entry;
  std::string_view text;

  void operator()(std::string ICFile::*member) const { entry.*member = text; }
  void operator()(std::int16_t ICFile::*member) const { entry.*member = tools::ToInt16(text); }
  void operator()(std::int32_t ICFile::*member) const { entry.*member = tools::ToInt32(text); }
};

}  // namespace

const std::array<FileEntryField, 14>& FileEntryFields() {
  static constexpr std::array<FileEntryField, 14> kFields{{
      {"Type", Text::EntryType, &ICFile::Type, true},
      {"Exclude", Text::EntryExclude, &ICFile::Exclude, true},
      {"ID", Text::EntryGuid, &ICFile::ID, false},
      {"IncludeChildren", Text::EntryIncludeSubfolders, &ICFile::IncludeChildren, true},
      {"Overwrite", Text::EntryOverwrite, &ICFile::Overwrite, true},
      {"Permanent", Text::EntryPermanent, &ICFile::Permanent, true},
      {"RegisterPath", Text::EntryRegisterPath, &ICFile::RegisterPath, true},
      {"SelfRegisterDLL", Text::EntrySelfRegister, &ICFile::SelfRegisterDLL, true},
      {"SourceName", Text::EntrySourceName, &ICFile::SourceName, true},
      {"SourcePath", Text::EntrySourceFolder, &ICFile::SourcePath, true},
      {"TargetFolder", Text::EntryTargetFolder, &ICFile::TargetFolder, true},
      {"TargetName", Text::EntryTargetName, &ICFile::TargetName, true},
      {"TargetSubFolder", Text::EntryTargetSubfolder, &ICFile::TargetSubFolder, true},
      {"Vital", Text::EntryVital, &ICFile::Vital, true},
  }};
  return kFields;
}

std::string FileEntryFieldText(const ICFile& entry, const FileEntryField& field) {
  return std::visit(Reader{entry}, field.member);
}

void SetFileEntryField(ICFile& entry, std::string_view name, std::string_view text) {
  for (const FileEntryField& field : FileEntryFields()) {
    if (field.editable && field.name == name) std::visit(Writer{entry, text}, field.member);
  }
}

}  // namespace model
