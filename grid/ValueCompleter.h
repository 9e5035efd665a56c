// The list of known values below a text box.
#pragma once

#include <QCompleter>
#include <vector>

#include "grid/KnownValues.h"

class QLineEdit;

namespace grid {

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
