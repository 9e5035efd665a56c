// A file entry of a component: which file is installed, from where, to where, and how.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

#include "model/TextTable.h"

namespace model {

/// One file entry. Flags are numbers, not booleans: what the author typed is kept.
struct ICFile {
  static constexpr std::int16_t kSingleFile = 1;  ///< Type: SourcePath and SourceName name one file
  static constexpr std::int16_t kFolderScan = 2;  ///< Type: SourceName is a pattern for builds

  std::string ID;                    ///< unique within its component: a GUID as text
  std::int16_t Type = 0;             ///< kSingleFile, kFolderScan; other values install nothing
  std::string SourcePath;            ///< folder of the source, without the file name
  std::string SourceName;            ///< file name, or the pattern of a folder scan
  std::int16_t IncludeChildren = 0;  ///< folder scan: not 0 searches subfolders too
  std::int32_t TargetFolder = 0;     ///< destination folder number (FolderTable.h)
  std::string TargetSubFolder;       ///< path below it; for kCustomFolder the whole path
  std::string TargetName;            ///< name at the destination; empty keeps the source's
  std::int16_t Exclude = 0;          ///< exactly 1 leaves the entry out of builds
  std::int16_t Permanent = 0;
  std::int16_t SelfRegisterDLL = 0;  ///< exactly 1 registers the installed file
  std::int16_t Overwrite = 0;        ///< not 0 replaces an existing file
  std::int16_t RegisterPath = 0;
  std::int16_t Vital = 1;  ///< not 0: failing to install it ends the installation
};

/// One field: how it is stored, and how the editor shows it. The only list of the fields.
struct FileEntryField {
  using Member =
      std::variant<std::int16_t ICFile::*, std::int32_t ICFile::*, std::string ICFile::*>;
  enum class Access { Editable, ReadOnly };
  /// Which entries a build needs the field of.
  enum class BuildUse { Always, FolderScan, Never };

  std::string_view name;  ///< of its key, and of its row in the editor
  Text title;
  Member member;
  std::string_view standard = "";  ///< what an absent key counts as; a number for a number
  BuildUse buildUse = BuildUse::Always;
  Access access = Access::Editable;
};

/// All fields, in the order in which they are stored and shown.
[[nodiscard]] const std::array<FileEntryField, 14>& FileEntryFields();

/// The field's value; numbers in decimal.
[[nodiscard]] std::string FileEntryFieldText(const ICFile& entry, const FileEntryField& field);

/// Sets the editable field of that name (others change nothing): texts as they are, of numbers the
/// number that `text` begins with, 0 when it begins with none. Raises tools::Error when the number
/// does not fit the field, which then keeps its value.
void SetFileEntryField(ICFile& entry, std::string_view name, std::string_view text);

/// Reads and writes settings of one component: section, key, default; section, key, value.
using SettingReader =
    std::function<std::string(std::string_view, std::string_view, std::string_view)>;
using SettingWriter = std::function<void(std::string_view, std::string_view, std::string_view)>;

/// What a build reads where an entry has no "Type".
inline constexpr std::string_view kBuildDefaultType = "1";

/// What an entry is read for. The editor needs every number. A build passes over those that it does
/// not use: "Permanent", and "IncludeChildren" of a single file; they stay 0.
enum class EntryUse {
  Edit,  ///< without "Type": 0, which installs nothing
  Build  ///< without "Type": 1, a single file
};

// The functions that read take the path of the component's file: their errors name it and the key.

/// The number of entries: section "Files", key "Count". Raises tools::Error as StoredCount does.
[[nodiscard]] std::int32_t ReadFileCount(const SettingReader& read, std::string_view path);
void WriteFileCount(const SettingWriter& write, std::int32_t count);

/// The section of entry `number` (1-based): kFileSection followed by the number.
inline constexpr std::string_view kFileSection = "File";
[[nodiscard]] std::string FileEntrySection(std::int32_t number);

/// Entry `number`. Raises tools::Error when a number that `use` needs does not fit its field.
[[nodiscard]] ICFile ReadFileEntry(const SettingReader& read, std::string_view path,
                                   std::int32_t number, EntryUse use);
/// Raises tools::Error naming a text of the entry that no build takes: one beyond kLongestText.
void RequireShortTexts(const ICFile& entry, std::string_view path, std::int32_t number);
/// Writes the fourteen keys of entry `number`.
void WriteFileEntry(const SettingWriter& write, std::int32_t number, const ICFile& entry);

}  // namespace model
