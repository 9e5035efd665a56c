#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <filesystem>

#include "tests/support/desktop/PageFixture.h"

namespace tests {

constexpr const char* kOneEntry = "[Files]\nCount=1\n[File1]\nID=a\nType=2\nTargetFolder=2\n";

constexpr const char* kThreeEntries =
    "[Files]\nCount=3\n[File1]\nID=a\nType=1\nOverwrite=1\nSourcePath=z\nSourceName=c9\n"
    "TargetFolder=2\n[File2]\nID=b\nType=1\nOverwrite=1\nSourcePath=y\nSourceName=b\n"
    "TargetFolder=2\n[File3]\nID=c\nType=1\nOverwrite=1\nSourcePath=z\nSourceName=c10\n"
    "TargetFolder=2\n";

QString LoadedText(Text text) { return tools::ToQString(model::LoadText(text)); }

/// The page of a component with these entries.
struct Fixture : PageFixture {
  explicit Fixture(const std::string& entries) {
    folder.Write(kComponentFile, "[Component]\nTitle=Kern\n" + entries);
    Open("tabFileList", 1, 1);
  }

  QTreeView& List() const { return Child<QTreeView>(*page, "lsvBrowser"); }
  QString Fields() const { return Rows(Grid(*page)); }
  void Choose(int targetFolder) const {
    auto& folders = Child<QComboBox>(*page, "cmbDestinationFolder");
    folders.setCurrentIndex(folders.findData(targetFolder));
  }
  void Select(int row) const { Click(List(), List().model()->index(row, 0)); }

  QMenu& OpenMenuAtFirst() const {
    return OpenMenuAt(List().visualRect(List().model()->index(0, 0)).center());
  }
  QMenu& OpenMenuBelowLast() const {
    return OpenMenuAt(List().viewport()->rect().bottomRight() - QPoint(9, 9));
  }
  QMenu& OpenMenuAt(QPoint place) const {
    QTest::mouseClick(List().viewport(), Qt::RightButton, {}, place);
    return OpenedMenu();
  }
};

class tabFileListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ChosenFilesAreAdded() {
    Fixture f("");
    for (const char* name : {"Q/b.txt", "Q/ä 漢.txt", "Q/tief/c"}) f.folder.Write(name, "x");
    f.Choose(38);
    f.dialogs.ExpectBrowseFolder(Text::AddsFilesOfFolderAndSubfolders, f.folder.Path("Q"));
    PickFrom(f.OpenMenuBelowLast(), "mnuAddDirectory1");
    QVERIFY(f.page->IsDirty());
    f.Choose(2001);
    for (const std::string& chosen : {f.folder.Path("Q/b.txt"), std::string()}) {
      f.dialogs.ExpectOpenFile(Text::FolderPrograms, chosen);
      Press(*f.page, "cmdAddFile");
    }
    QCOMPARE(Rows(f.List()), f.Path("Q/b.txt") + "=%InstallPath%\\");

