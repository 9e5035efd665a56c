// A file name and, behind a line break, a search pattern.
#include "tests/fuzz/Fuzz.h"
#include "tools/Text.h"
#include "tools/files/FindFiles.h"

void tests::Fuzz(std::string_view input) {
  const std::size_t end = input.find('\n');
  if (end == input.npos) return;
  const std::string_view name = input.substr(0, end);
  const std::string_view pattern = input.substr(end + 1);
  const bool matches = tools::MatchesPattern(name, pattern);
  Require(tools::MatchesPattern(name, "*.*"), "every name matches *.*");
  Require(matches == tools::MatchesPattern(tools::FoldCase(name), pattern), "case does not count");
  if (tools::HasControlCharacter(pattern) || pattern.find_first_of("*?") != pattern.npos) return;
  Require(matches == (tools::FoldCase(name) == tools::FoldCase(pattern)), "a name matches itself");
}
