
#include "pages/PageText.h"
#include "tests/support/desktop/PageFixture.h"
#include "tools/Error.h"

namespace tests {

constexpr const char* kNoSettings = "[Component]\nTitle=Kern\n";
constexpr const char* kUnset = "(Standardwert)=(nicht gesetzt)";
constexpr const char* kMachine = "HKEY_LOCAL_MACHINE";

/// The page of a component with these settings, on a machine with some keys.
struct Fixture : PageFixture {
  explicit Fixture(const std::string& settings = {}) {
    MakeMachineKey("Software\\Quillon\\Tessel", {"Path"});
    MakeMachineKey("Software\\Andere");
    folder.Write(kComponentFile, kNoSettings + settings);
    Reopen();
  }

  void Reopen() { Open("tabRegistryEditor", 1, 1); }
  QString ShownPath() const { return Shown(*page, "cmbRegPath"); }
  QAbstractItemView& List() const { return Child<QAbstractItemView>(*page, "lstSubkeys"); }
  QString Values() const { return Rows(Grid(*page)); }
  void Go(const char* entry) const {
    QVERIFY2(RowWith(List(), entry).isValid(), entry);
    DoubleClick(List(), RowWith(List(), entry));
  }
  void GoToNewKey(const char* name) {
    dialogs.ExpectInputBox(Text::EnterKeyName, name);
    Go("(Neuer Schlüssel...)");
  }
  void TypePath(const QString& path) const {
    Type(Child(*page, "cmbRegPath"), path);
    QTest::keyClick(&Child(*page, "cmbRegPath"), Qt::Key_Return);
  }
  void RefuseValue(const char* name) {
    dialogs.ExpectInputBox(Text::EnterValueName, name);
    Press(*page, "cmdAddValue");
  }
  void AddValue(const char* name, const char* value) {
    ModalScript script;
    script.ExpectTyping("frmEditProperty", "txtNewValue", value);
    RefuseValue(name);
  }
};

class tabRegistryEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void KeysOfTheMachineAreBrowsed() {
    const Fixture f;
    QCOMPARE(f.Values(), kUnset);
    QCOMPARE(Rows(f.List()),
             "(Arbeitsplatz)|(Ebene höher)|Software|(Neuer Schlüssel...)|(Alle Werte löschen)");
    const std::pair<const char*, const char*> ways[] = {
        {"Software", "HKEY_LOCAL_MACHINE\\Software"},
        {"Andere", "HKEY_LOCAL_MACHINE\\Software\\Andere"},
        {"(Ebene höher)", "HKEY_LOCAL_MACHINE\\Software"},
        {"(Arbeitsplatz)", "Arbeitsplatz"},
        {"HKEY_USERS", "HKEY_USERS"},
        {"(Ebene höher)", "Arbeitsplatz"}};
    for (const auto& [entry, path] : ways) {
      f.Go(entry);
      QCOMPARE(f.ShownPath(), path);
      QCOMPARE(f.List().currentIndex().row(), 0);
      QCOMPARE(Child(*f.page, "cmdAddValue").isEnabled(), f.ShownPath() != "Arbeitsplatz");
    }
    f.List().setCurrentIndex(RowWith(f.List(), kMachine));
    QTest::keyClick(&f.List(), Qt::Key_Return);
    QCOMPARE(f.ShownPath(), kMachine);
  }

  void APathCanBeTyped() {
    const Fixture f;
    for (const auto& [typed, path] : {std::pair(" Arbeitsplatz\\HKEY_LOCAL_MACHINE\\Software\\ ",
                                                "HKEY_LOCAL_MACHINE\\Software\\"),
                                      {"arbeitsplatz\\HKEY_USERS", "Arbeitsplatz"},
                                      {"hkey_users", "Arbeitsplatz"},
                                      {kMachine, kMachine},
                                      {"", "Arbeitsplatz"}}) {
      f.TypePath(typed);
      QCOMPARE(f.ShownPath(), path);
    }
    QCOMPARE(f.File(f.kComponentFile), kNoSettings);
  }

