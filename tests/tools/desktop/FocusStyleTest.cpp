#include <QListWidget>
#include <QStyleFactory>
#include <QStyleOptionViewItem>
#include <QVBoxLayout>

#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/FocusStyle.h"
#include "tools/desktop/ListViewStyle.h"

namespace tests {

class FocusStyleTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheSelectionOfAListWithoutFocusIsPale() {
    QApplication::setStyle(new tools::FocusStyle(QStyleFactory::create("fusion")));
    QWidget window;
    QListWidget list;
    list.addItems({"gewählt", "nicht"});
    QLineEdit box;
    QVBoxLayout layout(&window);
    layout.addWidget(&list);
    layout.addWidget(&box);
    window.show();
    Activate(window);
    list.setCurrentRow(0);
    for (const QColor ground : {Qt::white, Qt::black}) {
      QPalette palette = list.palette();
      palette.setColor(QPalette::Base, ground);
      palette.setColor(QPalette::Text, ground == Qt::white ? Qt::black : Qt::white);
      list.setPalette(palette);
      list.setFocus();
      const QColor strong = ColourOf(list);
      QCOMPARE(list.grab().toImage().pixelColor(0, list.height() / 2), FrameOf(palette));
      box.setFocus();
      QVERIFY(list.grab().toImage().pixelColor(0, list.height() / 2) != FrameOf(palette));
      const QColor pale = ColourOf(list);
      const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
      QVERIFY2(std::abs(strong.blue() - highlight.blue()) < 5, qPrintable(strong.name()));
      QVERIFY2(pale.saturation() < highlight.saturation() / 2, qPrintable(pale.name()));
      const int distance = std::abs(pale.lightness() - ground.lightness());
      QVERIFY2(distance > 40 && distance < 100, qPrintable(pale.name()));
      QStyleOptionViewItem row;
      row.initFrom(&list);
      row.widget = &list;
      row.state |= QStyle::State_Selected;
      const int contrast = std::abs(tools::GreyedTextColor(row).lightness() - pale.lightness());
      QVERIFY2(contrast > 80, "what is greyed in the row can be read");
    }
  }

 private:
  static QColor FrameOf(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::Highlight);
  }
  /// The ground of the selected row.
  static QColor ColourOf(QListWidget& list) {
    const QRect row = list.visualItemRect(list.item(0));
    return list.viewport()->grab().toImage().pixelColor(row.right() - 3, row.center().y());
  }
};

}  // namespace tests

QTEST_MAIN(tests::FocusStyleTest)
#include "FocusStyleTest.moc"
