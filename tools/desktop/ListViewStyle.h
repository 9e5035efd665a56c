// The common look and behaviour of the program's list views in report view.
#pragma once

class QTreeView;

namespace tools {

/// Rows without a tree's decoration, selected whole and one at a time; rows of equal height, so
/// that a list of thousands of rows is laid out at once; no key or click starts editing a cell;
/// long texts end in an ellipsis; fixed order of columns.
void ApplyListViewStyle(QTreeView& view);

}  // namespace tools
