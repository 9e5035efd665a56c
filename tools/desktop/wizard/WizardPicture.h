// The drawn pictures of a wizard: an open parcel before a shaded ground.
#pragma once

#include <QPixmap>
#include <QWidget>

class QPainter;

namespace tools {

/// Draws an open parcel that fills the square `area`.
void DrawParcel(QPainter& painter, const QRectF& area);

/// The side picture of welcome and final pages. Its width is fixed, its height free.
class WizardPicture : public QWidget {
  Q_OBJECT

 public:
  explicit WizardPicture(QWidget* parent);

  /// Shows the picture file (cut to the area) instead of the drawing; an empty or unreadable one
  /// brings the drawing back.
  void SetImage(const QString& path);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap image_;
};

}  // namespace tools
