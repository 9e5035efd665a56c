// Language identifiers (LCID) and their German names.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace model {

struct Language {
  std::int32_t lcid;
  const char* name;  ///< UTF-8
};

/// The common languages in the order of their names, after the neutral one (0).
/// Numbers: Microsoft, Windows Language Code Identifier (LCID) Reference.
[[nodiscard]] std::span<const Language> CommonLanguages();

/// "1031 – Deutsch (Deutschland)" for the number of a common language; another text as it is.
[[nodiscard]] std::string LanguageText(const std::string& language);

/// "1031 – Deutsch (Deutschland) (wie in den Erstellungs-Optionen)" for the language of a
/// configuration; empty without one.
[[nodiscard]] std::string ConfiguredLanguageText(const std::string& language);

/// The identifier that a user typed, as decimal text: a whole number, or the common language with
/// this name or LanguageText (case does not count). Empty when it is none of these.
[[nodiscard]] std::string LanguageNumber(const std::string& typed);

}  // namespace model