  void ValuesAreStoredByTheNextNavigation() {
    Fixture f;
    Edit(*f.page, "(Standardwert)", "C:\\Ä;\"x\"");
    QVERIFY(!f.page->IsDirty());
    f.AddValue("Größe \"1\"", "eins");
    QVERIFY(f.page->IsDirty());
    QCOMPARE(f.File(f.kComponentFile), kNoSettings);
    f.Go("Software");
    const QString stored = f.File(f.kComponentFile);
    QCOMPARE(stored, QString(kNoSettings) +
                         "\n[Registry]\nKey1=HKEY_LOCAL_MACHINE\nKeys=1\n\n"
                         "[RegKey1]\nValues=2\nVal1Name=@\nVal1Setting=\"C:\\Ä;\"x\"\"\n"
                         "Val2Name=\"Größe \"1\"\"\nVal2Setting=eins\n");
    QCOMPARE(Child<QComboBox>(*f.page, "cmbRegPath").itemText(0), kMachine);
    f.Reopen();
    QCOMPARE(f.Values(), "(Standardwert)=C:\\Ä;\"x\"|Größe \"1\"=eins");

    // Removing: the default value stays, unset; without names nothing is written.
    for (const char* value : {"(Standardwert)", "Größe \"1\""}) {
      Click(Grid(*f.page), RowWith(Grid(*f.page), value));
      Press(*f.page, "cmdRemoveValue");
      QVERIFY(f.page->IsDirty());
    }
    QCOMPARE(f.Values(), kUnset);
    f.Go("Software");
    QCOMPARE(f.File(f.kComponentFile), stored);
  }

  void AFailedSaveLeavesWhatWasTyped() {
    Fixture f;
    f.AddValue("a", "1");
    f.disk.FailAt(FaultyDisk::Step::Write, 1);
    f.Go("Software");
    f.TypePath("HKEY_USERS\\a");
    QCOMPARE(f.dialogs.Messages().size(), 2U);
    QCOMPARE(f.ShownPath(), kMachine);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.page->ApplyChanges());
    QVERIFY(f.Values().endsWith("|a=1"));
    QVERIFY(f.page->IsDirty());
    QCOMPARE(f.File(f.kComponentFile), kNoSettings);
    QCOMPARE(Child<QComboBox>(*f.page, "cmbRegPath").count(), 0);

