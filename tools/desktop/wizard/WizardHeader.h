// A wizard page's title and description.
#pragma once

#include <QFrame>

class QLabel;

namespace tools {

/// `lblPageTitle` and `lblPageDescription`: on an inner page in a bright strip with the parcel at
/// its end, on a welcome or final page large and on the page itself.
class WizardHeader : public QFrame {
  Q_OBJECT

 public:
  explicit WizardHeader(QWidget* parent);

  void SetTexts(const QString& title, const QString& description);
  void SetInner(bool inner);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int EmblemSize() const;

  QLabel* lblPageTitle_;
  QLabel* lblPageDescription_;
  bool inner_ = true;
};

}  // namespace tools
