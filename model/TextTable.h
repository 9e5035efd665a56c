// The numbered German texts of the user interface (resources/texts.de.inc).
#pragma once

#include <cstdint>
#include <string>

namespace model {

/// Text `number` of the table (200 to 397); empty for any other number.
[[nodiscard]] std::string LoadText(std::int32_t number);

}  // namespace model
