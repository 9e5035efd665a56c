// Globally unique identifiers.
#pragma once

#include <random>
#include <string>

namespace tools {

/// A new random GUID (RFC 4122, version 4) as text in braces, upper case:
/// {XXXXXXXX-XXXX-4XXX-YXXX-XXXXXXXXXXXX}.
[[nodiscard]] std::string NewGuidText();

/// The same for many GUIDs: the machine's source of random bits is slow, so that it only seeds a
/// generator.
class GuidSource {
 public:
  GuidSource();
  GuidSource(const GuidSource&) = delete;  // a copy would give the same ones
  GuidSource& operator=(const GuidSource&) = delete;
  [[nodiscard]] std::string NewText();

 private:
  std::mt19937_64 random_;
};

}  // namespace tools
