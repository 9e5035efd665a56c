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
      {"Type", 291, &ICFile::Type, true},
      {"Exclude", 292, &ICFile::Exclude, true},
      {"ID", 293, &ICFile::ID, false},
      {"IncludeChildren", 294, &ICFile::IncludeChildren, true},
      {"Overwrite", 295, &ICFile::Overwrite, true},
      {"Permanent", 296, &ICFile::Permanent, true},
      {"RegisterPath", 297, &ICFile::RegisterPath, true},
      {"SelfRegisterDLL", 298, &ICFile::SelfRegisterDLL, true},
      {"SourceName", 299, &ICFile::SourceName, true},
      {"SourcePath", 300, &ICFile::SourcePath, true},
      {"TargetFolder", 301, &ICFile::TargetFolder, true},
      {"TargetName", 303, &ICFile::TargetName, true},
      {"TargetSubFolder", 302, &ICFile::TargetSubFolder, true},
      {"Vital", 358, &ICFile::Vital, true},
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
