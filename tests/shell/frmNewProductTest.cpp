#include <QDir>
#include <QLineEdit>
#include <functional>

#include "shell/frmNewProduct.h"
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
    QCOMPARE(Shown(*form_, {"lblProductTitle", "lblAuthor", "lblProductFile", "txtAuthor", "cmdOK",
                            "cmdCancel"}),
             "Produktbezeichnung:|Autor:|Dateiname:||Erstellen|Abbrechen");
    QCOMPARE(Child<QLineEdit>(*form_, "txtProductTitle").selectedText(), "Neues Produkt");
    QVERIFY(Child(*form_, "txtProductTitle").hasFocus());
  }

  void TheFileNameFollowsTheTitleWithTheNameAloneCleaned() {
    const std::vector<std::pair<QString, QString>> cases{
        {"Demo", "/Demo/Demo.product"}, {"A*B", "/A*B/A_B.product"}, {"", "//.product"}};
    for (const auto& [title, end] : cases) {
      Type(Child(*form_, "txtFilename"), "von Hand");
      Type(Child(*form_, "txtProductTitle"), title);
      const QString path = QDir::toNativeSeparators("/Installationen" + end);
      QVERIFY2(form_->FileName().endsWith(path), qUtf8Printable(form_->FileName()));
    }
  }

  void OnlyAConfirmedAuthorIsProposedTheNextTime() {
    const std::vector<std::function<void()>> waysOut{
        [this] { Press(*form_, "cmdCancel"); },
        [this] { QTest::keyClick(form_.get(), Qt::Key_Escape); },
        [this] { PressCloseBox(*form_); }};
    for (const auto& leave : waysOut) {
      Type(Child(*form_, "txtAuthor"), "Niemand");
      leave();
      QVERIFY(!form_->Confirmed() && !form_->isVisible());
      Open();
      QCOMPARE(form_->Author(), "");
    }
    Type(Child(*form_, "txtAuthor"), "Änne Müller");
    QTest::keyClick(&Child(*form_, "txtAuthor"), Qt::Key_Return);
    QVERIFY(form_->Confirmed() && !form_->isVisible());
    Open();
    QCOMPARE(form_->Author(), "Änne Müller");
    QVERIFY(!form_->Confirmed());
  }

 private:
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
