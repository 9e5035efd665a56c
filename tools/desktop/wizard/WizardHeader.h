// The decoration of a wizard's pages: title and description, and the drawn pictures of an open
// parcel.
#pragma once

#include <QFrame>
#include <QPixmap>
#include <QWidget>

class QLabel;

namespace tools {

/// A page's title and description, `lblPageTitle` and `lblPageDescription`: on an inner page in a
/// bright strip with the parcel at its end, on a welcome or final page large and on the page
/// itself.
class WizardHeader : public QFrame {
  Q_OBJECT

 public:
  explicit WizardHeader(QWidget* parent);

  void SetTexts(const QString& title, const QString& description);
  enum class Page { Inner, Outer };
  /// Outer pages are the welcome and the final one.
  void SetPage(Page page);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int EmblemSize() const;

  QLabel* lblPageTitle_;
  QLabel* lblPageDescription_;
  Page page_ = Page::Inner;
};

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
