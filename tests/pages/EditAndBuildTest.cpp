#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <sstream>

#include "console/Program.h"
#include "shell/EditorTabs.h"
#include "tests/pages/PageFixture.h"
#include "tests/support/ZipReader.h"

namespace tests {

using tools::MessageAnswer;

/// An editor area without a main window around it.
class PlainArea : public QWidget, public shell::EditorArea {
 public:
  [[nodiscard]] QWidget* PageParent() override { return this; }
  void PositionExtender(QWidget& page) override { page.setGeometry(rect()); }
  void ShowStatusText(const std::string&) override {}
  void ShowHourglass(bool) override {}
};

/// From an empty component to a setup, with the host of the program.
class EditAndBuildTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WhatThePagesStoreIsWhatIsBuilt() {
    fixture_.folder.Write("Quelle/Über.txt", "oben");
    fixture_.folder.Write("Quelle/tief/漢字; \"a\".dat", "unten");
    area_.resize(540, 420);
    area_.show();
    QVERIFY(QTest::qWaitForWindowActive(&area_));

    tabs_.Prepare("tabFileList;tabRegistryEditor", 1, 1);
    QCOMPARE(tabs_.Count(), 2);
    AddFiles();
    AddRegistryValue();
    fixture_.dialogs.ExpectQuestion("\"Dateien\"", MessageAnswer::Yes);
    fixture_.dialogs.ExpectQuestion("\"Registrierung\"", MessageAnswer::Yes);
    tabs_.Reset(true);
    EditVersion();
    fixture_.dialogs.ExpectQuestion("\"Erstellungs-Optionen\"", MessageAnswer::Yes);
    fixture_.dialogs.ExpectQuestion("\"Tessel-Datenbank\"", MessageAnswer::Yes);
    tabs_.Reset(true);

    fixture_.project.SetProductPath(fixture_.folder.Path("Demo/demo.product"));
    tabs_.Prepare("tabFileList;tabRegistryEditor", 1, 1);
    ChooseFolder(2001);
    QCOMPARE(Rows(Child<QTreeView>(tabs_.Item(1), "lsvBrowser")),
             QStringList({Path("Quelle/Über.txt") + "=%InstallPath%\\Texte\\neu",
                          Path("Quelle/tief/漢字; \"a\".dat") + "=%InstallPath%\\"}));
    QCOMPARE(Rows(Grid(tabs_.Item(2))), QStringList({"(Standardwert)=(nicht gesetzt)", "n=w"}));
    Build();
  }

 private:
  void ChooseFolder(int folder) {
    tabs_.ShowTab(1);
    auto& folders = Child<QComboBox>(tabs_.Item(1), "cmbDestinationFolder");
    folders.setCurrentIndex(folders.findData(folder));
  }

  void AddFiles() {
    ChooseFolder(2001);
    auto& page = tabs_.Item(1);
    fixture_.dialogs.ExpectBrowseFolder("Unterordnern", fixture_.folder.Path("Quelle"));
    Child<QAction>(page, "mnuAddDirectory1").trigger();
    auto& list = Child<QTreeView>(page, "lsvBrowser");
    Click(list, list.model()->index(0, 0));
    Edit(page, "Zielordner", "Texte\\neu");
    Edit(page, "Zieldateiname", "Über uns.txt");
  }

  void AddRegistryValue() {
    tabs_.ShowTab(2);
    fixture_.dialogs.ExpectInputBox("Namen des neuen Wertes", "n");
    ModalScript script;
    ExpectTyping(script, "w");
    QTest::mouseClick(&Child(tabs_.Item(2), "cmdAddValue"), Qt::LeftButton);
  }

  void EditVersion() {
    tabs_.Prepare("tabBuildOptions;tabTesselRegistration", 1, 0);
    tabs_.ShowTab(1);
    Edit(tabs_.Item(1), "Ausgabeordner", "Ausgabe/mit Ö");
    tabs_.ShowTab(2);
    auto& key = Child<QLineEdit>(tabs_.Item(2), "txtTesselKey");
    key.selectAll();
    QTest::keyClicks(&key, "demokey");
  }

  void Build() {
    std::ostringstream output;
    std::ostringstream errors;
    QCOMPARE(console::RunProgram({"Demo/demo.product", "1.0.0"},
                                 {.streams = {output, errors, false},
                                  .workingFolder = fixture_.folder.Path(),
                                  .programFolder = fixture_.folder.Path()}),
             console::ExitCode::Built);
    QStringList contents;
    for (const ZipEntry& entry : ReadZip(fixture_.folder.Read("Demo/Ausgabe/mit Ö/Demo.zip"))) {
      contents += tools::ToQString(entry.content);
    }
    QCOMPARE(contents, QStringList({"oben", "unten"}));
    const QString script =
        tools::ToQString(fixture_.folder.Read("Demo/Ausgabe/mit Ö/Demo.install"));
    for (const char* part : {"%InstallPath%\\Texte\\neu", "Über uns.txt", "demokey"}) {
      QVERIFY2(script.contains(part), part);
    }
  }

  [[nodiscard]] QString Path(const char* name) const {
    return tools::ToQString(fixture_.folder.Path(name));
  }

  PageFixture fixture_;
  PlainArea area_;
  pages::PageRegistry pageRegistry_ = pages::AllPages();
  shell::EditorTabs tabs_{area_, fixture_.project, fixture_.dialogs, *fixture_.registry,
                          pageRegistry_};
};

}  // namespace tests

QTEST_MAIN(tests::EditAndBuildTest)
#include "EditAndBuildTest.moc"
