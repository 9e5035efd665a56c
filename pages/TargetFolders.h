// The destination folders as the file page offers and names them.
#pragma once

#include <QComboBox>
#include <cstdint>
#include <map>
#include <vector>

namespace pages {

/// The numbers of all destination folders, in the order in which they are listed.
[[nodiscard]] std::vector<std::int32_t> TargetFolderNumbers();

/// What the page's list says of a folder: "Ordner "..."" for a shell's folder, the name alone for
/// one of the program's own; of an unknown number that it is unknown.
[[nodiscard]] QString TargetFolderCaption(std::int32_t number);

/// True for the number of a known folder.
[[nodiscard]] bool IsTargetFolder(std::int32_t number);

/// Fills the box with all folders, their numbers as the items' data.
void FillTargetFolders(QComboBox& box);

/// Makes the box draw folders that get entries bold, with the number of entries, which is given by
/// folder, behind them. The items' texts stay.
void ShowFolderCounts(QComboBox& box, const std::map<std::int32_t, int>& counts);

}  // namespace pages
