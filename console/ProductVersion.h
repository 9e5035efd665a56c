// The product and version that a call names.
#pragma once

#include <cstdint>
#include <string>

#include "model/ModProject.h"

namespace console {

/// Thrown where a call turns out to be one that cannot be carried out.
struct BadCall {
  std::string text;
};

/// Opens the product file. Raises BadCall when it is missing or none.
void OpenProduct(model::ModProject& project, const std::string& path);

/// The slot of a version. Raises BadCall that names the versions there are.
[[nodiscard]] std::int32_t FindVersion(const model::ModProject& project, const std::string& wanted);

}  // namespace console
