// The texts of the editor pages.
#pragma once

#include <QString>

#include "model/TextTable.h"
#include "tools/Text.h"
#include "tools/desktop/QtText.h"

namespace pages {

using model::Text;
using tools::GermanNumber;

/// A text of the table as Qt shows it.
[[nodiscard]] inline QString Caption(Text text) { return tools::ToQString(model::LoadText(text)); }

/// What remains of a stored text that Qt has shown: bytes that are not UTF-8 are replaced.
[[nodiscard]] inline std::string AsShown(std::string_view text) {
  return tools::ToUtf8(tools::ToQString(text));
}

/// A text of the table with a number in the place of its "%count%".
[[nodiscard]] inline std::string Counted(Text text, std::size_t count) {
  return tools::ReplaceAll(model::LoadText(text), "%count%",
                           tools::ToUtf8(GermanNumber(static_cast<qlonglong>(count))));
}

}  // namespace pages