    f.disk.FailAt(FaultyDisk::Step::Write, 0);
    f.page->ApplyChanges();
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.ShownPath(), "Arbeitsplatz");
    QCOMPARE(f.Stored("RegKey1", {"Val1Setting"}), "1");

    f.TypePath(kMachine);
    Edit(*f.page, "a", "2");
    f.disk.FailAt(FaultyDisk::Step::Write, 1);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.page->ApplyChanges());
    QVERIFY(f.page->IsUnsaved());
    f.disk.FailAt(FaultyDisk::Step::Write, 0);
    f.Go("Software");
    QVERIFY(!f.page->IsUnsaved());
  }

  void NamesWithSemicolonsFallApart() {
    Fixture f;
    int value = 0;
    for (const char* name : {"a;b", "\"c;d\"", "@;", "5\"", "3\""}) {
      f.AddValue(name, qPrintable(QString::number(++value)));
    }
    f.Go("(Arbeitsplatz)");
    f.Go(kMachine);
    QCOMPARE(f.Values(), QString(kUnset) + "|a=|b=|\"c;d\"=2|5\"=4|3\"=5");
  }

  void AValueIsAddedOnlyUnderAFreeName() {
    Fixture f;
    f.RefuseValue(" \t");
    QVERIFY(!f.page->IsDirty());
    f.AddValue("voll", "x");
    f.AddValue("leer", "");
    for (const char* taken : {"voll", "@", "leer"}) f.RefuseValue(taken);
    const QString refusal =
        pages::Caption(Text::NewValue) + "|" + pages::Caption(Text::ValueExists) + "\n";
    QVERIFY(Told(f.dialogs).startsWith(refusal + refusal + "Fehler|"));
    QCOMPARE(f.Values(), QString(kUnset) + "|voll=x|leer=");
  }

  void ANewKeyIsOpenedEvenWhenItsNameIsTaken() {
    Fixture f;
    for (const auto& [name, path] : {std::pair("Neu", "HKEY_LOCAL_MACHINE\\Neu"),
                                     {" SOFTWARE ", "HKEY_LOCAL_MACHINE\\ SOFTWARE"},
                                     {" ", "HKEY_LOCAL_MACHINE"}}) {
      f.TypePath(kMachine);
      f.GoToNewKey(name);
      QCOMPARE(f.ShownPath(), path);
    }
    QCOMPARE(Told(f.dialogs), pages::Caption(Text::NewKey) + "|" + pages::Caption(Text::KeyExists));
  }

  void AllValuesOfAKeyAreRemovedWhenConfirmed() {
    Fixture f(
        "[Registry]\nKeys=2\nKey1=HKEY_USERS\\k1\nKey2=HKEY_USERS\\k2\n"
        "[RegKey2]\nValues=1\nVal1Name=n\nVal1Setting=x\n");
    auto& path = Child<QComboBox>(*f.page, "cmbRegPath");
    for (const char* key : {"k1", "k2"}) {
      QTest::keyClick(&path, Qt::Key_Down);
      QCOMPARE(f.ShownPath(), QString("HKEY_USERS\\") + key);
    }
    for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
      f.dialogs.ExpectQuestion({Text::AllValuesAreRemoved, "HKEY_USERS\\k2"}, answer);
      f.Go("(Alle Werte löschen)");
      QCOMPARE(f.Values(), answer == MessageAnswer::Ok ? kUnset : QString(kUnset) + "|n=x");
    }
    QCOMPARE(f.dialogs.LastStyle(), "!Cancel");
    QCOMPARE(f.Stored("Registry", {"Key1", "Key2", "Keys"}), "HKEY_USERS\\k1||2");
    QCOMPARE(path.count(), 1);
  }

  void TypingAPathAloneLeavesNoKey() {
    Fixture f("[Registry]\nKeys=1\nKey1=HKEY_USERS\\a\n");
    f.AddValue("v", "1");
    Type(Child(*f.page, "cmbRegPath"), "HKEY_USERS\\a");
    f.List().setFocus();
    QVERIFY(f.Values().endsWith("|v=1"));
  }

  void WhatTheGridCannotShowKeepsItsBytes() {
    const std::string stored =
        "[Registry]\nKeys=1\nKey1=HKEY_USERS\\a\n[RegKey1]\nValues=4\n"
        "Val1Name=\xFF\nVal1Setting=\xFF;\nVal2Name=\xFE\nVal2Setting=2\n"
        "Val3Name=x\nVal3Setting=\xFE\nVal4Name=\nVal4Setting=4\n";
    Fixture f(stored);
    f.TypePath("HKEY_USERS\\a");
    f.page->ApplyChanges();
    QCOMPARE(f.folder.Read(f.kComponentFile), kNoSettings + stored);
    f.TypePath("HKEY_USERS\\a");
    Edit(*f.page, "(Standardwert)", "neu");
    f.page->ApplyChanges();
    const tools::SettingsFile file(f.folder.Read(f.kComponentFile));
    std::string values;
    for (const char* key : {"Val1Name", "Val2Name", "Val2Setting", "Val3Name", "Val3Setting",
                            "Val4Name", "Val4Setting", "Val5Name", "Val5Setting", "Values"}) {
      values += file.Read("RegKey1", key, "-") + "|";
    }
    QCOMPARE(values, "@|\xFF|\xFF;|x|\xFE|\xFE|2||4|5|");
  }
};

}  // namespace tests

QTEST_MAIN(tests::tabRegistryEditorTest)
#include "tabRegistryEditorTest.moc"
