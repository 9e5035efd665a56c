// Globally unique identifiers.
#pragma once

#include <random>
#include <string>

namespace tools {

/// A new random GUID (RFC 4122, version 4) as text in braces, upper case:
/// {XXXXXXXX-XXXX-4XXX-YXXX-XXXXXXXXXXXX}.
[[nodiscard]] std::string NewGuidText();

/// The same for whoever needs many: opening the machine's source of random bits takes longer than
/// reading a GUID from it.
class GuidSource {
 public:
  [[nodiscard]] std::string NewText();

 private:
  std::random_device random_;
};

}  // namespace tools
