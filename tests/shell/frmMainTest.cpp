#include <QDesktopServices>
#include <QDir>

#include "grid/ctlPropertyEditor.h"
#include "tests/support/desktop/WindowFixture.h"
#include "tools/settings/SettingsFile.h"

namespace tests {

class frmMainTest : public QObject, protected WindowFixture {
  Q_OBJECT

 private Q_SLOTS:
  void init() { SetUp(); }
  void cleanup() { TearDown(); }

  void CommandsAreHarmlessWithoutAProduct() {
    QVERIFY(!program_->Tree().isEnabled());
    QVERIFY(!Child(program_->window, "picDataEditor").isEnabled());
    for (const char* key : {"save", "close", "setupwiz", "updatewiz"}) program_->Press(key);
    QCOMPARE(dialogs_->Messages().size(), 2U);
    for (const tools::Message& message : dialogs_->Messages()) {
      QCOMPARE(message.text, model::LoadText(Text::NoProjectOpen));
    }
  }

  void TheFormForNewProductsNamesTheFileByTheTitle() {
    ModalScript script;
    script.Expect<QDialog>("frmNewProduct", [](QDialog& form) {
      QCOMPARE(form.focusWidget()->objectName(), "txtProductTitle");
      // Only the file's name is cleaned.
      for (const char* end : {"/Demo/Demo.product", "/A*B/A_B.product", "//.product"}) {
        Type(Child(form, "txtFilename"), "von Hand");
        Type(Child(form, "txtProductTitle"), QString(end).section('/', 1, 1));
        const QString path = QDir::toNativeSeparators("/Installationen" + QString(end));
        QVERIFY2(Shown(form, "txtFilename").endsWith(path), end);
      }
      form.close();
    });
    program_->Press("new");
  }

  void OnlyTheAuthorOfAProductThatIsMadeIsProposedTheNextTime() {
    const auto escape = [](QDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); };
    const std::pair<QString, std::function<void(QDialog&)>> proposals[] = {
        {"", escape},
        {"", [](QDialog& form) { PressCloseBox(form); }},
        {"", [](QDialog& form) { QTest::keyClick(&form, Qt::Key_Return); }},
        {"Änne Müller", escape}};
    for (const auto& proposal : proposals) {
      const QString& proposed = proposal.first;
      QCOMPARE(program_->window.windowTitle() == "Packwright", proposed.isEmpty());
      ModalScript script;
      script.Expect<QDialog>("frmNewProduct", [&](QDialog& form) {
        QCOMPARE(Shown(form, "txtAuthor"), proposed);
        Type(Child(form, "txtFilename"), tools::ToQString(home_->Path("neu/neu.product")));
        Type(Child(form, "txtAuthor"), "Änne Müller");
        proposal.second(form);
      });
      program_->Press("new");
    }
  }

  void TheWindowHasItsTexts() {
    QStringList texts;
    for (const char* item :
         {"mnuProductAddVersion", "mnuVersionAddComponent", "mnuVersionDelete",
          "mnuVersionProperties", "mnuComponentDelete", "mnuComponentProperties"}) {
      texts += Child<QAction>(program_->window, item).text();
    }
    QCOMPARE(texts.join('|'),
             "Version hinzufügen...|Komponente hinzufügen...|Löschen|Eigenschaften|Löschen|"
             "Eigenschaften");
    QCOMPARE(Shown(program_->window,
                   {"lblProjectTreeTitle", "lblDataEditorTitle", "lblProjectTreeInfo"}),
             "Projekt-Struktur |Projekt-Editor |Rechtsklicken Sie auf ein Element, um ein "
             "Kontextmenü einzublenden.");
  }

