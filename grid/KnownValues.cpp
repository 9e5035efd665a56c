#include "grid/KnownValues.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QStandardItemModel>

namespace grid {

using namespace Qt::StringLiterals;

void MeaningDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  ListItemDelegate::paint(painter, option, index);
  const QString meaning = index.data(kMeaningRole).toString();
  if (meaning.isEmpty()) return;
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QStyle& style = item.widget != nullptr ? *item.widget->style() : *QApplication::style();
  QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
  const int gap = item.fontMetrics.averageCharWidth() * 2;
  place.setLeft(place.left() + item.fontMetrics.horizontalAdvance(item.text) + gap);
  if (place.width() < gap) return;
  tools::DrawGreyedText(*painter, item, place, Qt::AlignLeft | Qt::AlignVCenter, meaning);
}

namespace {

constexpr int kSearchedRole = Qt::UserRole + 2;
constexpr int kMostRows = 12;
constexpr int kArrowSize = 16;  ///< pixels, at 100 %

QStandardItemModel* ModelOf(const std::vector<KnownValue>& values, QObject* parent) {
  auto* model = new QStandardItemModel(parent);
  for (const KnownValue& known : values) {
    auto* item = new QStandardItem(known.value);
    const QString both = known.value + u"  "_s + known.meaning;
    item->setData(known.meaning, kMeaningRole);
    item->setData(both, kSearchedRole);
    item->setData(both, Qt::AccessibleTextRole);
    model->appendRow(item);
  }
  return model;
}

/// A triangle in the text's colour: the style's own arrows are made for light palettes.
QIcon ArrowIcon(const QWidget& widget) {
  const qreal scale = widget.devicePixelRatioF();
  QPixmap picture(QSize(kArrowSize, kArrowSize) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(widget.palette().color(QPalette::Text));
  painter.drawPolygon(QPolygonF({{4, 6}, {12, 6}, {8, 11}}));
  painter.end();
  return picture;
}

}  // namespace

ValueCompleter::ValueCompleter(QLineEdit& field, const QString& name,
                               const std::vector<KnownValue>& values)
    : QCompleter(&field), field_(field) {
  setModel(ModelOf(values, this));
  setCompletionRole(kSearchedRole);
  setFilterMode(Qt::MatchContains);
  setCaseSensitivity(Qt::CaseInsensitive);
  setMaxVisibleItems(kMostRows);
  popup()->setObjectName(u"lstKnownValues"_s);
  popup()->setItemDelegate(new MeaningDelegate(this));
  setWidget(&field);
  popup()->setAccessibleName(name);
  AddArrow(name);
  connect(&field, &QLineEdit::textEdited, this, &ValueCompleter::Narrow);
  connect(this, qOverload<const QString&>(&QCompleter::activated), this, &ValueCompleter::Take);
}

void ValueCompleter::AddArrow(const QString& name) {
  QAction* arrow = field_.addAction(ArrowIcon(field_), QLineEdit::TrailingPosition);
  arrow->setText(name);
  const QKeySequence keys(Qt::ALT | Qt::Key_Down);
  arrow->setToolTip(u"%1 (%2)"_s.arg(name, keys.toString(QKeySequence::NativeText)));
  connect(arrow, &QAction::triggered, this, &ValueCompleter::Open);
}

void ValueCompleter::Open() {
  field_.setFocus();
  setCompletionPrefix({});
  complete();
  const QModelIndexList current = completionModel()->match(
      completionModel()->index(0, 0), Qt::DisplayRole, field_.text(), 1, Qt::MatchExactly);
  if (!current.isEmpty()) popup()->setCurrentIndex(current.front());
}

void ValueCompleter::Narrow(const QString& text) {
  if (!popup()->isVisible()) return;
  setCompletionPrefix(text);
  if (completionCount() > 0) {
    complete();
  } else {
    popup()->hide();
  }
}

void ValueCompleter::Take(const QString& value) {
  field_.setText(value);
  field_.setModified(true);
  field_.selectAll();
}

QString ValueCompleter::pathFromIndex(const QModelIndex& index) const {
  return index.data(Qt::DisplayRole).toString();
}

bool ValueCompleter::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &field_ && event->type() == QEvent::KeyPress && !popup()->isVisible() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    Open();
    return true;
  }
  return QCompleter::eventFilter(watched, event);
}

}  // namespace grid