    f.page->ApplyChanges();
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.Stored("Files", {"Count"}), "4");
    QCOMPARE(f.Stored("File2", {"SourceName", "TargetFolder"}), "ä 漢.txt|38");
    QCOMPARE(f.Stored("File3", {"SourcePath"}), f.Path("Q/tief"));
    QCOMPARE(f.Stored("File4", {"TargetFolder", "Type", "Vital"}), "2001|1|1");
  }

  void TheSelectedEntryIsShown() {
    Fixture f(
        "[Files]\nCount=2\n[File1]\nID=a\nType=1\nSourcePath=q\nSourceName=da.txt\n"
        "TargetFolder=2004\nTargetSubFolder=C:\\x\n[File2]\nID=b\nTargetFolder=2004\n");
    f.folder.Write("Produkt/q/da.txt", "x");
    QVERIFY(!Child(*f.page, "cmdRemoveFile").isEnabled());
    f.Choose(2004);
    QVERIFY(Rows(f.List()).startsWith(QDir::toNativeSeparators("q/da.txt") + "=C:\\x|"));
    f.Select(0);
    QVERIFY(f.Fields().startsWith(
        "Eintragstyp=1|Ausschließen=0|GUID=a|Unterordner einschließen=0|Überschreiben=0|"
        "Permanent=0|Pfad registrieren=0|DLL registrieren=0|Quelldateiname=da.txt|Quellordner=q|"
        "Zielordner (allg.)=2004|Zieldateiname=|Zielordner=C:\\x|Essenziell=1|"
        "Vorhanden=Vorhanden|Version=|Datum="));
    std::filesystem::remove(f.folder.Path("Produkt/q/da.txt"));
    f.Select(0);
    QVERIFY(f.Fields().contains("Vorhanden=Nicht vorhanden"));
    QTest::keyClick(&f.List(), Qt::Key_Down);
    QVERIFY(f.Fields().endsWith("|Essenziell=1"));
    Click(f.List(), f.List().currentIndex(), Qt::ControlModifier);
    QCOMPARE(f.Fields(), "");  // no entry is selected any more
  }

  void AnEditedEntryStaysSelected() {
    Fixture f(kOneEntry);
    f.Select(0);
    ModalScript script;
    Edit(script, *f.page, "Quellordner", "ü; \"漢\"");
    Edit(script, *f.page, "Essenziell", "ja");
    // The row that was edited before is still the selected one.
    script.ExpectTyping("frmEditProperty", "txtNewValue", "-1");
    QTest::keyClick(&Grid(*f.page), Qt::Key_F2);
    QTRY_VERIFY(f.Fields().endsWith("|Essenziell=-1"));
    QVERIFY(f.page->IsDirty());
    f.page->ApplyChanges();
    QCOMPARE(f.Stored("File1", {"SourcePath", "Vital", "ID"}), "ü; \"漢\"|-1|a");
  }

  void WhatTheSourceSaysIsFixed() {
    Fixture f("[Files]\nCount=1\n[File1]\nID=a\nType=1\nTargetFolder=2\n");
    const ModalScript script;  // expects no window
    f.Select(0);
    for (const char* fixed : {"GUID", "Vorhanden", "Version", "Datum"}) f.RefuseToEdit(fixed);
  }

  void OnlyPathsWithControlCharactersAreRefused() {
    Fixture f("");
    try {
      f.folder.Write("Q/\t", "x");
    } catch (const std::exception&) {
      QSKIP("this file system has no such names");
    }
    for (const char* name : {"Q/gut", "Q/tief/d"}) f.folder.Write(name, "x");
    for (const char* link : {"Q/ins Leere", "Q/zweiter"}) {
      std::filesystem::create_symlink("fehlt", f.folder.Path(link));
    }
    f.dialogs.ExpectBrowseFolder(Text::AddsFilesOfFolder, f.folder.Path("Q"));
    PickFrom(f.OpenMenuBelowLast(), "mnuAddDirectory0");
    const QString passedOver = tools::ToQString(f.dialogs.Messages().front().text);
    QVERIFY(passedOver.contains(" 2."));
    QVERIFY(passedOver.endsWith(f.Path("Q/ins Leere")));
    QVERIFY(Told(f.dialogs).endsWith(f.Path("Q/?")));
    f.page->ApplyChanges();
    QCOMPARE(f.Stored("Files", {"Count"}), "1");
    QCOMPARE(f.Stored("File1", {"SourceName"}), "gut");
  }

  void AnEntryWithoutATypeBuildsAsBeforeUntilItIsSet() {
    Fixture f(
        "[Files]\nCount=4\n[File1]\nID=a\nType=2\n[File2]\nID=b\nTargetFolder=2\n"
        "[File3]\nID=c\nTargetFolder=2\n[File4]\nID=d\nType=\n");
    const auto savedTypes = [&f] {
      f.page->ApplyChanges();
      QStringList stored;
      for (const char* n : {"File1", "File2", "File3", "File4"}) stored += f.Stored(n, {"Type"});
      return stored.join('|');
    };
    f.Select(0);
    QVERIFY(f.Fields().startsWith("Eintragstyp=0|"));
    QCOMPARE(savedTypes(), "2|-|-|");
    for (const char* type : {"2", "0"}) Edit(*f.page, "Eintragstyp", type);
    QCOMPARE(savedTypes(), "2|0|-|");
    f.Select(0);
    Press(*f.page, "cmdRemoveFile");
    QCOMPARE(savedTypes(), "2|1|0|");
  }

  void SeveralEntriesAreEditedAndRemovedAtOnce() {
    Fixture f(kThreeEntries);
    f.List().selectAll();
    QVERIFY(f.Fields().contains("GUID=|"));
    QVERIFY(f.Fields().contains("|Überschreiben=1|"));
    Edit(*f.page, "Zieldateiname", "x");
    Edit(*f.page, "Permanent", "32768");
    QCOMPARE(f.dialogs.Messages().size(), 1U);
    f.Select(0);
    Click(f.List(), f.List().model()->index(1, 0), Qt::ShiftModifier);
    Press(*f.page, "cmdRemoveFile");
    QCOMPARE(Rows(f.List()), QDir::toNativeSeparators("z/c10=%ProgramsDir%\\"));
    QVERIFY(f.Fields().contains("Zieldateiname=x|"));  // of the one behind them
    f.page->ApplyChanges();
    QCOMPARE(f.Stored("Files", {"Count"}), "1");
    QCOMPARE(f.Stored("File1", {"ID", "TargetName"}), "c|x");
  }

  void DifferentValuesAreEmptiedOnlyOnPurpose() {
    Fixture f(kThreeEntries);
    f.List().selectAll();
    QVERIFY(f.Fields().contains("Quelldateiname=|"));
    ModalScript script;
    for (const char* button : {"cmdOK", "cmdCancel"}) {
      script.ExpectAndPress("frmEditProperty", button);
      DoubleClick(Grid(*f.page), RowWith(Grid(*f.page), "Quelldateiname"));
      QVERIFY(!f.page->IsDirty());
    }
    Edit(script, *f.page, "Quelldateiname", " ");
    f.page->ApplyChanges();
    for (const char* section : {"File1", "File2", "File3"}) {
      QCOMPARE(f.Stored(section, {"SourceName"}), "");
    }
  }

  void StepsAreUndoneAndRepeatedUntilTheyAreApplied() {
    Fixture f(kThreeEntries);
    const QString before = Rows(f.List());
    const auto pressKeys = [&f](Qt::Key key, int times) {
      Activate(f.area);
      f.List().setFocus();
      while (times-- > 0) QTest::keyClick(&f.List(), key, Qt::ControlModifier);
    };
    f.Select(1);
    Edit(*f.page, "Quelldateiname", "neu");
    pressKeys(Qt::Key_Z, 1);
    QCOMPARE(f.area.hint, "Rückgängig gemacht: Ändern");
    QCOMPARE(Grid(*f.page).currentIndex().data(), "Quelldateiname");
    pressKeys(Qt::Key_Y, 1);
    QCOMPARE(f.area.hint, "Wiederholt: Ändern");
    Edit(*f.page, "Zielordner (allg.)", "38");
    QVERIFY(f.area.hint.contains("Programme"));
    f.List().selectAll();
    Press(*f.page, "cmdRemoveFile");
    f.folder.Write("Q/neu", "x");
    f.dialogs.ExpectOpenFile(Text::FolderPrograms, f.folder.Path("Q/neu"));
    Press(*f.page, "cmdAddFile");
    const QString after = Rows(f.List());
    pressKeys(Qt::Key_Z, 4);
    QCOMPARE(Rows(f.List()), before);
    QVERIFY(f.Fields().contains("GUID=b"));  // what came back is selected
    QVERIFY(!f.page->IsDirty());
    pressKeys(Qt::Key_Y, 4);
    QCOMPARE(Rows(f.List()), after);
    QVERIFY(f.page->IsDirty());
    f.page->ApplyChanges();
    pressKeys(Qt::Key_Z, 4);
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.Stored("File1", {"ID", "SourceName", "TargetFolder"}), "b|neu|38");
  }

  void ARepeatedlyAddedFileIsSelectedAndTold() {
    Fixture f("");
    for (const char* name : {"Q/a", "Q/b"}) f.folder.Write(name, "x");
    const std::string both = f.folder.Path("Q/a") + "\n" + f.folder.Path("Q/b");
    const std::pair<std::string, const char*> additions[] = {
        {f.folder.Path("Q/b"), "Datei hinzugefügt: b"},
        {both, "2 Dateien hinzugefügt. Schon für dieses Ziel in der Liste waren davon: 1."},
        {f.folder.Path("Q/a"), "Hinzugefügt, obwohl schon für dieses Ziel in der Liste: a"}};
    Type(Child(*f.page, "txtFilter"), "verdeckt alles");
    for (const auto& [paths, hint] : additions) {
      f.dialogs.ExpectOpenFile(Text::FolderPrograms, paths);
      Press(*f.page, "cmdAddFile");
      QCOMPARE(f.area.hint, hint);
    }
    QCOMPARE(f.List().model()->rowCount(), 4);
    QCOMPARE(f.List().selectionModel()->selectedRows().value(0).row(), 3);
  }

  void DroppedFilesAndFoldersAreAdded() {
    Fixture f("");
    for (const char* name : {"Q/a", "D/b", "D/tief/c"}) f.folder.Write(name, "x");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(f.Path("Q/a")), QUrl::fromLocalFile(f.Path("D"))});
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      f.dialogs.ExpectQuestion(Text::WithSubfolders, answer);
      QCOMPARE(Drop(*f.page, {9, 9}, data, Qt::MoveAction | Qt::CopyAction), Qt::CopyAction);
      const int rows = answer == MessageAnswer::No ? 2 : 5;
      QTRY_COMPARE(f.List().model()->rowCount(), rows);
    }
    QVERIFY(Rows(f.List()).endsWith(f.Path("D/tief/c") + "=%ProgramsDir%\\"));
    QCOMPARE(f.area.focusWidget(), &f.List());  // Ctrl+Z is for them
    data.setUrls({QUrl::fromLocalFile(tools::ToQString(f.folder.MakeFolder("leer")))});
    f.dialogs.ExpectQuestion(Text::WithSubfolders, MessageAnswer::Yes);
    Drop(*f.page, {9, 9}, data, Qt::CopyAction);
    QTRY_COMPARE(f.area.hint, LoadedText(Text::NoFilesFound));
  }

  void SourcesBelowTheProductBecomeRelativeOnceTheAuthorAgrees() {
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      Fixture f("");
      const std::string file = f.folder.Path("Produkt/q/tief/da");
      f.disk.FailOnce(FaultyDisk::Step::Create, 1);  // the first answer cannot be kept
      for (const bool isAsked : {true, true, false}) {
        f.dialogs.ExpectOpenFile(Text::FolderPrograms, file);
        if (isAsked) f.dialogs.ExpectQuestion(Text::SaveSourcesRelative, answer);
        Press(*f.page, "cmdAddFile");
      }
      const bool isRelative = answer == MessageAnswer::Yes;
      QCOMPARE(Rows(f.List()).startsWith("q/tief"), isRelative);
      QVERIFY(f.File(f.kProductFile).contains(isRelative ? "Relative=1" : "Relative=0"));
      QTest::keyClick(&f.List(), Qt::Key_F10, Qt::ShiftModifier);
      PickFrom(OpenedMenu(), "mnuRelative");
      QCOMPARE(f.area.hint.right(1), isRelative ? "0" : "3");
      f.page->ApplyChanges();
      QCOMPARE(f.Stored("File3", {"SourcePath"}), "q/tief");
    }
  }

  void AFolderScanShowsWhatItFinds() {
    Fixture f("");
    for (const char* name : {"Q/a.txt", "Q/b.dat", "Q/tief/c.txt"}) f.folder.Write(name, "123");
    ModalScript script;
    const auto expectScan = [&script](const QString& folder, const QString& found) {
      script.Expect<QDialog>("frmFolderScan", [folder, found](QDialog& dialog) {
        QVERIFY(Child(dialog, "txtFolder").hasFocus());
        if (!folder.isEmpty()) Type(Child(dialog, "txtFolder"), folder);
        Type(Child(dialog, "txtPattern"), "*.txt");
        QTest::keyClick(&Child(dialog, "chkSubfolders"), Qt::Key_Space);
        QTRY_COMPARE(Rows(Child<QAbstractItemView>(dialog, "lstFound")), found);
        QCOMPARE(Shown(dialog, "lblFound"),
                 found.contains('|') ? "2 Dateien, 6 Bytes" : "1 Datei, 3 Bytes");
        Press(dialog, "cmdOK");
      });
    };
    expectScan(f.Path("Q"), QDir::toNativeSeparators("a.txt|tief/c.txt"));
    PickFrom(f.OpenMenuBelowLast(), "mnuAddScan");
    QVERIFY(f.Fields().contains("Unterordner einschließen=1|"));  // the new entry is selected
    QCOMPARE(f.area.hint,
             "Ordner-Scan hinzugefügt: " + QDir::toNativeSeparators(f.Path("Q/*.txt")));
    expectScan("", "a.txt");
    PickFrom(f.OpenMenuAtFirst(), "mnuShowScan");
    f.page->ApplyChanges();
    QCOMPARE(f.Stored("File1", {"Type", "SourceName", "IncludeChildren"}), "2|*.txt|0");
    Type(Child(*f.page, "txtFilter"), "txt");
    Edit(script, *f.page, "Quelldateiname", "*.dat");
    QCOMPARE(f.area.hint, LoadedText(Text::FilterHidesOne));
  }

  void SourcesThatAreMissingAndEntriesLeftOutAreMarked() {
    Fixture f(
        "[Files]\nCount=3\n[File1]\nID=a\nType=1\nSourcePath=q\nSourceName=da\nTargetFolder=2\n"
        "[File2]\nID=b\nType=1\nSourcePath=q\nSourceName=\nTargetFolder=2\n"
        "[File3]\nID=c\nType=2\nSourcePath=q\nSourceName=*\nTargetFolder=2\nExclude=1\n");
    const auto marks = [&f](int role) {
      QString marked;
      for (int row = 0; row < 3; ++row) {
        const QVariant mark = f.List().model()->index(row, 0).data(role);
        marked += mark.isNull() ? "-" : "x";
      }
      return marked;
    };
    QCOMPARE(marks(Qt::ForegroundRole), "--x");
    QTRY_COMPARE(marks(Qt::DecorationRole), "xxx");
    f.folder.Write("Produkt/q/da", "x");
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(f.page, &activation);
    QTRY_COMPARE(marks(Qt::DecorationRole), "-x-");
    std::filesystem::remove(f.folder.Path("Produkt/q/da"));
    QVERIFY(f.page->ShowEntry(1, {}));  // a check that found it leads here
    QTRY_COMPARE(marks(Qt::DecorationRole), "xx-");
    QVERIFY(f.List()
                .model()
                ->index(1, 0)
                .data(Qt::ToolTipRole)
                .toString()
                .contains(LoadedText(Text::SourceIsMissing)));
  }

  void AnEmptyListLeadsOnToTheEntries() {
    Fixture f(
        "[Files]\nCount=4\n[File1]\nID=a\nTargetFolder=0\n[File2]\nID=b\nTargetFolder=2001\n"
        "[File3]\nID=c\nTargetFolder=2001\n[File4]\nTargetFolder=0\n");
    ModalScript script;
    script.ExpectAndPress("unknownTargets", "cmdOK");
    QVERIFY(f.page->ShowEntry(4, {}));  // a finding leads to one that no list shows
    QVERIFY(f.Fields().contains("GUID=|"));
    Activate(f.area);
    f.Choose(2);
    auto& folders = Child<QComboBox>(*f.page, "cmbDestinationFolder");
    const auto isBold = [&folders](int number) {
      return folders.itemData(folders.findData(number), Qt::FontRole).value<QFont>().bold();
    };
    QVERIFY(isBold(2001));
    QVERIFY(!isBold(2));
    auto& hint = Child<QLabel>(*f.page, "lblEmptyFileList");
    QVERIFY(hint.text().contains("3 in Installationsordner</a>"));
    QVERIFY(hint.text().contains("1 in unbekanntem Ordner (0)</a>"));
    QVERIFY(f.List().accessibleDescription().endsWith("1 in unbekanntem Ordner (0)"));
    script.ExpectAndPress("unknownTargets", "cmdOK");
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&hint, &menuKey);
    QCOMPARE(OpenedMenu().objectName(), "mnuPopup");
    OpenedMenu().close();
    f.List().setFocus();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}) {
      QTest::keyClick(QApplication::focusWidget(), key);
    }
    QCOMPARE(f.List().model()->rowCount(), 4);  // with those that were in the folder before
    QVERIFY(hint.isHidden());
    QVERIFY(f.Fields().contains("GUID=a|"));
    QCOMPARE(f.area.focusWidget(), &f.List());
    Type(Child(*f.page, "txtFilter"), "nichts");
    QCOMPARE(hint.text().section(' ', 0, 4), LoadedText(Text::NoEntryPassesFilter));
  }

  void TheListIsFilteredAndSorted() {
    Fixture f(kThreeEntries);
    const auto names = [&f] {
      QString joined;
      for (const QString& row : Rows(f.List()).split('|')) joined += row.section('=', 0, 0).mid(2);
      return joined;
    };
    QCOMPARE(names(), "c9bc10");
    f.Select(2);
    const QHeaderView& header = *f.List().header();
    for (const char* order : {"bc9c10", "c10c9b", "c9bc10"}) {
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(20, 8));
      QCOMPARE(names(), order);
      QVERIFY(f.List().currentIndex().data().toString().endsWith("c10"));
    }
    QTest::keyClick(&f.List(), Qt::Key_F, Qt::ControlModifier);
    QWidget& filter = *QApplication::focusWidget();
    QTest::keyClicks(&filter, "C1 z");
    QCOMPARE(names(), "c10");
    QCOMPARE(Shown(*f.page, "lblShown"), "1 von 3");
    QVERIFY(f.Fields().contains("GUID=c|"));
    QTest::keyClicks(&filter, "nichts");
    QCOMPARE(f.Fields(), "");  // of no entry
    QTest::keyClick(&filter, Qt::Key_Escape);
    QCOMPARE(names(), "c9bc10");
  }

  void TheWheelOverAnUnfocusedFolderBoxChangesNothing() {
    Fixture f("");
    auto& folders = Child<QComboBox>(*f.page, "cmbDestinationFolder");
    f.List().setFocus();
    TurnWheel(folders, -120);
    QCOMPARE(folders.currentIndex(), 0);
  }

  void OnlyTheButtonRemovesAnEntry() {
    Fixture f("[Files]\nCount=2\n[File1]\nID=a\nTargetFolder=2\n[File2]\nID=b\nTargetFolder=2\n");
    for (const char* idle : {"mnuRemoveFile", "mnuMoveFile"}) PickFrom(f.OpenMenuAtFirst(), idle);
    Press(*f.page, "cmdMoveFile");
    QVERIFY(!f.page->IsDirty());

    f.List().clearSelection();
    Press(*f.page, "cmdRemoveFile");
    QVERIFY(!f.page->IsDirty());
    f.Select(0);
    Press(*f.page, "cmdRemoveFile");
    QVERIFY(f.Fields().contains("GUID=b"));  // the next entry is selected
    f.page->ApplyChanges();
    QCOMPARE(f.Stored("Files", {"Count"}), "1");
    for (const char* section : {"File1", "File2"}) QCOMPARE(f.Stored(section, {"ID"}), "b");
  }
};

}  // namespace tests

QTEST_MAIN(tests::tabFileListTest)
#include "tabFileListTest.moc"
