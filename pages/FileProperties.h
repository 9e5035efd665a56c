// The fields of file entries in the file page's grid.
#pragma once

#include <string>
#include <vector>

#include "grid/ctlPropertyEditor.h"
#include "model/ICFile.h"

namespace pages {

/// Fills the grid, which is cleared first, with a row per field: the value where all entries agree,
/// empty where they do not. Of a single file it also shows what the source is like now; a relative
/// source is taken from `productFolder`.
void ShowFileProperties(grid::ctlPropertyEditor& grid,
                        const std::vector<const model::ICFile*>& entries,
                        const std::string& productFolder);

/// False for the rows that tell what cannot be set.
[[nodiscard]] bool IsFilePropertyEditable(const QString& name);

}  // namespace pages
