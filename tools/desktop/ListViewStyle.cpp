#include "tools/desktop/ListViewStyle.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTextDocument>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "tools/desktop/FocusStyle.h"

namespace tools {

namespace {

constexpr int kRowPadding = 6;  // pixels, above and below together

}  // namespace

QSize ListItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRowPadding);
}

bool ListItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString text = index.data(Qt::ToolTipRole).toString();
  const QString shown =
      text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
  QToolTip::showText(event->globalPos(), shown, view, view->visualRect(index));
  return true;
}

namespace {

/// Belongs to the view that it watches.
class CurrentRowSelector : public QObject {
 public:
  explicit CurrentRowSelector(QAbstractItemView& view) : QObject(&view), view_(view) {
    view.installEventFilter(this);
    // Queued: both change in the middle of a removal, and one ahead of the other.
    const QItemSelectionModel* selection = view.selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this,
            &CurrentRowSelector::SelectCurrent, Qt::QueuedConnection);
    connect(selection, &QItemSelectionModel::currentChanged, this,
            &CurrentRowSelector::SelectCurrent, Qt::QueuedConnection);
    connect(view.model(), &QAbstractItemModel::rowsRemoved, this,
            &CurrentRowSelector::SelectCurrent);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusIn && view_.model() != nullptr) {
      const auto reason = static_cast<const QFocusEvent*>(event)->reason();
      // A click chooses its own row; selecting another one first would scroll the list under it.
      if (reason != Qt::MouseFocusReason && !view_.currentIndex().isValid()) {
        view_.setCurrentIndex(view_.model()->index(0, 0, view_.rootIndex()));
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void SelectCurrent() {
    if (view_.selectionMode() != QAbstractItemView::SingleSelection) return;
    const QModelIndex current = view_.currentIndex();
    if (current.isValid() && !view_.selectionModel()->isSelected(current)) {
      view_.setCurrentIndex(current);
    }
  }

  QAbstractItemView& view_;
};

}  // namespace

int RowHeight(const QTreeView& view) {
  const int icon = view.style()->pixelMetric(QStyle::PM_ListViewIconSize, nullptr, &view);
  return std::max(view.fontMetrics().lineSpacing(), icon) + kRowPadding;
}

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
  SelectCurrentRow(view);
}

void SelectCurrentRow(QAbstractItemView& view) { new CurrentRowSelector(view); }

namespace {

constexpr int kTextPercent = 62;  ///< of the mixture; less would be hard to read

int Mix(int text, int base) { return (text * kTextPercent + base * (100 - kTextPercent)) / 100; }

QColor Mixed(const QColor& text, const QColor& base) {
  return {Mix(text.red(), base.red()), Mix(text.green(), base.green()),
          Mix(text.blue(), base.blue())};
}

}  // namespace

QColor GreyedTextColor(const QStyleOptionViewItem& item) {
  if (IsPaleSelection(&item, item.widget)) {
    return Mixed(item.palette.color(QPalette::Active, QPalette::Text), PaleSelection(item.palette));
  }
  const bool isSelected = (item.state & QStyle::State_Selected) != 0;
  const QPalette::ColorGroup group =
      (item.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
  const QColor text =
      item.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
  const QColor base = item.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base);
  return Mixed(text, base);
}

QColor GreyedTextColor(const QPalette& palette) {
  return Mixed(palette.color(QPalette::Text), palette.color(QPalette::Base));
}

void DrawGreyedText(QPainter& painter, const QStyleOptionViewItem& item, const QRect& place,
                    Qt::Alignment alignment, const QString& text) {
  painter.save();
  painter.setFont(item.font);
  painter.setPen(GreyedTextColor(item));
  painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine,
                   item.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
  painter.restore();
}

}  // namespace tools
