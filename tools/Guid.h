// Globally unique identifiers.
#pragma once

#include <string>

namespace tools {

/// A new random GUID (RFC 4122, version 4) as text in braces, upper case:
/// {XXXXXXXX-XXXX-4XXX-YXXX-XXXXXXXXXXXX}.
[[nodiscard]] std::string NewGuidText();

}  // namespace tools
