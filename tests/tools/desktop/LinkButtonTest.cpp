#include <QTest>

#include "tools/desktop/LinkButton.h"

namespace tests {

class LinkButtonTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ALinkCanBeReadOnEveryGround() {
    for (const QColor ground : {QColor(Qt::white), {50, 50, 50}, {0, 0, 90}}) {
      QPalette palette(ground);  // knows no colour for links
      palette.setColor(QPalette::Window, ground);
      palette.setColor(QPalette::Link, Qt::blue);
      tools::LinkButton link("Öffnen...");
      link.setPalette(palette);
      const QImage picture = link.grab().toImage();
      int clearest = 0;
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          clearest = std::max(clearest, std::abs(qGray(picture.pixel(x, y)) - qGray(ground.rgb())));
        }
      }
      QVERIFY2(clearest > 70, qPrintable(ground.name()));
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::LinkButtonTest)
#include "LinkButtonTest.moc"
