#include <QComboBox>
#include <QListView>
#include <QPushButton>

#include "pages/PageText.h"
#include "pages/tabRegistryEditor.h"
#include "tests/pages/PageFixture.h"
#include "tools/Error.h"
#include "tools/StandardTexts.h"

namespace tests {

using tools::MessageAnswer;

class tabRegistryEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    fixture_ = std::make_unique<PageFixture>();
    // As Wine writes it.
    fixture_->folder.Write(
        ".wine/system.reg",
        "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n"
        "[Software\\\\Quillon\\\\Tessel] 1795238516\n\"Path\"=\"x\"\n\n"
        "[Software\\\\\\x00dcber uns] 1795238516\n");
  }
  void cleanup() {
    page_.reset();
    fixture_.reset();
  }

  void KeysOfTheMachineAreBrowsed() {
    Open();
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE");
    QCOMPARE(Rows(List()), QStringList({"(Arbeitsplatz)", "(Ebene höher)", "Software",
                                        "(Neuer Schlüssel...)", "(Alle Werte löschen)"}));
    QCOMPARE(Rows(Grid(*page_)), QStringList{"(Standardwert)=(nicht gesetzt)"});
    Go("Software");
    QVERIFY(Rows(List()).contains("Über uns"));
    List().setCurrentIndex(RowWith(List(), "Quillon"));
    QTest::keyClick(&List(), Qt::Key_Return);
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE\\Software\\Quillon");
    Go("(Ebene höher)");
    Go("(Ebene höher)");
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE");
    Go("(Ebene höher)");
    QCOMPARE(Path(), "Arbeitsplatz");
    QCOMPARE(List().model()->rowCount(), 7);
    QVERIFY(!Grid(*page_).isEnabled());
    Go("HKEY_USERS");
    QCOMPARE(Path(), "HKEY_USERS");
    QVERIFY(Grid(*page_).isEnabled());
    Go("(Arbeitsplatz)");
    QCOMPARE(Rows(List()).front(), "HKEY_CLASSES_ROOT");
  }

  void APathCanBeTyped() {
    Open();
    Type(" Arbeitsplatz\\HKEY_LOCAL_MACHINE\\Software\\ ");
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE\\Software\\");
    QVERIFY(Rows(List()).contains("Quillon"));
    for (const char* unknown : {"arbeitsplatz\\HKEY_USERS", "hkey_users", "Arbeitsplatz", ""}) {
      Type(unknown);
      QCOMPARE(Path(), "Arbeitsplatz");
      QCOMPARE(List().model()->rowCount(), 7);
    }
    QCOMPARE(fixture_->folder.Read(PageFixture::kComponentFile), "[Component]\nTitle=Kern\n");
  }

  void ValuesAreStoredByTheNextNavigation() {
    Open();
    Edit(*page_, "(Standardwert)", "C:\\Ä;\"x\"");
    QVERIFY(!page_->IsDirty());
    AddValue("Größe \"1\"", "eins");
    QVERIFY(page_->IsDirty());
    QCOMPARE(Stored("Registry", "Keys"), "-");
    Go("Software");
    QCOMPARE(Stored("Registry", "Keys"), "1");
    QCOMPARE(Stored("Registry", "Key1"), "HKEY_LOCAL_MACHINE");
    QCOMPARE(Stored("RegKey1", "Values"), "2");
    QCOMPARE(Stored("RegKey1", "Val1Name"), "@");
    QCOMPARE(Stored("RegKey1", "Val2Name"), "Größe \"1\"");
    QCOMPARE(Child<QComboBox>(*page_, "cmbRegPath").itemText(0), "HKEY_LOCAL_MACHINE");
    Open();
    QCOMPARE(Rows(Grid(*page_)), QStringList({"(Standardwert)=C:\\Ä;\"x\"", "Größe \"1\"=eins"}));

    // Removing: the default value stays, unset; without names nothing is written.
    for (const char* value : {"(Standardwert)", "Größe \"1\""}) {
      Click(Grid(*page_), RowWith(Grid(*page_), value));
      QTest::mouseClick(&Child(*page_, "cmdRemoveValue"), Qt::LeftButton);
      QVERIFY(page_->IsDirty());
    }
    QCOMPARE(Rows(Grid(*page_)), QStringList{"(Standardwert)=(nicht gesetzt)"});
    Go("Software");
    QCOMPARE(Stored("RegKey1", "Values"), "2");
  }

  void SavingStoresTheShownValuesAndReturnsToTheTopLevel() {
    Open();
    AddValue("a", "1");
    page_->ApplyChanges();
    QVERIFY(!page_->IsDirty());
    QCOMPARE(Path(), "Arbeitsplatz");
    QCOMPARE(Stored("RegKey1", "Val1Setting"), "1");
  }

  void AFailedSaveLeavesWhatWasTyped() {
    Open();
    AddValue("a", "1");
    fixture_->disk.FailAt(FaultyDisk::Step::Write, 1);
    Go("Software");
    QCOMPARE(fixture_->dialogs.Messages().size(), 1U);
    QVERIFY_THROWS_EXCEPTION(tools::Error, page_->ApplyChanges());
    QCOMPARE(Rows(Grid(*page_)).last(), "a=1");
    QVERIFY(page_->IsDirty());
    QCOMPARE(fixture_->folder.Read(PageFixture::kComponentFile), "[Component]\nTitle=Kern\n");
  }

  void NamesWithSemicolonsFallApart() {
    Open();
    AddValue("a;b", "1");
    AddValue("\"c;d\"", "2");
    AddValue("@;", "3");
    Go("(Arbeitsplatz)");
    Go("HKEY_LOCAL_MACHINE");
    QCOMPARE(Rows(Grid(*page_)),
             QStringList({"(Standardwert)=(nicht gesetzt)", "a=", "b=", "\"c;d\"=2"}));
    QCOMPARE(Stored("RegKey1", "Values"), "5");
  }

  void AValueIsAddedOnlyUnderAFreeName() {
    Open();
    fixture_->dialogs.ExpectInputBox("Namen des neuen Wertes", " \t");
    QTest::mouseClick(&Child(*page_, "cmdAddValue"), Qt::LeftButton);
    QVERIFY(!page_->IsDirty());
    AddValue("voll", "x");
    AddValue("leer", "");
    for (const char* taken : {"voll", "@", "leer"}) {
      fixture_->dialogs.ExpectInputBox("Namen des neuen Wertes", taken);
      QTest::mouseClick(&Child(*page_, "cmdAddValue"), Qt::LeftButton);
    }
    const auto& messages = fixture_->dialogs.Messages();
    QCOMPARE(messages.size(), 3U);
    QCOMPARE(messages[0].text, model::LoadText(395));
    QCOMPARE(messages[0].caption, model::LoadText(394));
    QCOMPARE(messages[2].caption, tools::StandardText(tools::kTextError));
    QCOMPARE(Rows(Grid(*page_)).size(), 3);
  }

  void ANewKeyIsOpenedEvenWhenItsNameIsTaken() {
    Open();
    fixture_->dialogs.ExpectInputBox("Namen des neuen Schlüssels", "Neu");
    Go("(Neuer Schlüssel...)");
    QCOMPARE(fixture_->dialogs.LastDefaultText(), "NewSubkey");
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE\\Neu");
    QVERIFY(fixture_->dialogs.Messages().empty());
    Go("(Ebene höher)");
    fixture_->dialogs.ExpectInputBox("Namen des neuen Schlüssels", " SOFTWARE ");
    Go("(Neuer Schlüssel...)");
    QCOMPARE(fixture_->dialogs.Messages().back().text, model::LoadText(388));
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE\\ SOFTWARE");
    fixture_->dialogs.ExpectInputBox("Namen des neuen Schlüssels", "");
    Go("(Neuer Schlüssel...)");
    QCOMPARE(Path(), "HKEY_LOCAL_MACHINE\\ SOFTWARE\\");
  }

  void AFreedSlotIsUsedAgainAndHidesThoseAboveIt() {
    std::string keys = "[Registry]\nKeys=5\n";
    for (const char* slot : {"1", "2", "3", "4", "5"}) {
      keys += std::string("Key") + slot + "=HKEY_USERS\\k" + slot + "\n";
    }
    fixture_->folder.Write(PageFixture::kComponentFile,
                           keys + "[RegKey2]\nValues=1\nVal1Name=n\nVal1Setting=x\n");
    Open();
    auto& path = Child<QComboBox>(*page_, "cmbRegPath");
    QCOMPARE(path.count(), 5);
    path.setFocus();
    for (int i = 0; i < 2; ++i) QTest::keyClick(&path, Qt::Key_Down);
    QCOMPARE(Path(), path.currentText());
    Type("HKEY_USERS\\K2");
    QCOMPARE(Rows(Grid(*page_)).last(), "n=x");

    const std::string question = "Alle Werte, die für \"HKEY_USERS\\K2\" gespeichert sind";
    fixture_->dialogs.ExpectQuestion(question, MessageAnswer::Cancel);
    Go("(Alle Werte löschen)");
    QCOMPARE(Rows(Grid(*page_)).size(), 2);
    fixture_->dialogs.ExpectQuestion(question, MessageAnswer::Ok);
    Go("(Alle Werte löschen)");
    QCOMPARE(Rows(Grid(*page_)).size(), 1);
    QCOMPARE(Stored("Registry", "Key2"), "");
    QCOMPARE(Stored("Registry", "Keys"), "5");
    QCOMPARE(Stored("RegKey2", "Val1Name"), "n");

    Type("HKEY_USERS\\neu");
    AddValue("v", "1");
    Go("(Arbeitsplatz)");
    QCOMPARE(Stored("Registry", "Key2"), "HKEY_USERS\\neu");
    QCOMPARE(Stored("Registry", "Keys"), "2");
  }

  void SlotsWithOnePathAreShownTogether() {
    fixture_->folder.Write(
        PageFixture::kComponentFile,
        "[Registry]\nKeys=2\nKey1=HKEY_USERS\\a\nKey2= hkey_users\\A \n"
        "[RegKey1]\nValues=2\nVal1Name= n \nVal1Setting=1\nVal2Name=@\nVal2Setting=d\n"
        "[RegKey2]\nValues=3\nVal1Name=n\nVal1Setting=2\nVal2Name=m\nVal2Setting=3\n");
    Open();
    Type("HKEY_USERS\\a");
    QCOMPARE(Rows(Grid(*page_)), QStringList({"(Standardwert)=d", "n=1", "m=3"}));
  }

 private:
  void Open() { page_ = fixture_->Open<pages::tabRegistryEditor>(1); }
  [[nodiscard]] QListView& List() const { return Child<QListView>(*page_, "lstSubkeys"); }
  [[nodiscard]] QString Path() const {
    return Child<QComboBox>(*page_, "cmbRegPath").currentText();
  }
  void Go(const char* entry) {
    const QModelIndex row = RowWith(List(), entry);
    QVERIFY2(row.isValid(), entry);
    DoubleClick(List(), row);
  }
  void Type(const QString& path) {
    auto& box = *Child<QComboBox>(*page_, "cmbRegPath").lineEdit();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, path);
    QTest::keyClick(&box, Qt::Key_Return);
  }
  void AddValue(const char* name, const char* value) {
    fixture_->dialogs.ExpectInputBox("Namen des neuen Wertes", name);
    ModalScript script;
    ExpectTyping(script, value);
    QTest::mouseClick(&Child(*page_, "cmdAddValue"), Qt::LeftButton);
  }
  [[nodiscard]] std::string Stored(const char* section, const char* key) const {
    return fixture_->Stored(PageFixture::kComponentFile, section, key);
  }

  std::unique_ptr<PageFixture> fixture_;
  std::unique_ptr<pages::tabRegistryEditor> page_;
};

}  // namespace tests

QTEST_MAIN(tests::tabRegistryEditorTest)
#include "tabRegistryEditorTest.moc"
