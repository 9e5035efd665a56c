// The texts of the editor pages.
#pragma once

#include <QString>
#include <cstdint>

#include "model/TextTable.h"
#include "tools/desktop/QtText.h"

namespace pages {

/// Text `number` of the text table.
[[nodiscard]] inline QString Text(std::int32_t number) {
  return tools::ToQString(model::LoadText(number));
}

}  // namespace pages
