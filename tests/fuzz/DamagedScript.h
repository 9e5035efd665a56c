// Installation scripts that nobody wrote.
#pragma once

#include <string>
#include <vector>

#include "tests/fuzz/Fuzzer.h"

namespace tests {

/// Drops, doubles, exchanges or damages up to three lines.
void DamageScript(std::vector<std::string>& lines, Random& random);

/// The lines as a file has them.
[[nodiscard]] std::string ScriptText(const std::vector<std::string>& lines);

}  // namespace tests
