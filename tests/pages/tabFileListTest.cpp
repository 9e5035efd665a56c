#include <QComboBox>
#include <QMenu>
#include <QPushButton>

#include "pages/PageText.h"
#include "pages/tabFileList.h"
#include "tests/pages/PageFixture.h"
#include "tools/Error.h"
#include "tools/StandardTexts.h"

namespace tests {

class tabFileListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { fixture_ = std::make_unique<PageFixture>(); }
  void cleanup() {
    page_.reset();
    fixture_.reset();
  }

  void DestinationFoldersAreListedByTheirNumbers() {
    Open("");
    const auto& folders = Child<QComboBox>(*page_, "cmbDestinationFolder");
    QCOMPARE(folders.count(), 32);
    QCOMPARE(folders.itemText(0), "Ordner \"Startmenü Programme\"");
    QCOMPARE(folders.itemText(31), "Benutzerdefiniert");
    QCOMPARE(folders.currentData().toInt(), 2);
    QVERIFY(!Child(*page_, "cmdRemoveFile").isEnabled());
    QVERIFY(!Grid(*page_).isEnabled());
  }

  void FilesAndFoldersAreAddedThroughTheDialogs() {
    for (const char* name : {"Q/b.txt", "Q/ä 漢.txt", "Q/tief/c"})
      fixture_->folder.Write(name, "x");
    fixture_->folder.MakeFolder("leer");
    Open("");
    Choose(38);
    fixture_->dialogs.ExpectBrowseFolder(
        "Wählen Sie einen Ordner aus. Alle Dateien in diesem Ordner werden",
        fixture_->folder.Path("leer"));
    ChooseFromMenu("mnuAddDirectory0");
    QVERIFY(!page_->IsDirty());

    fixture_->dialogs.ExpectBrowseFolder("in diesem Ordner und den Unterordnern werden",
                                         fixture_->folder.Path("Q"));
    ChooseFromMenu("mnuAddDirectory1");
    QVERIFY(page_->IsDirty());
    Choose(2001);
    fixture_->dialogs.ExpectOpenFile("Startmenü Programme", fixture_->folder.Path("Q/b.txt"));
    QTest::mouseClick(&Child(*page_, "cmdAddFile"), Qt::LeftButton);
    fixture_->dialogs.ExpectOpenFile("Startmenü Programme", "");
    ChooseFromMenu("mnuAddFile");
    QCOMPARE(Rows(List()), QStringList{Path("Q/b.txt") + "=%InstallPath%\\"});

    page_->ApplyChanges();
    QVERIFY(!page_->IsDirty());
    QCOMPARE(Stored("Files", "Count"), "4");
    QCOMPARE(Stored("File2", "SourceName"), "ä 漢.txt");
    QCOMPARE(Stored("File3", "SourcePath"), fixture_->folder.Path("Q/tief"));
    QCOMPARE(Stored("File3", "TargetFolder"), "38");
    QCOMPARE(Stored("File4", "TargetFolder"), "2001");
    QCOMPARE(Stored("File4", "Type") + Stored("File4", "Vital"), "11");
  }

  void AnEntryShowsItsFieldsAndItsSourceFile() {
    fixture_->folder.Write("Demo/q/da.txt", "x");
    Open(
        "[File1]\nID=a\nType=1\nSourcePath=q\nSourceName=da.txt\nTargetFolder=2004\n"
        "TargetSubFolder=C:\\x\n[File2]\nID=b\nTargetFolder=2004\nSourcePath=q\n",
        2);
    Choose(2004);
    QCOMPARE(Rows(List()), QStringList({"q/da.txt=C:\\x", "q/="}));
    Click(List(), List().model()->index(0, 0));
    QVERIFY(Child(*page_, "cmdRemoveFile").isEnabled());
    QStringList rows = Rows(Grid(*page_));
    QVERIFY(rows.takeLast().startsWith("Datum="));
    QCOMPARE(rows,
             QStringList({"Eintragstyp=1", "Ausschließen=0", "GUID=a", "Unterordner einschließen=0",
                          "Überschreiben=0", "Permanent=0", "Pfad registrieren=0",
                          "DLL registrieren=0", "Quelldateiname=da.txt", "Quellordner=q",
                          "Zielordner (allg.)=2004", "Zieldateiname=", "Zielordner=C:\\x",
                          "Essenziell=1", "Vorhanden=Vorhanden", "Version="}));
    QTest::keyClick(&List(), Qt::Key_Down);
    QCOMPARE(Rows(Grid(*page_)).size(), 14);
    Edit(*page_, "Eintragstyp", "1");
    QVERIFY(Rows(Grid(*page_)).contains("Vorhanden=Nicht vorhanden"));
  }

