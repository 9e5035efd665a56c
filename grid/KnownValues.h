// What helps the user to choose the value of a property: the values it is known to take, how lists
// show what they mean, and the list to pick one from.
#pragma once

#include <QCompleter>
#include <QString>
#include <functional>
#include <vector>

#include "tools/desktop/ListViewStyle.h"

class QLineEdit;

namespace grid {

/// A value that a property is known to take, and what it means.
struct KnownValue {
  QString value;
  QString meaning;
};

struct ValueHelp {
  /// The values that are proposed; others are taken as well.
  std::vector<KnownValue> values{};
  /// Lets the user choose what the value names, a folder on disk; empty text when he cancels. None:
  /// the value names nothing of that kind.
  std::function<QString()> browse{};
};

/// The item's role that says what its value means; empty for a value without a known meaning.
inline constexpr int kMeaningRole = Qt::UserRole + 1;

/// "2001  Installationsordner", the meaning greyed.
class MeaningDelegate : public tools::ListItemDelegate {
  Q_OBJECT

 public:
  using ListItemDelegate::ListItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

/// Down, Alt+Down and the arrow in the field open the list of all values, each with its meaning;
/// what is typed then narrows it down, by value or meaning. What the user picks becomes the text.
/// Typing alone opens nothing: Enter has to confirm the text as it stands.
class ValueCompleter : public QCompleter {
  Q_OBJECT

 public:
  /// Belongs to the field; `name` is what screen readers call the list.
  ValueCompleter(QLineEdit& field, const QString& name, const std::vector<KnownValue>& values);

  void Open();

  QString pathFromIndex(const QModelIndex& index) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddArrow(const QString& name);
  void Narrow(const QString& text);
  void Take(const QString& value);

  QLineEdit& field_;
};

}  // namespace grid
