#include <QStatusBar>

#include "shell/NodeKey.h"
#include "tests/support/desktop/WindowFixture.h"

namespace tests {

namespace {

/// The product's nodes, as OpenedProgram::Nodes gives them.
constexpr const char* kNodes =
    "product=Probe|[v1=Version 1.0.0]|[v1c1=Alt]|v3=Version 1.10.0|[v3c2=Programm]|"
    "[v4=Version 1.9.0]";

}  // namespace

class ProjectTreeTest : public QObject, protected WindowFixture {
  Q_OBJECT

 private Q_SLOTS:
  void init() { SetUp(); }
  void cleanup() { TearDown(); }

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

  void SlotsOfSeveralDigitsComeBackFromTheirKeys() {
    const shell::NodeSlots slots = shell::SlotsOf(shell::ComponentNode(12, 345));
    QCOMPARE(std::int32_t{slots.version}, 12);
    QCOMPARE(std::int32_t{slots.component}, 345);
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
      QVERIFY(OpenedMenu().activeAction() == nullptr);
      QTest::keyClick(&OpenedMenu(), Qt::Key_Escape);
      QCOMPARE(program_->SelectedKey(), "v3");
    }
    QTest::keyClick(&program_->Tree(), Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(OpenedMenu().activeAction() == OpenedMenu().actions().front());
    QTest::keyClick(&OpenedMenu(), Qt::Key_Escape);
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

  void ComponentsAreCopiedMovedAndRenamedByKeyAndMouse() {
    home_->Write("Produkt/Version 1.9.0/product.version", "");
    program_->Open(product_);
    program_->Click("v3c2");
    Press(QKeySequence::Copy);
    Press(QKeySequence::Paste);
    QVERIFY(program_->Nodes().contains("v3=Version 1.10.0|[v3c1=Programm (Kopie)]|[v3c2=Progr"));
    QCOMPARE(Status(), "Jetzt in Version 1.10.0: Programm (Kopie)");
    dialogs_->ExpectInputBox(Text::EnterOtherComponentTitle, "Kern");
    Press(Qt::Key_F2);
    Press(QKeySequence::Paste);
    QCOMPARE(Status(), "Jetzt in Version 1.10.0: Kern (Kopie)");
    program_->Click("v3c1");
    Press(QKeySequence::Cut);
    program_->Click("v1");
    Press(QKeySequence::Paste);
    QCOMPARE(program_->SelectedKey(), "v1c2");
    Press(QKeySequence::Paste);
    QCOMPARE(Status(), "In der Zwischenablage sind keine Komponenten dieses Produkts.");
    const QString moved =
        "|v1=Version 1.0.0|[v1c1=Alt]|[v1c2=Programm (Kopie)]|v3=Version "
        "1.10.0|[v3c2=Kern]|[v3c3=Kern (Kopie)]|";
    QVERIFY2(program_->Nodes().contains(moved), qPrintable(program_->Nodes()));
    Drop("v3c2", "v1", Qt::ControlModifier);
    QCOMPARE(program_->SelectedKey(), "v1c2");
    Drop("v3c2", "v3", Qt::NoModifier);
    Drop("v1c3", "v3", Qt::NoModifier);
    QVERIFY(Status().endsWith("Kern (Eine andere Komponente der Version heißt auch so.)"));
    Drop("v3c2", "v4", Qt::NoModifier);
    const QString dropped =
        "|v3=Version 1.10.0|[v3c1=Kern]|[v3c3=Kern (Kopie)]|v4=Version 1.9.0|[v4c1=Kern]";
    QVERIFY2(program_->Nodes().endsWith(dropped), qPrintable(program_->Nodes()));

    home_->Write("Produkt/Version 1.9.0/component1.component", "[Component]\nTitle=Fremd\n");
    Drop("v4c1", "v1", Qt::ControlModifier);
    QVERIFY2(program_->Nodes().count("Fremd") == 1, "another one than the author dragged");
  }

  void ARefreshKeepsTheSelectionInAFoldedVersion() {
    program_->Open(product_);
    program_->Tree().topLevelItem(0)->child(0)->setExpanded(true);
    program_->Click("v1c1");
    program_->window.UpdateTree();
    QCOMPARE(program_->Nodes(), kNodes);
    QCOMPARE(program_->SelectedKey(), "v1c1");
    QTest::keyClick(&program_->Tree(), Qt::Key_Down);
    QCOMPARE(program_->SelectedKey(), "v3");
    QTest::keyClick(&program_->Tree(), Qt::Key_Up);
    program_->window.UpdateTree();
    dialogs_->ExpectInputBox(Text::EnterOtherComponentTitle, "Neu");
    Press(Qt::Key_F2);
    QVERIFY(program_->Nodes().contains("|v1=Version 1.0.0|[v1c1=Neu]|"));
    dialogs_->ExpectInputBox(Text::EnterOtherComponentTitle, " ");
    Press(Qt::Key_F2);
    QCOMPARE(Status(), "Nicht umbenannt: Neu");
  }

  void TheVersionThatADropReachesIsFramed() {
    program_->Open(product_);
    QMimeData content;
    const QImage before = program_->Tree().viewport()->grab().toImage();
    const auto isFramed = [&](QEvent&& event) {
      QApplication::sendEvent(program_->Tree().viewport(), &event);
      return program_->Tree().viewport()->grab().toImage() != before;
    };
    content.setData(QString("application/x-packwright-node-%1").arg(qApp->applicationPid()),
                    "v3c2");
    const auto over = [&](const char* node) {
      return QDragMoveEvent(program_->PlaceOf(node), Qt::MoveAction, &content, Qt::LeftButton, {});
    };
    QDragEnterEvent enter({}, Qt::MoveAction, &content, Qt::LeftButton, {});
    QApplication::sendEvent(program_->Tree().viewport(), &enter);
    QVERIFY(isFramed(over("v1")));
    QVERIFY2(!isFramed(over("v3")), "it is there already");
    QVERIFY(isFramed(over("v4")));
    QVERIFY(!isFramed(QDragLeaveEvent()));
  }

  void AVersionWithoutComponentsOffersThoseOfOthers() {
    home_->Write("Produkt/Version 1.9.0/product.version", "[Components]\nCount=7\n");
    program_->Open(product_);
    program_->Click("v3");
    QVERIFY(Child(program_->window, "fraNoComponents").isHidden());
    program_->Click("v4");
    ModalScript script;
    script.Expect<QDialog>("versionChoice", [](QDialog& dialog) {
      auto& versions = Child<QAbstractItemView>(dialog, "lstVersions");
      QCOMPARE(Rows(versions), "Version 1.10.0 (1): Programm|Version 1.0.0 (1): Alt");
      DoubleClick(versions, versions.model()->index(1, 0));
    });
    tests::Press(program_->window, "lnkTakeOver");
    QVERIFY(program_->Nodes().endsWith("[v4=Version 1.9.0]|[v4c1=Alt]"));
    QVERIFY(Child(program_->window, "fraNoComponents").isHidden());
  }

 private:
  /// Lets a dragged component fall onto a node.
  void Drop(const char* component, const char* target, Qt::KeyboardModifiers keys) {
    QMimeData content;
    content.setData(QString("application/x-packwright-node-%1").arg(qApp->applicationPid()),
                    component);
    tests::Drop(*program_->Tree().viewport(), program_->PlaceOf(target), content, Qt::MoveAction,
                keys);
    QApplication::processEvents();
  }
  QPoint BesideTheNodes() const {
    return program_->Tree().viewport()->rect().bottomRight() - QPoint(20, 5);
  }
  QString Status() const { return Child<QStatusBar>(program_->window, "sbrMain").currentMessage(); }
};

}  // namespace tests

QTEST_MAIN(tests::ProjectTreeTest)
#include "ProjectTreeTest.moc"
