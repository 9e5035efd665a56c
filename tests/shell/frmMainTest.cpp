#include <QLabel>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>

#include "grid/ctlPropertyEditor.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/desktop/OpenedProgram.h"

namespace tests {

namespace {

using tools::MessageAnswer;

class FakeWizards : public shell::WizardStarter {
 public:
  void StartSetupWizard(std::int32_t version) override { setup = version; }
  void StartUpdateWizard(std::int32_t version) override { update = version; }

  std::int32_t setup = 0;
  std::int32_t update = 0;
};

}  // namespace

class frmMainTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Version 1.10.0 is the latest; the slots 2 of the product and 1 of that version are free.
  void init() {
    home_ = std::make_unique<TemporaryFolder>();
    UseHome(*home_);
    product_ = home_->Write("P/Probe.product",
                            "[General]\nVersion=1.0\n[Product]\nTitle=Probe\nAuthor=Anna\n"
                            "[Versions]\nCount=4\nVer1=1.2.0\nVer3=1.10.0\nVer4=1.9.0\n");
    home_->Write("P/Version 1.2.0/product.version", "[Components]\nCount=1\n");
    home_->Write("P/Version 1.2.0/component1.component", "[Component]\nTitle=Alt\n");
    home_->Write("P/Version 1.10.0/product.version", "[Components]\nCount=2\n");
    home_->Write("P/Version 1.10.0/component2.component", "[Component]\nTitle=Programm\n");
    home_->MakeFolder("P/Version 1.9.0");
    dialogs_ = std::make_unique<ScriptedDialogs>();
    program_ = std::make_unique<OpenedProgram>(*dialogs_);
    QVERIFY(QTest::qWaitForWindowActive(&program_->window));
  }

  void cleanup() {
    program_.reset();
    dialogs_.reset();
  }

  void WithoutAProductEveryCommandButNewAndOpenIsHarmless() {
    QCOMPARE(program_->window.windowTitle(), "Packwright");
    QVERIFY(!program_->Tree().isEnabled());
    QVERIFY(!Child(program_->window, "picDataEditor").isEnabled());
    QCOMPARE(Child<QLabel>(program_->window, "lblProjectTreeTitle").text(), "Projekt-Struktur ");
    for (const char* key : {"save", "close"}) program_->Press(key);
    QVERIFY(dialogs_->Messages().empty());
    for (const char* key : {"setupwiz", "updatewiz"}) program_->Press(key);
    QCOMPARE(dialogs_->Messages().size(), 2U);
    QVERIFY(dialogs_->Messages()[0].text.starts_with("Es ist kein Projekt geladen."));
    QCOMPARE(dialogs_->Messages()[1].caption, "Update-Erstellungs-Assistent");
  }

  void TheToolbarHasTooltipsImagesAndStandardShortcuts() {
    const std::vector<std::pair<const char*, const char*>> buttons{
        {"new", "Neues Projekt"},
        {"open", "Projekt öffnen"},
        {"save", "Speichern"},
        {"close", "Schließen"},
        {"setupwiz", "Setup-Erstellungs-Assistent"},
        {"updatewiz", "Update-Erstellungs-Assistent"}};
    for (const auto& [key, tooltip] : buttons) {
      const QAction& button = Child<QAction>(program_->window, key);
      QCOMPARE(button.toolTip(), tooltip);
      const QImage image = button.icon().pixmap(16, 16).toImage();
      const QImage empty = QImage(image.size(), image.format());
      QVERIFY2(!image.isNull() && image.pixelColor(8, 8) != empty.pixelColor(0, 0), key);
      QVERIFY2(!button.shortcut().isEmpty(), key);
    }
  }

