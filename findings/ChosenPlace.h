// A place in a version that its author wants to see.
#pragma once

#include <cstdint>
#include <string>

#include "model/Slots.h"

namespace findings {

struct ChosenPlace {
  model::ComponentSlot component = 0;  ///< 0 when no place was chosen
  std::int32_t entry = 0;              ///< the entry's number in it when it was found; 0: none
  std::string entryId{};  ///< tells the entry whatever its number is now; empty: it has none
};

}  // namespace findings
