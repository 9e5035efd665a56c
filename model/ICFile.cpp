#include "model/ICFile.h"

#include "model/StoredNumbers.h"

namespace model {

namespace {}  // namespace

std::string FileEntrySection(std::int32_t number) { return "File" + std::to_string(number); }

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
  const auto text = [&](std::string_view key) { return read(section, key, ""); };
  const auto number16 = [&](std::string_view key, std::string_view defaultValue) {
    return StoredInt16(read(section, key, defaultValue), {path, section, key});
  };
  const auto flag = [&](std::string_view key) { return number16(key, "0"); };
  ICFile entry;
  const bool builds = use == EntryUse::Build;
  entry.Type = number16("Type", builds ? kBuildDefaultType : "0");
  entry.Exclude = flag("Exclude");
  entry.ID = text("ID");
  if (!builds || entry.Type == ICFile::kFolderScan) {
    entry.IncludeChildren = flag("IncludeChildren");
  }
  entry.Overwrite = flag("Overwrite");
  if (!builds) entry.Permanent = flag("Permanent");
  entry.RegisterPath = flag("RegisterPath");
  entry.SelfRegisterDLL = flag("SelfRegisterDLL");
  entry.SourceName = text("SourceName");
  entry.SourcePath = text("SourcePath");
  entry.TargetFolder =
      StoredInt32(read(section, "TargetFolder", "0"), {path, section, "TargetFolder"});
  entry.TargetName = text("TargetName");
  entry.TargetSubFolder = text("TargetSubFolder");
  entry.Vital = number16("Vital", "1");
  return entry;
}

void WriteFileEntry(const SettingWriter& write, std::int32_t number, const ICFile& entry) {
  const std::string section = FileEntrySection(number);
  const auto text = [&](std::string_view key, std::string_view value) {
    write(section, key, value);
  };
  const auto integer = [&](std::string_view key, std::int32_t value) {
    write(section, key, std::to_string(value));
  };
  integer("Type", entry.Type);
  integer("Exclude", entry.Exclude);
  text("ID", entry.ID);
  integer("IncludeChildren", entry.IncludeChildren);
  integer("Overwrite", entry.Overwrite);
  integer("Permanent", entry.Permanent);
  integer("RegisterPath", entry.RegisterPath);
  integer("SelfRegisterDLL", entry.SelfRegisterDLL);
  text("SourceName", entry.SourceName);
  text("SourcePath", entry.SourcePath);
  integer("TargetFolder", entry.TargetFolder);
  text("TargetName", entry.TargetName);
  text("TargetSubFolder", entry.TargetSubFolder);
  integer("Vital", entry.Vital);
}

}  // namespace model
