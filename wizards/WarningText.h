// A warning below a field, which never takes more room than is kept for it.
#pragma once

#include <QLabel>

namespace wizards {

/// Has room for three lines. Of a longer text the middle is left out, where a long path stands; its
/// tooltip and screen readers have the whole text.
class WarningText : public QLabel {
  Q_OBJECT

 public:
  explicit WarningText(QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// What is painted of the text.
  [[nodiscard]] QString Fitting() const;
};

}  // namespace wizards