  void TheSelectedNodesPagesAreShown() {
    program_->Open(product_);
    for (const char* titles : {"Produkt", "Version|Setup-Typen|Installationsablauf|"}) {
      QTest::keyClick(&program_->Tree(), Qt::Key_Down);
      QVERIFY2(TabTitles().startsWith(titles), titles);
    }
    for (const int shown : {1, 0}) {
      QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(shown).center());
      QCOMPARE(Child(program_->window, "EditorTab1").isVisible(), shown == 0);
      QCOMPARE(Child(program_->window, "EditorTab2").isVisible(), shown == 1);
    }
  }

  void AFailedSaveCanBeRepeated() {
    OpenProductPage();
    Grid().SetProperty("ProductTitle", "Neuer Titel");
    QCOMPARE(Marks(), "Geändert|Packwright - Probe.product[*]|Produkt, geändert|Geändert");
    const QString folder = tools::ToQString(home_->Path("Produkt"));
    QVERIFY(QDir().rename(folder, folder + "weg"));
    program_->Press("save");
    QVERIFY(Told(*dialogs_).startsWith("Fehler|"));
    QVERIFY(Told(*dialogs_).contains(folder));
    QCOMPARE(Marks(), "Nicht gespeichert|Packwright - Probe.product[*]|Produkt, geändert|Geändert");
    QVERIFY(QDir().rename(folder + "weg", folder));
    QTest::keySequence(&program_->window, QKeySequence::Save);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(Stored("Product", "Title"), "Neuer Titel");
    QVERIFY(program_->Nodes().startsWith("product=Neuer Titel|"));
    QVERIFY(Marks().startsWith("Gespeichert "));
    Grid().SetProperty("ProductTitle", "Noch einer");
    QVERIFY(QDir().rename(folder, folder + "weg"));
    dialogs_->ExpectQuestion(Text::ApplyPageChanges, MessageAnswer::Yes);
    program_->Click("v3");
    QVERIFY2(Marks().startsWith("|"), "the time would be of other changes");
    QVERIFY(Told(*dialogs_).contains("Seite \"Produkt\" wurden nicht gespeichert.\n\n"));
    QVERIFY(Told(*dialogs_).contains(folder));
  }

  void ChangesThatCouldNotBeSavedAreOfferedAgain() {
    program_->Open(product_);
    program_->Click("v3");
    Tabs().setCurrentIndex(4);
    QWidget& window = program_->window;
    Type(Child(window, "txtProgramTitle"), "Eigen");
    home_->Write("Produkt/Version 1.10.0/product.version", "[Tessel]\nTitle=Fremd\n");
    dialogs_->ExpectQuestion(Text::OverwriteOutsideChanges, MessageAnswer::No);
    program_->Press("save");
    QTest::keyClick(&window, Qt::Key_F5);
    QTRY_VERIFY(Shown(window, "lblFacts").contains("der gespeicherte Stand"));
    for (const auto& [apply, title] :
         {std::pair{MessageAnswer::Yes, "Eigen"}, {MessageAnswer::No, "Fremd"}}) {
      dialogs_->ExpectQuestion({Text::ApplyPageChanges, "Tessel-Datenbank"}, apply);
      if (apply == MessageAnswer::Yes) {
        dialogs_->ExpectQuestion(Text::OverwriteOutsideChanges, MessageAnswer::No);
      }
      Child<QAbstractButton>(window, "lnkReload").click();
      QCOMPARE(Shown(window, "txtProgramTitle"), title);
    }
    QCOMPARE(Shown(window, "lblSaveState"), "");
  }

  void TheCloseBoxClosesWhateverTheAnswer() {
    for (const auto& [answer, stored] :
         {std::pair{MessageAnswer::Cancel, "Änne Müller"}, {MessageAnswer::Ok, "Berta"}}) {
      program_ = std::make_unique<OpenedProgram>(dialogs_.get());
      OpenProductPage();
      Grid().SetProperty("Author", "Berta");
      dialogs_->ExpectQuestion(Text::UnsavedChangesAreLost, answer);
      if (answer == MessageAnswer::Ok) {
        dialogs_->ExpectQuestion({Text::ApplyPageChanges, "Produkt"}, MessageAnswer::Yes);
      }
      PressCloseBox(program_->window);
      QVERIFY(!program_->window.isVisible());
      QCOMPARE(Stored("Product", "Author"), stored);
    }
  }

  void WizardsStartForTheSelectedVersionOnly() {
    QString started;
    // The program's own wizard would open and wait for an answer.
    disconnect(&program_->window, &shell::frmMain::UpdateWizardWanted, nullptr, nullptr);
    connect(&program_->window, &shell::frmMain::UpdateWizardWanted, this,
            [&started](std::int32_t slot, auto& pages) {
              started += QString::number(slot) + tools::ToQString(pages.Item(1).Title());
            });
    program_->Open(product_);
    program_->Press("updatewiz");
    for (const char* node : {"v3c2", "v4"}) {
      program_->Click(node);
      program_->Press("updatewiz");
    }
    QCOMPARE(started, "4Version");
    QCOMPARE(dialogs_->Messages().size(), 2U);
    QCOMPARE(dialogs_->Messages().back().text, model::LoadText(Text::NoVersionSelected));
    program_->Click("product");
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QCOMPARE(dialogs_->Messages().back().text, model::LoadText(Text::NoVersionToCheck));
  }

  void TheStartPageOffersTheProductsOpenedLast() {
    QVERIFY(Child(program_->window, "startPage").isVisible());
    for (const char* name : {"Produkt/b.product", "Produkt/a.product", TestProduct::kFile}) {
      home_->Write(name, home_->Read(TestProduct::kFile));
      program_->Open(home_->Path(name));
    }
    QVERIFY(Shown(program_->window, "lblStartHint").startsWith("Wählen Sie links"));
    program_->Click("product");
    QVERIFY(Child(program_->window, "startPage").isHidden());
    QVERIFY(QFile::remove(tools::ToQString(home_->Path("Produkt/a.product"))));
    program_->Press("close");
    auto& menu = *program_->window.findChild<QMenu*>("mnuRecent");
    for (int i = 0; i < 2; ++i) Q_EMIT menu.aboutToShow();  // again before any answer
    QTRY_COMPARE(menu.actions().size(), 5);
    QVERIFY(!QTest::qWaitFor([&menu] { return menu.actions().size() != 5; }, 100));
    const auto link = [this](const char* name) -> QAbstractButton& {
      return Child<QAbstractButton>(program_->window, name);
    };
    QTRY_VERIFY(link("lnkRemove2").isVisible());
    QVERIFY(!link("lnkProduct2").isEnabled());
    tests::Press(program_->window, "lnkRemove2");
    QTRY_COMPARE(link("lnkProduct2").text(), "b.product");
    QTest::keyClick(&link("lnkProduct2"), Qt::Key_Return);
    QTRY_COMPARE(program_->window.windowTitle(), "Packwright - b.product");
  }

  void APageStaysOfItsKindFromNodeToNode() {
    program_->Open(product_);
    program_->Click("v3");
    for (const auto& [keys, tab] : {std::pair(Qt::CTRL | Qt::Key_Tab, 1),
                                    {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, 0},
                                    {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, 4}}) {
      Press(keys);
      QCOMPARE(Tabs().currentIndex(), tab);
    }
    for (const char* key : {"v3c2", "v1"}) program_->Click(key);
    QCOMPARE(Tabs().tabText(Tabs().currentIndex()), "Tessel-Datenbank");
  }

  void PanesAreReachedByKey() {
    program_->Open(product_);
    program_->Click("v3c2");
    QStringList focused;
    for (int i = 0; i < 4; ++i) {
      QTest::keyClick(&program_->window, Qt::Key_F6);
      focused += QApplication::focusWidget()->objectName();
    }
    QCOMPARE(focused.join('|'), "tabDataEditor|cmbDestinationFolder||trvProjectTree");
    Press(Qt::CTRL | Qt::Key_F);
    QCOMPARE(QApplication::focusWidget(), &Child(program_->window, "txtFilter"));
    Child(program_->window, "cmbDestinationFolder").setFocus();
    Press(Qt::CTRL | Qt::Key_Tab);
    const QWidget& registry = Child(program_->window, "EditorTab2");
    QVERIFY2(registry.isAncestorOf(QApplication::focusWidget()), "goes on with the page");
    program_->Click("v3");
    Tabs().setCurrentIndex(1);
    Tabs().setFocus();
    QTest::keyClick(&program_->window, Qt::Key_F6);
    QVERIFY2(QApplication::focusWidget()->parent() == &Child(program_->window, "tbrMain"),
             "passes over a page without controls");
  }

  void TheResultPanelComesBehindThePageInTheOrderOfTab() {
    program_->Open(product_);
    program_->Click("v3c2");
    Child(program_->window, "pnlResult").show();
    Child(program_->window, "cmbDestinationFolder").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), &Tabs());
  }

  void HelpLeadsToTheGuidesChapterOnThePageShown() {
    QDesktopServices::setUrlHandler("file", this, "TakeUrl");
    program_->Open(product_);
    for (const char* node : {"", "product", "v3", "v3c2"}) {
      if (*node != '\0') program_->Click(node);
      for (int page = 0; page < std::max(Tabs().count(), 1); ++page) {
        QTest::keyClick(&program_->window, Qt::Key_F1);
        QCOMPARE(Unnamed(), "");
        Press(Qt::CTRL | Qt::Key_Tab);
      }
    }
    QCOMPARE(Told(*dialogs_), "");
    QCOMPARE(chapters_.join('|'),
             "das-hauptfenster|produkt|version|setup-typen|installationsablauf|"
             "erstellungs-optionen|tessel-datenbank|dateien|registrierung");
  }

  void TellsWhenAnotherProgramChangesThePagesFile() {
    OpenProductPage();
    const QWidget& bar = Child(program_->window, "fraFileChanged");
    QEvent activation(QEvent::WindowActivate);
    home_->Write(TestProduct::kFile, home_->Read(TestProduct::kFile) + "Ver9=\n");
    QApplication::sendEvent(&program_->window, &activation);
    QVERIFY2(!QTest::qWaitFor([&] { return bar.isVisible(); }, 200), "no page shows versions");
    TestProduct(*home_).Project().SetProductTitle("Fremd");
    QApplication::sendEvent(&program_->window, &activation);
    QTRY_VERIFY(bar.isVisible());
    tests::Press(program_->window, "lnkReload");
    QVERIFY(bar.isHidden());
    QCOMPARE(Grid().GetProperty("ProductTitle"), "Fremd");
  }

  void AProductThatIsGoneIsToldOf() {
    program_->Open(product_);
    const QString nodes = program_->Nodes();
    const QString folder = tools::ToQString(home_->Path("Produkt"));
    QVERIFY(QDir().rename(folder, folder + "weg"));
    program_->Click("v3c2");
    QVERIFY(Shown(program_->window, "lblEmptyFileList").startsWith("Die Datei dieser Komponente"));
    for (const int key : {Qt::Key_F5, Qt::Key_F7}) QTest::keyClick(&program_->window, Qt::Key(key));
    tests::Press(program_->window, "lnkTryAgain");
    QCOMPARE(Told(*dialogs_).count("Die Projektdatei ist nicht mehr vorhanden: " + folder), 3);
    QCOMPARE(program_->Nodes(), nodes);
    QVERIFY(QDir().rename(folder + "weg", folder));
    tests::Press(program_->window, "lnkTryAgain");
    const QWidget& bar = Child(program_->window, "fraNodeMissing");
    QVERIFY(bar.isHidden());
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(&program_->window, &activation);
    QVERIFY(!QTest::qWaitFor([&] { return bar.isVisible(); }, 100));
    QVERIFY(QFile::remove(tools::ToQString(product_)));
    QApplication::sendEvent(&program_->window, &activation);
    QTRY_VERIFY(bar.isVisible());
  }

  void TheWindowComesBackOnAScreenThatIsPresent() {
    program_->window.move(9000, 9000);
    program_->window.close();
    const OpenedProgram next(dialogs_.get());
    QVERIFY(next.window.screen()->geometry().intersects(next.window.frameGeometry()));
  }

 public Q_SLOTS:
  void TakeUrl(const QUrl& url) { chapters_ += QFileInfo(url.toLocalFile()).completeBaseName(); }

 private:
  void OpenProductPage() {
    program_->Open(product_);
    program_->Click("product");
  }
  /// What says that something is not saved: status bar, caption, tab and tree.
  QString Marks() {
    QTabBar& tabs = Tabs();
    const bool icon = !tabs.tabIcon(0).isNull();
    return QStringList{
        Shown(program_->window, "lblSaveState"), program_->window.windowTitle(),
        icon ? tabs.accessibleTabName(0) : QString(),
        program_->Tree().topLevelItem(0)->data(0, Qt::AccessibleDescriptionRole).toString()}
        .join('|');
  }
  QString Stored(const char* section, const char* key) const {
    const tools::SettingsFile file(home_->Read(TestProduct::kFile));
    return tools::ToQString(file.Read(section, key, "-"));
  }
  grid::ctlPropertyEditor& Grid() {
    return Child<grid::ctlPropertyEditor>(program_->window, "propsProduct");
  }
  /// The fields and lists on screen that a screen reader has no name for.
  QString Unnamed() {
    QString names;
    for (const QWidget* field : program_->window.findChildren<QWidget*>()) {
      const bool named = !field->accessibleName().isEmpty() || !field->isVisible();
      const bool isField = field->inherits("QLineEdit") || field->inherits("QComboBox") ||
                           field->inherits("QAbstractItemView");
      if (isField && !named && !field->inherits("QHeaderView"))
        names += field->objectName() + field->parent()->objectName() + ' ';
    }
    return names;
  }

  QStringList chapters_;  ///< of the guide, in the order in which they were opened
};

}  // namespace tests

QTEST_MAIN(tests::frmMainTest)
#include "frmMainTest.moc"
