#include <QDir>
#include <QTabBar>

#include "grid/ctlPropertyEditor.h"
#include "shell/NodeKey.h"
#include "tests/support/TestProduct.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tools/settings/SettingsFile.h"

namespace tests {

using model::Text;
using tools::MessageAnswer;

namespace {

/// The product's nodes, as OpenedProgram::Nodes gives them.
constexpr const char* kNodes =
    "product=Probe|[v1=Version 1.0.0]|[v1c1=Alt]|v3=Version 1.10.0|[v3c2=Programm]|"
    "[v4=Version 1.9.0]";

}  // namespace

class frmMainTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Version 1.10.0 is the latest; the slots 2 of the product and 1 of that version are free.
  void init() {
    home_ = std::make_unique<TemporaryFolder>();
    UseHome(*home_);
    TestProduct product(*home_);
    product.AddComponent("Alt", {});
    product.WriteVersions("Count=4\nVer1=1.0.0\nVer3=1.10.0\nVer4=1.9.0\n");
    home_->Write("Produkt/Version 1.10.0/product.version", "[Components]\nCount=2\n");
    home_->Write("Produkt/Version 1.10.0/component2.component", "[Component]\nTitle=Programm\n");
    product_ = product.Project().ProductPath();
    dialogs_ = std::make_unique<ScriptedDialogs>();
    program_ = std::make_unique<OpenedProgram>(dialogs_.get());
  }

