#include <QComboBox>
#include <QPlainTextEdit>

#include "pages/PageText.h"
#include "pages/tabBuildOptions.h"
#include "tests/pages/PageFixture.h"

namespace tests {

using tools::MessageAnswer;

class tabBuildOptionsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { fixture_ = std::make_unique<PageFixture>(); }
  void cleanup() {
    page_.reset();
    fixture_.reset();
  }

  void AVersionWithoutSettingsShowsTheDefaults() {
    Open("");
    QCOMPARE(Combo("cmbInstallerType").currentText(), "Tessel-Installer");
    QCOMPARE(Child<QPlainTextEdit>(*page_, "txtInstallerTypeDesc").toPlainText(), pages::Text(338));
    QCOMPARE(Combo("cmbConfiguration").currentText(), "Debug");
    QCOMPARE(Rows(Grid(*page_)),
             QStringList({"Konfiguration=Debug", "Ausgabeordner=" + DefaultFolder("Debug"),
                          "Sprache (LCID)=0"}));
    page_->ApplyChanges();
    QCOMPARE(Stored("BuildCommon", "InstallerType"), "1");
    QCOMPARE(Stored("BuildCommon", "ActiveConfig"), "1");
    QCOMPARE(Stored("Build1", "OutputFolder"), DefaultFolder("Debug").toStdString());
    QCOMPARE(Stored("Build1", "Locale"), "0");
  }

  void StoredNumbersThatNameNothingSelectNothing() {
    Open("[BuildCommon]\nInstallerType=2\nActiveConfig=99999999999\n");
    QCOMPARE(Child<QPlainTextEdit>(*page_, "txtInstallerTypeDesc").toPlainText(), "");
    QCOMPARE(Rows(Grid(*page_)).first(), "Konfiguration=");
    QCOMPARE(Rows(Grid(*page_)).at(1), "Ausgabeordner=" + DefaultFolder(""));
    Combo("cmbInstallerType").setFocus();
    QTest::keyClick(&Combo("cmbInstallerType"), Qt::Key_Down);
    QCOMPARE(Child<QPlainTextEdit>(*page_, "txtInstallerTypeDesc").toPlainText(), pages::Text(338));
    QVERIFY(page_->IsDirty());
  }

  void AnotherConfigurationIsStoredAtOnce() {
    Open("[Build2]\nOutputFolder=out;2\nLocale=1031\n");
    Choose(Qt::Key_Down);
    QCOMPARE(Rows(Grid(*page_)),
             QStringList({"Konfiguration=Release", "Ausgabeordner=out;2", "Sprache (LCID)=1031"}));
    QCOMPARE(Stored("BuildCommon", "ActiveConfig"), "2");
    QCOMPARE(Stored("Build1", "OutputFolder"), "-");
    QVERIFY(!page_->IsDirty() && fixture_->dialogs.Messages().empty());
  }

  void UnsavedChangesAreOfferedForSavingFirst() {
    Open("");
    Edit(*page_, "Sprache (LCID)", "1033");
    QVERIFY(page_->IsDirty());
    fixture_->dialogs.ExpectQuestion(model::LoadText(341), MessageAnswer::No);
    Choose(Qt::Key_Down);
    QCOMPARE(fixture_->dialogs.Messages().back().caption, model::LoadText(342));
    QCOMPARE(Combo("cmbConfiguration").currentText(), "Debug");
    QCOMPARE(Rows(Grid(*page_)).last(), "Sprache (LCID)=1033");
    QCOMPARE(Stored("BuildCommon", "ActiveConfig"), "-");

    fixture_->dialogs.ExpectQuestion(model::LoadText(341), MessageAnswer::Yes);
    Choose(Qt::Key_Down);
    QVERIFY(!page_->IsDirty());
    QCOMPARE(Rows(Grid(*page_)).first(), "Konfiguration=Release");
    QCOMPARE(Stored("Build1", "Locale"), "1033");
    QCOMPARE(Stored("Build2", "Locale"), "-");
    QCOMPARE(Stored("BuildCommon", "ActiveConfig"), "2");
  }

  void AFailedSaveStaysAtTheOldConfiguration() {
    Open("");
    Edit(*page_, "Ausgabeordner", "x");
    fixture_->disk.FailAt(FaultyDisk::Step::Write, 1);
    fixture_->dialogs.ExpectQuestion(model::LoadText(341), MessageAnswer::Yes);
    Choose(Qt::Key_Down);
    QCOMPARE(fixture_->dialogs.Messages().size(), 2U);
    QCOMPARE(Combo("cmbConfiguration").currentText(), "Debug");
    QCOMPARE(Rows(Grid(*page_)).at(1), "Ausgabeordner=x");
    QVERIFY(page_->IsDirty());
  }

  void TheNameOfAConfigurationCannotBeEdited() {
    Open("");
    DoubleClick(Grid(*page_), RowWith(Grid(*page_), "Konfiguration"));
    QCOMPARE(fixture_->dialogs.Messages().back().text, model::LoadText(239));
    QVERIFY(!page_->IsDirty());
  }

 private:
  void Open(const std::string& settings) {
    fixture_->folder.Write(PageFixture::kVersionFile, settings);
    page_ = fixture_->Open<pages::tabBuildOptions>(0);
  }
  [[nodiscard]] QComboBox& Combo(const char* name) const { return Child<QComboBox>(*page_, name); }
  void Choose(Qt::Key key) { QTest::keyClick(&Combo("cmbConfiguration"), key); }
  [[nodiscard]] QString DefaultFolder(const char* name) const {
    return tools::ToQString(fixture_->folder.Path(std::string("Demo/Ausgabe/") + name));
  }
  [[nodiscard]] std::string Stored(const char* section, const char* key) const {
    return fixture_->Stored(PageFixture::kVersionFile, section, key);
  }

  std::unique_ptr<PageFixture> fixture_;
  std::unique_ptr<pages::tabBuildOptions> page_;
};

}  // namespace tests

QTEST_MAIN(tests::tabBuildOptionsTest)
#include "tabBuildOptionsTest.moc"