  void EditedFieldsAreStoredAndTheEntryStaysSelected() {
    Open("[File1]\nID=a\nType=2\nTargetFolder=2\n", 1);
    Click(List(), List().model()->index(0, 0));
    Edit(*page_, "Quellordner", "/ü; \"漢\"");
    Edit(*page_, "Essenziell", "ja");
    EditByKey("-1");  // the row that was edited before is still the selected one
    QCOMPARE(Rows(Grid(*page_)).last(), "Essenziell=-1");
    QCOMPARE(Rows(List()).front(), "/ü; \"漢\"/=%ProgramsDir%\\");
    QCOMPARE(List().selectionModel()->selectedRows().size(), 1);

    for (const char* fixed : {"GUID", "Vorhanden"}) {
      if (*fixed == 'V') Edit(*page_, "Eintragstyp", "1");
      DoubleClick(Grid(*page_), RowWith(Grid(*page_), fixed));
      QCOMPARE(fixture_->dialogs.Messages().back().text, model::LoadText(239));
    }
    page_->ApplyChanges();
    QCOMPARE(Stored("File1", "SourcePath"), "/ü; \"漢\"");
    QCOMPARE(Stored("File1", "Vital"), "-1");
    QCOMPARE(Stored("File1", "ID"), "a");
  }

  void ANumberThatDoesNotFitIsRefusedWithAMessage() {
    Open("[File1]\nID=a\nTargetFolder=2\n", 1);
    Click(List(), List().model()->index(0, 0));
    Edit(*page_, "Permanent", "32768");
    QCOMPARE(fixture_->dialogs.Messages().size(), 1U);
    QCOMPARE(fixture_->dialogs.Messages().back().caption, tools::StandardText(tools::kTextError));
    QVERIFY(Rows(Grid(*page_)).contains("Permanent=0"));
    page_->ApplyChanges();
    QCOMPARE(Stored("File1", "Permanent"), "0");
  }

  void AnEntryMovedToAnotherFolderLeavesTheList() {
    Open("[File1]\nID=a\nTargetFolder=2\n", 1);
    Click(List(), List().model()->index(0, 0));
    Edit(*page_, "Zielordner (allg.)", "3");
    QCOMPARE(Rows(List()), QStringList());
    QCOMPARE(Rows(Grid(*page_)), QStringList());
    page_->ApplyChanges();
    QCOMPARE(Stored("Files", "Count"), "1");
    QCOMPARE(Stored("File1", "TargetFolder"), "3");
  }

