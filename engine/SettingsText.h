// What the text of a settings file tells beyond its values: names that stand there twice, and
// conflicts of a merge.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/files/Files.h"
#include "tools/settings/SettingsFile.h"

namespace engine {

/// What lies at the path of one of a product's files. Raises tools::Error when the system cannot
/// tell (no right to look, a defective disk).
[[nodiscard]] tools::PathKind LookAt(const std::string& path);

/// The numbers from 1 to `count`, ascending, of the file entries that a component's settings have a
/// section for.
[[nodiscard]] std::vector<std::int32_t> StoredEntries(const tools::SettingsFile& settings,
                                                      std::int32_t count);

/// Calls `visit` with the name of each section, in order. The views are of `text`.
void ForEachSection(std::string_view text, const std::function<void(std::string_view name)>& visit);

/// A section, or a key of a section, that the text has more than once: the first one counts. The
/// views are of `text`.
struct DuplicateName {
  std::string_view section;
  std::string_view key;  ///< empty: the section itself
  std::size_t line = 0;  ///< of the name that does not count, from 1
};

struct Duplicates {
  std::vector<DuplicateName> names;  ///< the first few
  std::size_t count = 0;             ///< of all
};

/// Names are the same when they differ only in the case of ASCII letters.
[[nodiscard]] Duplicates FindDuplicates(std::string_view text);

/// The number (from 1) of the first line that marks a conflict of a version control system's merge;
/// 0 when there is none.
[[nodiscard]] std::size_t ConflictLine(std::string_view text);

}  // namespace engine