  void cleanup() {
    program_.reset();
    dialogs_.reset();
  }

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
    for (const auto& [proposed, leave] : proposals) {
      QCOMPARE(program_->window.windowTitle() == "Packwright", proposed.isEmpty());
      ModalScript script;
      script.Expect<QDialog>("frmNewProduct", [&](QDialog& form) {
        QCOMPARE(Shown(form, "txtAuthor"), proposed);
        Type(Child(form, "txtFilename"), tools::ToQString(home_->Path("neu/neu.product")));
        Type(Child(form, "txtAuthor"), "Änne Müller");
        leave(form);
      });
      program_->Press("new");
    }
  }

  void OpeningExpandsOnlyTheLatestVersion() {
    dialogs_->ExpectOpenFile(Text::OpenProject, product_);
    program_->Press("open");
    QCOMPARE(program_->Nodes(), kNodes);
    QCOMPARE(program_->SelectedKey() + TabTitles(), "");
  }

  void AFileThatCannotBeReadCostsOnlyItsOwnNodes() {
    home_->Write("Produkt/Version 1.9.0/product.version/ein Ordner", "");
    program_->Open(product_);
    QCOMPARE(program_->Nodes(), kNodes);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QVERIFY(Told(*dialogs_).startsWith("Fehler|"));
    QVERIFY(Told(*dialogs_).contains("Version 1.9.0"));
  }

  void ManyFilesThatCannotBeReadAreToldInAMessageThatFitsOnTheScreen() {
    std::string versions = "Count=30\n";
    for (int i = 1; i <= 30; ++i) {
      const std::string number = std::to_string(i);
      versions.append("Ver" + number + "=2." + number + "\n");
      home_->Write("Produkt/Version 2." + number + "/product.version/x", "");
    }
    TestProduct(*home_).WriteVersions(versions);
    program_->Open(product_);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(Told(*dialogs_).count("product.version"), 8);
    QVERIFY(Told(*dialogs_).endsWith("weitere Fehler: 22"));
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

  void SlotsOfSeveralDigitsComeBackFromTheirKeys() {
    const shell::NodeSlots slots = shell::SlotsOf(shell::ComponentNode(12, 345));
    QCOMPARE(std::pair(slots.version, slots.component), std::pair(12, 345));
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

  void OnlyALeftClickOnANodeSelectsAnother() {
    program_->Open(product_);
    program_->Click("v3c2");
    const QString before = "v3c2Dateien|Registrierung";
    program_->Click("product", Qt::MiddleButton);
    QCOMPARE(program_->SelectedKey() + TabTitles(), before);
    QWidget* viewport = program_->Tree().viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, BesideTheNodes());
    QCOMPARE(program_->SelectedKey() + TabTitles(), before);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::ControlModifier, program_->PlaceOf("v3c2"));
    QCOMPARE(program_->SelectedKey() + TabTitles(), before);
  }

  void CollapsingANodeThatHidesTheSelectedOneSelectsIt() {
    program_->Open(product_);
    program_->Click("v3c2");
    const QRect item = program_->Tree().visualItemRect(program_->Tree().topLevelItem(0)->child(1));
    QTest::mouseClick(program_->Tree().viewport(), Qt::LeftButton, {},
                      QPoint(item.left() - program_->Tree().indentation() / 2, item.center().y()));
    QVERIFY(program_->Nodes().contains("|[v3=Version 1.10.0]|"));
    QVERIFY((program_->SelectedKey() + TabTitles()).startsWith("v3Version|"));
  }

  void TheMenuIsThatOfTheSelectedNodeWhereverTheMouseIs() {
    program_->Open(product_);
    QWidget* viewport = program_->Tree().viewport();
    QTest::mouseClick(viewport, Qt::RightButton, {}, BesideTheNodes());
    QVERIFY2(QApplication::activePopupWidget() == nullptr, "a menu without a selected node");
    program_->Click("v3");
    for (const QPoint& place : {BesideTheNodes(), program_->PlaceOf("product")}) {
      QTest::mouseClick(viewport, Qt::RightButton, {}, place);
      QCOMPARE(OpenedMenu().objectName(), "mnuPopupVersion");
      QTest::keyClick(&OpenedMenu(), Qt::Key_Escape);
      QCOMPARE(program_->SelectedKey(), "v3");
    }
  }

  void ADeletedNodeIsGoneEverywhere() {
    program_->Open(product_);
    program_->Click("v3c2");
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      dialogs_->ExpectQuestion(Text::ConfirmDeletion, answer);
      program_->PickFromMenu("mnuComponentDelete");
      const bool kept = answer == MessageAnswer::No;
      QCOMPARE(program_->Nodes().contains("[v3c2=Programm]"), kept);
      QCOMPARE(home_->Holds("Produkt/Version 1.10.0/component2.component"), kept);
      QCOMPARE(TabTitles(), kept ? "Dateien|Registrierung" : "");
    }
    program_->Click("v1");
    dialogs_->ExpectQuestion(Text::ConfirmDeletion, MessageAnswer::Yes);
    program_->PickFromMenu("mnuVersionDelete");
    QVERIFY(!program_->Nodes().contains("v1="));
    QVERIFY(!home_->Holds("Produkt/Version 1.0.0"));
    QVERIFY(program_->window.findChild<QWidget*>("EditorTab1") == nullptr);
  }

  void AFailedSaveCanBeRepeated() {
    OpenProductPage();
    Grid().SetProperty("ProductTitle", "Neuer Titel");
    const QString folder = tools::ToQString(home_->Path("Produkt"));
    QVERIFY(QDir().rename(folder, folder + "weg"));
    program_->Press("save");
    QVERIFY(Told(*dialogs_).startsWith("Fehler|"));
    QVERIFY(Told(*dialogs_).contains(folder));
    QVERIFY(QDir().rename(folder + "weg", folder));
    QTest::keySequence(&program_->window, QKeySequence::Save);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(Stored("Product", "Title"), "Neuer Titel");
    QVERIFY(program_->Nodes().startsWith("product=Neuer Titel|"));
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
  }

  void TheWindowComesBackOnAScreenThatIsPresent() {
    program_->window.move(9000, 9000);
    program_->window.close();
    const OpenedProgram next(dialogs_.get());
    QVERIFY(next.window.screen()->geometry().intersects(next.window.frameGeometry()));
  }

 private:
  void OpenProductPage() {
    program_->Open(product_);
    program_->Click("product");
  }
  QPoint BesideTheNodes() const {
    return program_->Tree().viewport()->rect().bottomRight() - QPoint(20, 5);
  }
  QString Stored(const char* section, const char* key) const {
    const tools::SettingsFile file(home_->Read(TestProduct::kFile));
    return tools::ToQString(file.Read(section, key, "-"));
  }
  QTabBar& Tabs() { return Child<QTabBar>(program_->window, "tabDataEditor"); }
  grid::ctlPropertyEditor& Grid() {
    return Child<grid::ctlPropertyEditor>(program_->window, "propsProduct");
  }
  QString TabTitles() {
    QStringList titles;
    for (int i = 0; i < Tabs().count(); ++i) titles.append(Tabs().tabText(i));
    return titles.join('|');
  }

  std::unique_ptr<TemporaryFolder> home_;
  std::string product_;
  std::unique_ptr<ScriptedDialogs> dialogs_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests

QTEST_MAIN(tests::frmMainTest)
#include "frmMainTest.moc"
