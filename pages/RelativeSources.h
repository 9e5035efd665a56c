// Source folders stored relative to the product's folder, so that a product can be kept in version
// control and built anywhere.
#pragma once

#include <string>
#include <vector>

#include "model/FileEntries.h"
#include "model/ModProject.h"
#include "pages/FileListDocument.h"
#include "tools/Dialogs.h"

namespace pages {

/// `folder` from the product's folder on, with "/" between its parts ("." for that folder itself);
/// empty when it does not lie there or is relative already. Compares the paths as they are written.
[[nodiscard]] std::string RelativeFolder(const std::string& folder,
                                         const std::string& productFolder);

/// Turns the sources of entries to be added that lie below the product's folder into relative ones,
/// if the author wants that for this product: asks once, and keeps the answer in the product.
/// The author reads why when it cannot be kept. Raises tools::Error when the product is gone.
void OfferRelativeSources(std::vector<model::ICFile>& entries, model::ModProject& project,
                          tools::Dialogs& dialogs);

/// The same for one folder that the author has chosen.
[[nodiscard]] std::string OfferRelativeFolder(const std::string& folder, model::ModProject& project,
                                              tools::Dialogs& dialogs);

/// The edits that turn all sources of the entries below the product's folder into relative ones.
[[nodiscard]] std::vector<FieldEdit> EditsToRelativeSources(const model::FileEntries& entries,
                                                            const std::string& productFolder);

}  // namespace pages
