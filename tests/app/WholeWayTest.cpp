#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QTreeView>
#include <QTreeWidget>

#include "app/DesktopProgram.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipReader.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/WizardStructure.h"

namespace tests {

using tools::ToQString;
using tools::WizardStructure;

namespace {

void Press(QWidget& window, const char* button) {
  QTest::mouseClick(&Child<QPushButton>(window, button), Qt::LeftButton);
}

void Type(QWidget& field, const QString& text) {
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&field, text);
}

/// Presses the right mouse button on the list and clicks the menu's item of that name.
void ChooseFromMenu(QAbstractItemView& list, const char* item) {
  QWidget& area = *list.viewport();
  QTest::mousePress(&area, Qt::RightButton, {}, area.rect().center());
  QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  for (QAction* action : menu->actions()) {
    if (action->objectName() != item) continue;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    return;
  }
  QFAIL(item);
}

}  // namespace

class WholeWayTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    home_ = std::make_unique<TemporaryFolder>();
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "APPDATA"}) {
      qputenv(name, QByteArray::fromStdString(home_->Path()));
    }
    work_ = std::make_unique<TemporaryFolder>();
    work_->Write("quelle/programm.exe", "MZ Programm");
    work_->Write("quelle/handbuch/eins.txt", "eins");
    work_->Write("quelle/handbuch/bilder/zwei.txt", "zwei");
    program_ = std::make_unique<app::DesktopProgram>();
    program_->Window().show();
    QVERIFY(QTest::qWaitForWindowActive(&program_->Window()));
  }

  void cleanup() {
    program_.reset();
    work_.reset();
    home_.reset();
  }

  void FromNothingToAWholeSetupByMouseAndKeyboard() {
    MakeProduct();
    AddVersionAndComponent();
    AddFiles();
    SetBuildOptions();
    RunSetupWizard();

    std::map<std::string, std::string> stored;
    for (const ZipEntry& member : ReadZip(work_->Read("fertig/Demo.zip"))) {
      stored[member.name] = member.content;
    }
    const std::map<std::string, std::string> expected{
        {"1.exe", "MZ Programm"}, {"2.txt", "eins"}, {"3.txt", "zwei"}};
    QCOMPARE(stored, expected);
    const std::string script = work_->Read("fertig/Demo.install");
    for (const char* name : {"programm.exe", "eins.txt", "zwei.txt"}) {
      QVERIFY2(script.find(name) != std::string::npos, name);
    }
    const std::string log = work_->Read("fertig/build.log");
    QVERIFY2(log.find("ERROR") == std::string::npos && log.find("Warning") == std::string::npos,
             log.c_str());
  }

  void OpensTheProductThatIsTheOnlyArgument() {
    const QString product =
        ToQString(work_->Write("demo.product", "[General]\nVersion=1.0\n[Product]\nTitle=Demo\n"));
    program_->OpenFromCommandLine({"packwright"});
    program_->OpenFromCommandLine({"packwright", product, product});
    QCOMPARE(program_->Window().windowTitle(), "Packwright");
    program_->OpenFromCommandLine({"packwright", product});
    QCOMPARE(program_->Window().windowTitle(), "Packwright - demo.product");

    ModalScript script;
    script.ExpectAndPress("messageBox", "cmdOK");
    program_->OpenFromCommandLine({"packwright", product + ".fehlt"});
  }

 private:
  void MakeProduct() {
    ModalScript script;
    script.Expect<QDialog>("frmNewProduct", [this](QDialog& dialog) {
      Type(Child(dialog, "txtProductTitle"), "Demo");
      Type(Child(dialog, "txtAuthor"), "Anna");
      Type(Child(dialog, "txtFilename"), ToQString(work_->Path("produkt/demo.product")));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    ClickTool("new");
    QCOMPARE(program_->Window().windowTitle(), "Packwright - demo.product");
  }

  void AddVersionAndComponent() {
    ModalScript script;
    const auto answer = [&script](const QString& text) {
      script.Expect<QDialog>("inputBox", [text](QDialog& box) {
        Type(Child(box, "txtInput"), text);
        QTest::keyClick(&box, Qt::Key_Return);
      });
    };
    ClickNode("product");
    answer("1.2.0");
    ChooseFromMenu(Tree(), "mnuProductAddVersion");
    ClickNode("v1");
    answer("Kern");
    ChooseFromMenu(Tree(), "mnuVersionAddComponent");
  }

  void AddFiles() {
    ClickNode("v1c1");
    auto& folders = Control<QComboBox>("cmbDestinationFolder");
    QTest::keyClicks(&folders, "Installationsordner");
    QCOMPARE(folders.currentText(), "Installationsordner");

    ModalScript script;
    const auto choose = [&script](const char* name, const std::string& path) {
      script.Expect<QFileDialog>(name, [path](QFileDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>();
        Type(*field, ToQString(path));
        QTest::keyClick(field, Qt::Key_Return);
      });
    };
    choose("openFile", work_->Path("quelle/programm.exe"));
    Press(program_->Window(), "cmdAddFile");
    choose("browseFolder", work_->Path("quelle/handbuch"));
    auto& list = Control<QTreeView>("lsvBrowser");
    ChooseFromMenu(list, "mnuAddDirectory1");
    QCOMPARE(list.model()->rowCount(), 3);
    // The offscreen platform leaves it to the program to go back to the window.
    program_->Window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&program_->Window()));
    QTest::keyClick(&list, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(work_->Read("produkt/Version 1.2.0/component1.component").find("zwei.txt") !=
            std::string::npos);
  }

  void SetBuildOptions() {
    ClickNode("v1");
    auto& tabs = Control<QTabBar>("tabDataEditor");
    for (int i = 0; i < tabs.count(); ++i) {
      if (tabs.tabText(i) == "Erstellungs-Optionen") {
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(i).center());
      }
    }
    auto& rows = Child<QTreeView>(Control<QWidget>("propsConfig"), "lsvProps");
    ModalScript script;
    script.Expect<QDialog>("frmEditProperty", [](QDialog& dialog) {
      Type(Child(dialog, "txtNewValue"), "../fertig");
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    const QPoint place = rows.visualRect(rows.model()->index(1, 0)).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, place);
    ClickTool("save");
  }

  void RunSetupWizard() {
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", [](WizardStructure& frame) {
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      QCOMPARE(Child<QLabel>(frame, "lblPageTitle").text(), "Konfiguration wählen");
      Press(frame, "cmdNext");
      QCOMPARE(Child<QLineEdit>(frame, "txtFolder").text(), "../fertig");
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      QTest::keyClick(frame.focusWidget(), Qt::Key_Space);
      QVERIFY(Child<QCheckBox>(frame, "chkMakeZip").isChecked());
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      Press(frame, "cmdFinish");
    });
    script.Expect<QMessageBox>("messageBox", [](QMessageBox& box) {
      const QString text = box.text();
      QTest::keyClick(&box, Qt::Key_Return);
      QCOMPARE(text, "Das Setup wurde erstellt.");
    });
    ClickTool("setupwiz");
  }

  template <typename T>
  T& Control(const char* name) {
    return Child<T>(program_->Window(), name);
  }

  QTreeWidget& Tree() { return Control<QTreeWidget>("trvProjectTree"); }

  void ClickTool(const char* name) {
    auto* action = program_->Window().findChild<QAction*>(name);
    QTest::mouseClick(Control<QToolBar>("tbrMain").widgetForAction(action), Qt::LeftButton);
  }

  void ClickNode(const QString& key) {
    QTreeWidget& tree = Tree();
    for (QTreeWidgetItem* item : tree.findItems("*", Qt::MatchWildcard | Qt::MatchRecursive)) {
      if (item->data(0, Qt::UserRole).toString() != key) continue;
      QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
      return;
    }
    QFAIL(qUtf8Printable("no node " + key));
  }

  std::unique_ptr<TemporaryFolder> home_;
  std::unique_ptr<TemporaryFolder> work_;
  std::unique_ptr<app::DesktopProgram> program_;
};

}  // namespace tests

QTEST_MAIN(tests::WholeWayTest)
#include "WholeWayTest.moc"
