// What the fuzz targets share. A target is one source with the function Fuzz. libFuzzer calls it
// with inputs that it makes (preset fuzz); in every other build ReplaySeeds calls it with the files
// in tests/fuzz/seeds.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

/// Feeds an input to what is to be tested. A crash, an endless loop or a broken rule is a finding.
void Fuzz(std::string_view input);

/// Ends the program when a rule is broken.
inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "broken rule: %s\n", rule);
  std::abort();
}

/// The parts between the separators; at least one.
inline std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t end = text.find(separator); end != text.npos; end = text.find(separator)) {
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.emplace_back(text);
  return parts;
}

}  // namespace tests