  void OpenShowsTheTreeWithItsKeysAndExpandsOnlyTheLatestVersion() {
    dialogs_->ExpectOpenFile("Projekt öffnen", product_);
    program_->Press("open");
    QCOMPARE(program_->window.windowTitle(), "Packwright - Probe.product");
    QCOMPARE(program_->Node("product")->text(0), "Probe");
    QCOMPARE(program_->Node("v1")->text(0), "Version 1.2.0");
    QCOMPARE(program_->Node("v3c2")->text(0), "Programm");
    QCOMPARE(program_->Node("v3c2")->parent(), program_->Node("v3"));
    QCOMPARE(program_->Node("v3c2")->data(0, Qt::UserRole + 1).toString(), "component");
    QVERIFY(program_->Node("v2") == nullptr && program_->Node("v3c1") == nullptr);
    QVERIFY(program_->Node("product")->isExpanded() && program_->Node("v3")->isExpanded());
    QVERIFY(!program_->Node("v1")->isExpanded() && !program_->Node("v4")->isExpanded());
    QCOMPARE(program_->SelectedKey(), "");
    QCOMPARE(Tabs().count(), 0);
  }

  void ClicksAndArrowKeysShowTheNodesPages() {
    Open();
    QTest::keyClick(&program_->Tree(), Qt::Key_Down);
    QCOMPARE(TabTitles(), "Produkt");
    QTest::keyClick(&program_->Tree(), Qt::Key_Down);
    QCOMPARE(program_->SelectedKey(), "v1");
    QVERIFY(TabTitles().startsWith("Version;Setup-Typen;Installationsablauf"));
    QVERIFY(Child(program_->window, "EditorTab1").isVisible());
    const QRect second = Tabs().tabRect(1);
    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, second.center());
    QVERIFY(!Child(program_->window, "EditorTab1").isVisible());
    QVERIFY(Child(program_->window, "EditorTab2").isVisible());
    program_->Click("product");
    QCOMPARE(TabTitles(), "Produkt");
  }

  void TheRightButtonShowsTheSelectedNodesMenuWhereverItIsPressed() {
    Open();
    QWidget* viewport = program_->Tree().viewport();
    const QPoint empty(viewport->width() / 2, viewport->height() - 5);
    QTest::mousePress(viewport, Qt::RightButton, {}, empty);
    QVERIFY2(QApplication::activePopupWidget() == nullptr, "a menu without a selected node");
    program_->Click("v3");
    const QPoint other = program_->Tree().visualItemRect(program_->Node("product")).center();
    for (const QPoint& place : {empty, other}) {
      QTest::mousePress(viewport, Qt::RightButton, {}, place);
      QVERIFY(Child(program_->window, "mnuPopupVersion").isVisible());
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::mouseRelease(viewport, Qt::RightButton, {}, place);
      QCOMPARE(program_->SelectedKey(), "v3");
    }
  }

  void OtherButtonsSelectNothing() {
    Open();
    program_->Click("v3");
    const QPoint other = program_->Tree().visualItemRect(program_->Node("product")).center();
    QTest::mouseClick(program_->Tree().viewport(), Qt::MiddleButton, {}, other);
    QCOMPARE(program_->SelectedKey(), "v3");
  }

  void TheMenuKeyOpensTheSelectedNodesMenu() {
    Open();
    program_->Click("v3c2");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&program_->Tree(), &event);
    QCOMPARE(QApplication::activePopupWidget()->objectName(), "mnuPopupComponent");
    QApplication::activePopupWidget()->close();
  }

  void AddedVersionsAndComponentsAppearAndThePagesStay() {
    Open();
    program_->Click("product");
    dialogs_->ExpectInputBox("neue Versionsnummer", "2.0.0");
    program_->PickFromMenu("mnuPopupProduct", "mnuProductAddVersion");
    QCOMPARE(dialogs_->LastDefaultText(), "1.10.1");
    QCOMPARE(program_->Node("v2")->text(0), "Version 2.0.0");
    QVERIFY(program_->Node("v2")->isExpanded() && !program_->Node("v3")->isExpanded());
    QCOMPARE(program_->SelectedKey(), "product");
    QCOMPARE(TabTitles(), "Produkt");
    program_->Click("v2");
    dialogs_->ExpectInputBox("Bezeichnung für die neue Komponente", "Hilfe");
    program_->PickFromMenu("mnuPopupVersion", "mnuVersionAddComponent");
    QCOMPARE(program_->Node("v2c1")->text(0), "Hilfe");
    QVERIFY(home_->Read("P/Version 2.0.0/component1.component").find("Title=Hilfe") < 100);
  }

  void ADeletedNodeIsGoneFromTreeEditorAndDisk() {
    Open();
    program_->Click("v3c2");
    dialogs_->ExpectQuestion("Wirklich löschen?", MessageAnswer::No);
    program_->PickFromMenu("mnuPopupComponent", "mnuComponentDelete");
    QVERIFY(program_->Node("v3c2") != nullptr && home_->Holds("P/Version 1.10.0"));
    dialogs_->ExpectQuestion("Wirklich löschen?", MessageAnswer::Yes);
    program_->PickFromMenu("mnuPopupComponent", "mnuComponentDelete");
    QVERIFY(program_->Node("v3c2") == nullptr);
    QVERIFY(!home_->Holds("P/Version 1.10.0/component2.component"));
    QCOMPARE(Tabs().count(), 0);

    program_->Click("v1");
    dialogs_->ExpectQuestion("Wirklich löschen?", MessageAnswer::Yes);
    program_->PickFromMenu("mnuPopupVersion", "mnuVersionDelete");
    QVERIFY(program_->Node("v1") == nullptr && !home_->Holds("P/Version 1.2.0"));
    QVERIFY(program_->window.findChild<QWidget*>("EditorTab1") == nullptr);
    QVERIFY(home_->Read("P/Probe.product").find("Count=4") < 1000);
  }

  void SavedChangesAreOnDiskAndInTheTree() {
    Open();
    program_->Click("product");
    Grid().SetProperty("ProductTitle", "Neuer Titel");
    QTest::keySequence(&program_->window, QKeySequence::Save);
    QVERIFY(home_->Read("P/Probe.product").find("Title=Neuer Titel\n") < 1000);
    QCOMPARE(program_->Node("product")->text(0), "Neuer Titel");
    QTest::keySequence(&program_->window, QKeySequence::Close);
    QCOMPARE(program_->window.windowTitle(), "Packwright");
    QCOMPARE(program_->Tree().topLevelItemCount(), 0);
    QCOMPARE(Tabs().count(), 0);
  }

  void TwoProgramsOnOneProductKeepEachOthersSettings() {
    Open();
    program_->Click("product");
    OpenedProgram other(*dialogs_);
    QVERIFY(other.operations.OpenProduct(product_));
    dialogs_->ExpectInputBox("neue Versionsnummer", "3.0.0");
    other.operations.AddVersion();
    Grid().SetProperty("ProductTitle", "Anderer Titel");
    program_->Press("save");
    const std::string text = home_->Read("P/Probe.product");
    QVERIFY2(text.find("Ver2=3.0.0\n") < 1000 && text.find("Title=Anderer Titel\n") < 1000,
             text.c_str());
  }

  void AVanishedFolderIsReportedAndTheProgramGoesOn() {
    Open();
    program_->Click("product");
    Grid().SetProperty("Author", "Berta");
    QVERIFY(QDir().rename(Path("P"), Path("Q")));
    program_->Press("save");
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(dialogs_->Messages()[0].caption, "Fehler");
    QVERIFY(dialogs_->Messages()[0].text.find(home_->Path("P")) < 1000);
    QVERIFY(home_->Read("Q/Probe.product").find("Author=Anna") < 1000);
    QVERIFY(QDir().rename(Path("Q"), Path("P")));
    Grid().SetProperty("Author", "Clara");
    program_->Press("save");
    QVERIFY(home_->Read("P/Probe.product").find("Author=Clara") < 1000);
  }

  void TheCloseBoxWarnsButClosesWhateverTheAnswer() {
    Open();
    program_->Click("product");
    Grid().SetProperty("Author", "Berta");
    dialogs_->ExpectQuestion("Nicht gespeicherte Änderungen gehen verloren.",
                             MessageAnswer::Cancel);
    PressCloseBox(program_->window);
    QVERIFY(!program_->window.isVisible());
    QVERIFY(home_->Read("P/Probe.product").find("Author=Anna") < 1000);
  }

  void TheCloseBoxOffersThePagesAfterTheWarning() {
    Open();
    program_->Click("product");
    Grid().SetProperty("Author", "Berta");
    dialogs_->ExpectQuestion("gehen verloren.", MessageAnswer::Ok);
    dialogs_->ExpectQuestion("auf der Seite \"Produkt\"", MessageAnswer::Yes);
    PressCloseBox(program_->window);
    QVERIFY(home_->Read("P/Probe.product").find("Author=Berta") < 1000);
  }

  void ClosedByTheProgramItAsksNothing() {
    Open();
    program_->Click("product");
    Grid().SetProperty("Author", "Berta");
    QVERIFY(program_->window.close());
    QVERIFY(dialogs_->Messages().empty());
  }

  void WizardsStartForTheSelectedVersionOnly() {
    FakeWizards wizards;
    program_->window.ConnectWizards(wizards);
    Open();
    program_->Press("setupwiz");
    program_->Click("v3c2");
    program_->Press("updatewiz");
    QVERIFY(dialogs_->Messages().back().text.ends_with("zu erstellende Version auswählen."));
    QCOMPARE(wizards.setup + wizards.update, 0);
    program_->Click("v3");
    program_->Press("setupwiz");
    QCOMPARE(wizards.setup, 3);
    program_->Click("v4");
    program_->Press("updatewiz");
    QCOMPARE(wizards.update, 4);
  }

  void HintsOfPagesStayUntilThePointerMovesOverTreeOrStatusBar() {
    Open();
    program_->Click("product");
    auto& bar = Child<QStatusBar>(program_->window, "sbrMain");
    for (QWidget* place : {program_->Tree().viewport(), static_cast<QWidget*>(&bar)}) {
      QTest::mouseMove(Child(Grid(), "lsvProps").findChild<QWidget*>("qt_scrollarea_viewport"));
      QTRY_COMPARE(bar.currentMessage(), "Hier können Sie die Produkteigenschaften bearbeiten.");
      QTest::mouseMove(place, {5, 5});
      QTRY_COMPARE(bar.currentMessage(), "");
    }
  }

  void TheWindowComesBackWhereItWasOnTheScreensPresent() {
    program_->window.setGeometry(40, 50, 720, 460);
    Child<QSplitter>(program_->window, "splitter").setSizes({200, 500});
    const QList<int> sizes = Child<QSplitter>(program_->window, "splitter").sizes();
    program_->window.close();
    OpenedProgram next(*dialogs_);
    QCOMPARE(next.window.geometry(), QRect(40, 50, 720, 460));
    QCOMPARE(Child<QSplitter>(next.window, "splitter").sizes(), sizes);
    next.window.move(9000, 9000);
    next.window.close();
    const OpenedProgram last(*dialogs_);
    QVERIFY(last.window.screen()->geometry().intersects(last.window.frameGeometry()));
  }

 private:
  void Open() { QVERIFY(program_->operations.OpenProduct(product_)); }
  QTabBar& Tabs() { return Child<QTabBar>(program_->window, "tabDataEditor"); }
  grid::ctlPropertyEditor& Grid() {
    return Child<grid::ctlPropertyEditor>(program_->window, "propsProduct");
  }
  [[nodiscard]] QString Path(const char* name) const {
    return QString::fromStdString(home_->Path(name));
  }
  QString TabTitles() {
    QStringList titles;
    for (int i = 0; i < Tabs().count(); ++i) titles.append(Tabs().tabText(i));
    return titles.join(";");
  }

  std::unique_ptr<TemporaryFolder> home_;
  std::string product_;
  std::unique_ptr<ScriptedDialogs> dialogs_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests

QTEST_MAIN(tests::frmMainTest)
#include "frmMainTest.moc"
