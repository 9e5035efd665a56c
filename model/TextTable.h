// The numbered German texts of the user interface (resources/texts.de.inc).
#pragma once

#include <cstdint>
#include <string>

namespace model {

/// Text `number` of the table; empty for a number that the table does not have.
[[nodiscard]] std::string LoadText(std::int32_t number);

}  // namespace model
