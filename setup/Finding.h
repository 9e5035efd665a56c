// What is wrong with a setup, and where.
#pragma once

#include <cstdint>
#include <string>

namespace setup {

struct Finding {
  std::string file = {};            ///< path of the file that is at fault; empty when none is
  std::uint32_t line = 0;           ///< its line, from 1; 0 when it has none
  std::string text = {};            ///< what is wrong (German)
  std::int32_t component = 0;       ///< component slot in the product, 0 when it belongs to none
  std::string componentTitle = {};  ///< its title; known without a slot when the script names it
  std::int32_t entry = 0;           ///< entry number in the component, 0 when it belongs to none
};

}  // namespace setup
