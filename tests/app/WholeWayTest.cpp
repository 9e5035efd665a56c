#include <QTabBar>

#include "shell/GuardedApplication.h"
#include "tests/support/ZipReader.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace tests {

/// From nothing to a setup with every window of the program, by mouse and keyboard.
class WholeWayTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    work_ = std::make_unique<TemporaryFolder>();
    UseHome(*work_);
    script_ = std::make_unique<ModalScript>();
    program_ = std::make_unique<OpenedProgram>();
  }

  void cleanup() {
    program_.reset();
    script_.reset();
  }

  void FromNothingToAWholeSetup() {
    work_->Write("quelle/programm.exe", "MZ Programm");
    work_->Write("quelle/handbuch/Über.txt", "oben");
    work_->Write("quelle/handbuch/tief/漢字; a.dat", "unten");
    MakeProduct();
    AddVersionAndComponent();
    AddFiles();
    AddRegistryValue();
    EditVersion();
    RenameCloseAndOpenAgain();
    RunSetupWizard();
    CheckSetup();
  }

  void OpensTheProductThatIsTheOnlyArgument() {
    const QString product = ToQString(work_->Write("demo.product", "[General]\nVersion=1.0\n"));
    program_->program.OpenFromCommandLine({"packwright"});
    program_->program.OpenFromCommandLine({"packwright", product, product});
    QCOMPARE(program_->window.windowTitle(), "Packwright");
    script_->ExpectAndPress("messageBox", "cmdOK");
    program_->program.OpenFromCommandLine({"packwright", product + ".fehlt"});
    program_->program.OpenFromCommandLine({"packwright", product});
    QCOMPARE(program_->window.windowTitle(), "Packwright - demo.product");
  }

  void AnExceptionThatLeavesAHandlerIsShown() {
    struct Thrower : QObject {
      bool event(QEvent* /*event*/) override { throw std::runtime_error("daneben"); }
    };
    Thrower thrower;
    QEvent event(QEvent::User);
    script_->ExpectAndPress("messageBox", "cmdOK");
    application_.SetDialogs(&program_->program.Dialogs());
    QVERIFY(QApplication::sendEvent(&thrower, &event));
    application_.SetDialogs(nullptr);
  }

 private:
  void MakeProduct() {
    script_->Expect<QDialog>("frmNewProduct", [this](QDialog& dialog) {
      Type(Child(dialog, "txtProductTitle"), "Demo");
      Type(Child(dialog, "txtAuthor"), "Anna");
      Type(Child(dialog, "txtFilename"), ToQString(work_->Path("produkt/demo.product")));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keySequence(&program_->window, QKeySequence::New);
    QCOMPARE(program_->window.windowTitle(), "Packwright - demo.product");
  }

  void AddVersionAndComponent() {
    program_->Click("product");
    script_->ExpectTyping("inputBox", "txtInput", "1.2.0");
    program_->PickFromMenu("mnuProductAddVersion");
    QTest::keyClick(&program_->Tree(), Qt::Key_Down);
    script_->ExpectTyping("inputBox", "txtInput", "Hilfe & Co");
    program_->PickFromMenu("mnuVersionAddComponent");
  }

  void AddFiles() {
    program_->Click("v1c1");
    const QWidget& page = ShowPage("Dateien");
    auto& target = Child<QComboBox>(page, "cmbDestinationFolder");
    target.setCurrentText("Installationsordner");
    const QString file = ToQString(work_->Path("quelle/programm.exe"));
    script_->ExpectChoosing("openFile", file);
    Press(page, "cmdAddFile");
    const QString folder = ToQString(work_->Path("quelle/handbuch"));
    script_->ExpectChoosing("browseFolder", folder);
    auto& list = Child<QAbstractItemView>(page, "lsvBrowser");
    QTest::mousePress(list.viewport(), Qt::RightButton, {}, list.viewport()->rect().center());
    PickFrom(OpenedMenu(), "mnuAddDirectory1");
    Click(list, list.model()->index(1, 0));
    Edit(*script_, page, "Zielordner", "Texte\\neu");
    Edit(*script_, page, "Zieldateiname", "Über uns.txt");
  }

  void AddRegistryValue() {
    const QWidget& page = ShowPage("Registrierung");
    script_->ExpectTyping("inputBox", "txtInput", "n");
    script_->ExpectTyping("frmEditProperty", "txtNewValue", "w");
    Press(page, "cmdAddValue");
    script_->ExpectAndPress("messageBox", "cmdYes");  // apply the files?
    script_->ExpectAndPress("messageBox", "cmdYes");  // apply the registry values?
    program_->Click("v1");
    const std::string stored = work_->Read("produkt/Version 1.2.0/component1.component");
    QVERIFY2(stored.ends_with("Val1Name=n\nVal1Setting=w\n"), stored.c_str());
  }

  void EditVersion() {
    Edit(*script_, ShowPage("Erstellungs-Optionen"), "Ausgabeordner", "../fertig");
    Type(Child(ShowPage("Tessel-Datenbank"), "txtTesselKey"), "demokey");
    for (const char* answer : {"cmdCancel", "cmdOK"}) {
      script_->ExpectAndPress("messageBox", answer);
      QCOMPARE(program_->program.MayEndSession(), answer == QLatin1StringView("cmdOK"));
    }
    program_->Press("save");
    QVERIFY(program_->program.MayEndSession());  // without a question
  }

  void RenameCloseAndOpenAgain() {
    program_->Click("product");
    Edit(*script_, ShowPage("Produkt"), "Produktbezeichnung", "Demo 2");
    script_->ExpectAndPress("messageBox", "cmdYes");  // apply the title?
    program_->Press("close");
    QCOMPARE(program_->Nodes(), "");
    program_->Open(work_->Path("produkt/demo.product"));
    QCOMPARE(program_->Nodes(), "product=Demo 2|v1=Version 1.2.0|[v1c1=Hilfe & Co]");
    program_->Click("product");
    QVERIFY(Rows(Grid(program_->window)).contains("|Autor=Anna|"));
  }

  void RunSetupWizard() {
    program_->Click("v1");
    script_->Expect<tools::WizardStructure>("wizardStructure", [](tools::WizardStructure& frame) {
      for (int i = 0; i < 2; ++i) QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      QCOMPARE(Shown(frame, "txtFolder"), "../fertig");
      for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(frame.focusWidget(), key);
      }
      Press(frame, "cmdFinish");
    });
    script_->ExpectAndPress("messageBox", "cmdOK");
    program_->Press("setupwiz");
  }

  void CheckSetup() {
    std::string members;
    for (const ZipEntry& member : ReadZip(work_->Read("fertig/Demo 2.zip"))) {
      members += member.name + "=" + member.content + "|";
    }
    QCOMPARE(members, "1.exe=MZ Programm|2.txt=oben|3.dat=unten|");
    const QString script = ToQString(work_->Read("fertig/Demo 2.install"));
    for (const char* part :
         {"programm.exe", "%InstallPath%\\Texte\\neu", "Über uns.txt", "demokey"}) {
      QVERIFY2(script.contains(part), part);
    }
    const QString log = ToQString(work_->Read("fertig/build.log"));
    for (const char* trouble : {"ERROR", "Warning"}) QVERIFY2(!log.contains(trouble), trouble);
  }

  /// Clicks the tab of that title; gives the page that is shown then.
  QWidget& ShowPage(const QString& title) {
    auto& tabs = Child<QTabBar>(program_->window, "tabDataEditor");
    for (int i = 0; i < tabs.count(); ++i) {
      if (tabs.tabText(i) != title) continue;
      QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(i).center());
      return Child(program_->window, qPrintable(QString("EditorTab%1").arg(i + 1)));
    }
    qFatal("no page \"%s\"", qUtf8Printable(title));
  }

  int argumentCount_ = 0;
  shell::GuardedApplication application_{argumentCount_, nullptr};
  std::unique_ptr<TemporaryFolder> work_;
  std::unique_ptr<ModalScript> script_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests

QTEST_APPLESS_MAIN(tests::WholeWayTest)
#include "WholeWayTest.moc"
