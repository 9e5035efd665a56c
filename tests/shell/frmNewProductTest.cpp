#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <functional>

#include "shell/frmNewProduct.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/desktop/OpenedProgram.h"

namespace tests {

class frmNewProductTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    home_ = std::make_unique<TemporaryFolder>();
    UseHome(*home_);
    registry_ = tools::OpenSystemRegistry(disk_);
    Open();
  }

  void ShowsGermanCaptionsAndSelectsTheProposedTitle() {
    QCOMPARE(form_->windowTitle(), "Neues Projekt anlegen");
    QCOMPARE(Child<QLabel>(*form_, "lblProductTitle").text(), "Produktbezeichnung:");
    QCOMPARE(Child<QLabel>(*form_, "lblAuthor").text(), "Autor:");
    QCOMPARE(Child<QLabel>(*form_, "lblProductFile").text(), "Dateiname:");
    QCOMPARE(Child<QPushButton>(*form_, "cmdOK").text(), "Erstellen");
    QCOMPARE(Child<QPushButton>(*form_, "cmdCancel").text(), "Abbrechen");
    QCOMPARE(Field("txtProductTitle").selectedText(), "Neues Produkt");
    QVERIFY(Field("txtProductTitle").hasFocus());
    QVERIFY(form_->FileName().endsWith(Native("/Neues Produkt/Neues Produkt.product")));
    QCOMPARE(form_->Author(), "");
  }

  void TheFileNameFollowsTheTitle_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("end");
    QTest::newRow("plain") << "Demo"
                           << "/Installationen/Demo/Demo.product";
    QTest::newRow("only the name is cleaned") << "A*B"
                                              << "/Installationen/A*B/A_B.product";
    QTest::newRow("empty") << ""
                           << "/Installationen//.product";
  }

  void TheFileNameFollowsTheTitle() {
    QFETCH(QString, title);
    QFETCH(QString, end);
    Field("txtFilename").setText("von Hand");
    QTest::keyClick(&Field("txtProductTitle"), Qt::Key_Delete);
    QTest::keyClicks(&Field("txtProductTitle"), title);
    QVERIFY2(form_->FileName().endsWith(Native(end)), qUtf8Printable(form_->FileName()));
  }

  void TheConfirmedAuthorIsProposedTheNextTime() {
    Field("txtAuthor").setText("Änne Müller");
    QTest::keyClick(&Field("txtAuthor"), Qt::Key_Return);
    QVERIFY(form_->Confirmed() && !form_->isVisible());
    Open();
    QCOMPARE(form_->Author(), "Änne Müller");
    QVERIFY(!form_->Confirmed());
  }

  void LeavingItOtherwiseConfirmsAndStoresNothing_data() {
    QTest::addColumn<std::function<void()>>("leave");
    QTest::newRow("cmdCancel") << std::function<void()>(
        [this] { QTest::mouseClick(&Child(*form_, "cmdCancel"), Qt::LeftButton); });
    QTest::newRow("Escape") << std::function<void()>(
        [this] { QTest::keyClick(form_.get(), Qt::Key_Escape); });
    QTest::newRow("close box") << std::function<void()>([this] { PressCloseBox(*form_); });
  }

  void LeavingItOtherwiseConfirmsAndStoresNothing() {
    QFETCH(std::function<void()>, leave);
    Field("txtAuthor").setText("Niemand");
    leave();
    QVERIFY(!form_->Confirmed() && !form_->isVisible());
    Open();
    QCOMPARE(form_->Author(), "");
  }

 private:
  static QString Native(const QString& path) { return QDir::toNativeSeparators(path); }
  QLineEdit& Field(const char* name) { return Child<QLineEdit>(*form_, name); }

  void Open() {
    form_ = std::make_unique<shell::frmNewProduct>(*registry_, dialogs_, nullptr);
    form_->show();
    QVERIFY(QTest::qWaitForWindowActive(form_.get()));
  }

  tools::SystemDisk disk_;
  ScriptedDialogs dialogs_;
  std::unique_ptr<TemporaryFolder> home_;
  std::unique_ptr<tools::Registry> registry_;
  std::unique_ptr<shell::frmNewProduct> form_;
};

}  // namespace tests

QTEST_MAIN(tests::frmNewProductTest)
#include "frmNewProductTest.moc"
