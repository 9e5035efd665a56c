// The German texts of the user interface (resources/texts.de.inc), by their names.
#pragma once

#include <cstdint>
#include <string>

namespace model {

// Windows' headers have a TEXT of their own.
#pragma push_macro("TEXT")
#undef TEXT

/// The number of each text; the table alone says it.
enum class Text : std::int32_t {
#define TEXT(number, name, text) name = (number),
#include "resources/texts.de.inc"
#undef TEXT
};
#pragma pop_macro("TEXT")

/// The text of that number; empty for a number that the table does not have.
[[nodiscard]] std::string LoadText(Text text);

}  // namespace model