  void WithoutASelectedEntryTheGridIsEmpty() {
    Open("[File1]\nID=a\nTargetFolder=2\n", 1);
    const QModelIndex entry = List().model()->index(0, 0);
    Click(List(), entry);
    QVERIFY(!Rows(Grid(*page_)).isEmpty());
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      List().visualRect(entry).center());
    QCOMPARE(Rows(Grid(*page_)), QStringList());
  }

  void OnlyTheButtonRemovesAnEntry() {
    Open("[File1]\nID=a\nTargetFolder=2\n[File2]\nID=b\nTargetFolder=2\n", 2);
    auto& menu = OpenMenu(Qt::RightButton, {});
    QVERIFY(!Child<QAction>(*page_, "mnuRemoveFile").isEnabled());
    QVERIFY(!Child<QAction>(*page_, "mnuMoveFile").isEnabled());
    menu.close();
    ChooseFromMenu("mnuAddDynamic");
    for (const char* idle : {"mnuRemoveFile", "mnuMoveFile"}) {
      ChooseFromMenu(idle, List().model()->index(0, 0));
    }
    QTest::mouseClick(&Child(*page_, "cmdMoveFile"), Qt::LeftButton);
    QCOMPARE(Rows(List()).size(), 2);
    QVERIFY(!page_->IsDirty());

    auto& remove = Child(*page_, "cmdRemoveFile");
    QTest::mouseClick(&remove, Qt::LeftButton);
    QVERIFY(page_->IsDirty());
    page_->SetDirty(false);
    QTest::mouseClick(&remove, Qt::LeftButton);  // nothing is selected any more
    QVERIFY(!page_->IsDirty() && remove.isEnabled());
    page_->ApplyChanges();
    QCOMPARE(Stored("Files", "Count"), "1");
    QCOMPARE(Stored("File1", "ID"), "b");
    QCOMPARE(Stored("File2", "ID"), "b");
  }

  void StoredEntriesWithEqualIdsAreAnErrorAndStay() {
    fixture_->folder.Write(PageFixture::kComponentFile,
                           "[Files]\nCount=2\n[File1]\nID=a\n[File2]\nID=a\n");
    fixture_->host.component = 1;
    pages::tabFileList page({fixture_->project, fixture_->dialogs, *fixture_->registry}, nullptr);
    page.SetHost(&fixture_->host);
    QVERIFY_THROWS_EXCEPTION(tools::Error, page.ReadSettings());
  }

  void AComponentOf50000EntriesIsShownAndStoredWhole() {
    std::string files;
    for (int i = 1; i <= 50000; ++i) {
      files += "[File" + std::to_string(i) + "]\nID=" + std::to_string(i) + "\nTargetFolder=38\n";
    }
    Open(files, 50000);
    Choose(38);
    QCOMPARE(List().model()->rowCount(), 50000);
    List().setFocus();
    QTest::keyClick(&List(), Qt::Key_End);
    Edit(*page_, "Quelldateiname", "letzte");
    QCOMPARE(Rows(List()).last(), "/letzte=%ProgramFiles%\\");
    page_->ApplyChanges();
    QCOMPARE(Stored("File50000", "SourceName"), "letzte");
    page_->ReadSettings();
    QCOMPARE(List().model()->rowCount(), 50000);
  }

 private:
  /// Opens the page for a component with these entries.
  void Open(const std::string& entries, int count = 0) {
    if (count > 0) {
      fixture_->folder.Write(PageFixture::kComponentFile,
                             "[Files]\nCount=" + std::to_string(count) + "\n" + entries);
    }
    page_ = fixture_->Open<pages::tabFileList>(1);
  }
  [[nodiscard]] QTreeView& List() const { return Child<QTreeView>(*page_, "lsvBrowser"); }
  [[nodiscard]] QString Path(const char* name) const {
    return tools::ToQString(fixture_->folder.Path(name));
  }
  [[nodiscard]] std::string Stored(const char* section, const char* key) const {
    return fixture_->Stored(PageFixture::kComponentFile, section, key);
  }
  void EditByKey(const QString& value) {
    ModalScript script;
    ExpectTyping(script, value);
    QTest::keyClick(&Grid(*page_), Qt::Key_F2);
    QTRY_VERIFY(Rows(Grid(*page_)).last().endsWith(value));
  }
  void Choose(int folder) {
    auto& folders = Child<QComboBox>(*page_, "cmbDestinationFolder");
    folders.setCurrentIndex(folders.findData(folder));
  }
  QMenu& OpenMenu(Qt::MouseButton button, const QModelIndex& index) {
    const QPoint at = index.isValid() ? List().visualRect(index).center()
                                      : List().viewport()->rect().bottomRight() - QPoint(9, 9);
    QTest::mousePress(List().viewport(), button, {}, at);
    QTest::mouseRelease(List().viewport(), button, {}, at);
    auto& menu = Child<QMenu>(*page_, "mnuPopup");
    if (!QTest::qWaitFor([&] { return menu.isVisible(); })) qFatal("the menu does not open");
    return menu;
  }
  void ChooseFromMenu(const char* name, const QModelIndex& index = {}) {
    QMenu& menu = OpenMenu(Qt::RightButton, index);
    auto& action = Child<QAction>(*page_, name);
    QVERIFY2(action.isEnabled(), name);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
  }

  std::unique_ptr<PageFixture> fixture_;
  std::unique_ptr<pages::tabFileList> page_;
};

}  // namespace tests

QTEST_MAIN(tests::tabFileListTest)
#include "tabFileListTest.moc"
