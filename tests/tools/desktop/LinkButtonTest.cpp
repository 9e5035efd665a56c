#include <QTest>

#include "tools/desktop/LinkButton.h"

namespace tests {

class LinkButtonTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ALinkCanBeReadOnEveryGround() {
    for (const QColor ground : {QColor(Qt::white), {50, 50, 50}, {0, 0, 90}}) {
      QPalette palette(QColor(50, 50, 50));  // knows no colour for links
      palette.setColor(QPalette::ToolTipBase, ground);
      palette.setColor(QPalette::ToolTipText, ground == Qt::white ? Qt::black : Qt::white);
      palette.setColor(QPalette::Link, Qt::blue);
      QWidget bar;
      bar.setPalette(palette);
      bar.setBackgroundRole(QPalette::ToolTipBase);
      bar.setForegroundRole(QPalette::ToolTipText);
      bar.setAutoFillBackground(true);
      tools::LinkButton link("Öffnen...", &bar);
      link.resize(link.sizeHint());
      const QImage picture = bar.grab(link.geometry()).toImage();
      int clearest = 0;
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          clearest = std::max(clearest, std::abs(qGray(picture.pixel(x, y)) - qGray(ground.rgb())));
        }
      }
      QVERIFY2(clearest > 100, qPrintable(ground.name()));
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::LinkButtonTest)
#include "LinkButtonTest.moc"
