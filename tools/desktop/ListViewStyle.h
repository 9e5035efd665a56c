// The common look and behaviour of the program's list views in report view.
#pragma once

class QAbstractItemView;
class QTreeView;

namespace tools {

/// Rows without a tree's decoration, selected whole and one at a time; rows of equal height, so
/// that a list of thousands of rows is laid out at once; no key or click starts editing a cell;
/// long texts end in an ellipsis; fixed order of columns; the current row is the selected one. The
/// view has its model.
void ApplyListViewStyle(QTreeView& view);

/// Keeps the current row of a list with single selection the selected one: the first row becomes
/// both when the list gets the focus without one, so that keys have a row to act on; when the row
/// is removed, its neighbour does; a click cannot deselect it. The view has its model.
void SelectCurrentRow(QAbstractItemView& view);

}  // namespace tools
