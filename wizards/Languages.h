// Language identifiers (LCID) and their German names.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace wizards {

struct Language {
  std::int32_t lcid;
  const char* name;  ///< UTF-8
};

/// The common languages in the order of their names, after the neutral one (0).
/// Numbers: Microsoft, Windows Language Code Identifier (LCID) Reference.
[[nodiscard]] std::span<const Language> CommonLanguages();

/// "1031 – Deutsch (Deutschland)"; the number alone for a language that is not a common one.
[[nodiscard]] std::string LanguageText(std::int32_t lcid);

/// The identifier in what a user typed, as decimal text: the number it begins with, or that of the
/// common language with this name (case does not count). Empty when it is neither.
[[nodiscard]] std::string LanguageNumber(const std::string& typed);

}  // namespace wizards
