#include "tools/desktop/ListViewStyle.h"

#include <QHeaderView>
#include <QTreeView>

#include "tools/desktop/ListItemDelegate.h"

namespace tools {

void ApplyListViewStyle(QTreeView& view) {
  view.setRootIsDecorated(false);
  view.setItemsExpandable(false);
  view.setUniformRowHeights(true);
  view.setAllColumnsShowFocus(true);
  view.setAlternatingRowColors(true);
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTextElideMode(Qt::ElideRight);
  view.setItemDelegate(new ListItemDelegate(&view));
  view.header()->setSectionsMovable(false);
  view.header()->setStretchLastSection(false);
  view.header()->setHighlightSections(false);
  view.header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace tools
