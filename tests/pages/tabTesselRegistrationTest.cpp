#include <QComboBox>

#include "pages/tabTesselRegistration.h"
#include "tests/pages/PageFixture.h"

namespace tests {

class tabTesselRegistrationTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    fixture_ = std::make_unique<PageFixture>();
    fixture_->folder.Write(".wine/system.reg",
                           "WINE REGISTRY Version 2\n\n"
                           "[Software\\\\Quillon\\\\Tessel\\\\AppTypes\\\\2] 1\n"
                           "\"Malen\"=\"\"\n\"B\\x00fccher\"=\"\"\n");
  }
  void cleanup() {
    page_.reset();
    fixture_.reset();
  }

  void AbsentSettingsHaveDefaults() {
    Open("");
    QCOMPARE(Box("txtTesselKey").text(), "?");
    QCOMPARE(Box("txtProgramTitle").text(), "?");
    QCOMPARE(Combo("cmbProgramType").currentText(), "1");
    QCOMPARE(Combo("cmbProgramType").count(), 6);
    Open("[Component]\nTitle=My Tool Ä 2\n");
    QCOMPARE(Box("txtTesselKey").text(), "mytoolä2");
    QCOMPARE(Box("txtProgramTitle").text(), "My Tool Ä 2");
  }

  void WhatIsTypedAndChosenIsStored() {
    Open("[Tessel]\nKey=k\nTitle=t\nType=1\nSubType=s\n");
    QVERIFY(!page_->IsDirty());
    for (const char* name : {"txtTesselKey", "txtProgramTitle"}) {
      page_->SetDirty(false);
      QTest::keyClicks(&Box(name), "X");
      QVERIFY2(page_->IsDirty(), name);
    }
    page_->SetDirty(false);
    QTest::keyClicks(Combo("cmbProgramSubtype").lineEdit(), "X");
    QVERIFY(page_->IsDirty());

    page_->SetDirty(false);
    QTest::keyClick(&Combo("cmbProgramType"), Qt::Key_Down);
    QVERIFY(page_->IsDirty());
    QCOMPARE(Combo("cmbProgramSubtype").currentText(), "sX");
    page_->ApplyChanges();
    QVERIFY(!page_->IsDirty());
    QCOMPARE(Stored("Key"), "kX");
    QCOMPARE(Stored("Title"), "tX");
    QCOMPARE(Stored("Type"), "2");
    QCOMPARE(Stored("SubType"), "sX");

    QTest::keyClick(&Combo("cmbProgramSubtype"), Qt::Key_Down);
    QCOMPARE(Combo("cmbProgramSubtype").currentText(), "Malen");
    QTest::keyClick(&Combo("cmbProgramSubtype"), Qt::Key_Down);
    QCOMPARE(Combo("cmbProgramSubtype").currentText(), "Bücher");
    QVERIFY(!page_->IsDirty());
    page_->ApplyChanges();
    QCOMPARE(Stored("SubType"), "Bücher");
  }

  void AStoredTypeThatIsNoneSelectsNone() {
    for (const char* type : {"0", "7", "-3", "99999999999", "viele"}) {
      Open(std::string("[Tessel]\nType=") + type + "\n");
      QCOMPARE(Combo("cmbProgramType").currentIndex(), -1);
      page_->ApplyChanges();
      QCOMPARE(Stored("Type"), "0");
    }
  }

  void HintsGoToTheStatusBar() {
    Open("");
    QTest::mouseMove(&Box("txtTesselKey"));
    QVERIFY(fixture_->host.hint.starts_with("Schlüssel, der die Komponente"));
    QTest::mouseMove(&Box("txtProgramTitle"));
    QCOMPARE(fixture_->host.hint, "Titel, der in der Datenbank eingetragen werden soll");
    Combo("cmbProgramType").setFocus();
    QCOMPARE(fixture_->host.hint, "Kategorie, in die das Programm eingeordnet wird");
    Combo("cmbProgramSubtype").setFocus();
    QCOMPARE(fixture_->host.hint, "Unterkategorie (optional)");
    QTest::mouseMove(page_.get(), page_->rect().bottomRight() - QPoint(5, 5));
    QCOMPARE(fixture_->host.hint, "");
  }

 private:
  void Open(const std::string& settings) {
    fixture_->folder.Write(PageFixture::kVersionFile, settings);
    page_ = fixture_->Open<pages::tabTesselRegistration>(0);
  }
  [[nodiscard]] QLineEdit& Box(const char* name) const { return Child<QLineEdit>(*page_, name); }
  [[nodiscard]] QComboBox& Combo(const char* name) const { return Child<QComboBox>(*page_, name); }
  [[nodiscard]] std::string Stored(const char* key) const {
    return fixture_->Stored(PageFixture::kVersionFile, "Tessel", key);
  }

  std::unique_ptr<PageFixture> fixture_;
  std::unique_ptr<pages::tabTesselRegistration> page_;
};

}  // namespace tests

QTEST_MAIN(tests::tabTesselRegistrationTest)
#include "tabTesselRegistrationTest.moc"
