#include <QDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QTreeView>

#include "grid/ctlPropertyEditor.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Error.h"

namespace tests {

using grid::EditReaction;

class ctlPropertyEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    dialogs_ = std::make_unique<ScriptedDialogs>();
    grid_ = std::make_unique<grid::ctlPropertyEditor>(*dialogs_);
    changes_.clear();
    grid_->OnPropertyChanged(
        [this](const QString& key, const QString& value) { changes_ += key + "=" + value; });
    grid_->AddProperty("A", "Zielordner:", "eins", 1, true);
    grid_->AddProperty("B", "Version", "zwei");
    grid_->resize(523, 200);
    grid_->show();
    QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
  }

  void cleanup() {
    grid_.reset();
    dialogs_.reset();
  }

  void RowsAreAddedAndRemovedByTheirKeys() {
    grid_->AddProperty("", "Titel", "x");
    grid_->AddProperty("C", "", "x");
    grid_->AddProperty("C", ":", "");
    grid_->AddProperty("a", "Doppelt::", "klein");
    QCOMPARE(grid_->ListPropertyNames(), "A; B; C; a");
    QCOMPARE(Text(0, 0), "Zielordner");
    QCOMPARE(Text(0, 1), "eins");
    QCOMPARE(Text(2, 0), "");
    QCOMPARE(Text(3, 0), "Doppelt:");

    grid_->RemoveProperty("A");
    grid_->RemoveProperty("nicht da");
    grid_->RemoveProperty("");
    QCOMPARE(grid_->ListPropertyNames(), "B; C; a");
    QCOMPARE(grid_->GetProperty("a"), "klein");
    QCOMPARE(grid_->GetProperty("A"), "");

    grid_->Clear();
    QCOMPARE(grid_->ListPropertyNames(), "");
    grid_->AddProperty("A", "Wieder da", "1");
    QCOMPARE(grid_->ListPropertyNames(), "A");
    QCOMPARE(changes_, QStringList());
  }

  void OnlyADifferentValueIsAChange() {
    grid_->SetProperty("A", "eins");
    grid_->SetProperty("A", "Eins");
    grid_->SetProperty("A", "");
    QCOMPARE(changes_, QStringList({"A=Eins", "A="}));
    QCOMPARE(Text(0, 1), "");
  }

  void KeysThatCollideOrAreMissingRaiseErrors() {
    QVERIFY_THROWS_EXCEPTION(tools::Error, grid_->AddProperty("A", "Noch eine", "x"));
    QVERIFY_THROWS_EXCEPTION(tools::Error, grid_->SetProperty("C", "x"));
    grid_->EditProperty("C");
    QCOMPARE(grid_->ListPropertyNames(), "A; B");
    QCOMPARE(Text(0, 0), "Zielordner");
  }

  void ADoubleClickEditsTheRowInTheDialog() {
    ModalScript script;
    script.Expect<QDialog>("frmEditProperty", [](QDialog& dialog) {
      const QString prompt = Child<QLabel>(dialog, "lblPrompt").text();
      const bool resetShown = Child(dialog, "cmdReset").isVisible();
      auto& newValue = Child<QLineEdit>(dialog, "txtNewValue");
      QTest::keyClicks(&newValue, "  abc  ");
      QTest::keyClick(&newValue, Qt::Key_Return);
      QCOMPARE(prompt, "Geben Sie den neuen Wert für \"Zielordner\" ein:");
      QVERIFY(!resetShown);
    });
    DoubleClick(0);
    QCOMPARE(changes_, QStringList({"A=abc"}));
    QCOMPARE(Text(0, 1), "abc");
    QCOMPARE(grid_->SelectedProperty(), "A");

    script.ExpectAndPress("frmEditProperty", "cmdOK");
    DoubleClick(0);
    script.ExpectAndPress("frmEditProperty", "cmdCancel");
    DoubleClick(1);
    QCOMPARE(changes_, QStringList({"A=abc"}));
  }

  void NothingElseStartsAnEdit() {
    auto& list = List();
    const QPoint below(20, list.viewport()->height() - 5);
    DoubleClick(Qt::LeftButton, below);
    const QPoint row = list.visualRect(list.model()->index(0, 1)).center();
    DoubleClick(Qt::RightButton, row);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Space, Qt::Key_X}) {
      QTest::keyClick(&list, key);
    }
    QTest::qWait(20);  // an edit would have opened its dialog by now
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(list.viewport()->findChildren<QWidget*>().isEmpty());
  }

  void TheHostCanEditTheValueItself() {
    grid_->OnEditProperty([](const QString&, QString& value, EditReaction& reaction) {
      value += "!";
      reaction = EditReaction::Handled;
    });
    DoubleClick(1);
    QCOMPARE(changes_, QStringList({"B=zwei!"}));
  }

  void TheDialogStartsFromTheHostsText() {
    grid_->OnEditProperty([](const QString& key, QString& value, EditReaction& reaction) {
      QCOMPARE(key, "B");
      QCOMPARE(value, "zwei");
      QCOMPARE(reaction, EditReaction::Dialog);
      value = "vom Wirt";
    });
    ModalScript script;
    script.ExpectAndPress("frmEditProperty", "cmdCancel");
    grid_->EditProperty("B");
    QCOMPARE(changes_, QStringList());
    script.ExpectAndPress("frmEditProperty", "cmdOK");
    grid_->EditProperty("B");
    QCOMPARE(changes_, QStringList({"B=vom Wirt"}));
  }

  void ARefusedEditTellsTheUserAndChangesNothing() {
    grid_->OnEditProperty([](const QString&, QString&, EditReaction& reaction) {
      reaction = EditReaction::NotEditable;
    });
    DoubleClick(1);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    const tools::Message& message = dialogs_->Messages().front();
    QCOMPARE(message.text, "Dieser Wert kann nicht bearbeitet werden.");
    QCOMPARE(message.caption, "Eigenschaft ändern");
    QCOMPARE(message.icon, tools::MessageIcon::Exclamation);
    QCOMPARE(message.buttons, tools::MessageButtons::Ok);
    QCOMPARE(changes_, QStringList());
    QCOMPARE(grid_->SelectedProperty(), "B");
  }

  void AnErrorOfTheHostReachesTheUserAfterADoubleClickAndElseTheCaller() {
    grid_->OnEditProperty([](const QString&, QString&, EditReaction&) {
      throw tools::Error("Die Zahl ist zu groß.");
    });
    DoubleClick(0);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(dialogs_->Messages().front().text, "Die Zahl ist zu groß.");
    QCOMPARE(Text(0, 1), "eins");
    QVERIFY_THROWS_EXCEPTION(tools::Error, grid_->EditProperty("A"));
  }

  void AHostMayRefillTheGridInItsHandlers() {
    grid_->OnPropertyChanged([this](const QString& key, const QString& value) {
      grid_->Clear();
      grid_->AddProperty(key, "Neu", value + "?");
    });
    grid_->SetProperty("B", "x");
    QCOMPARE(grid_->GetProperty("B"), "x?");
    grid_->OnEditProperty(
        [this](const QString& key, QString&, EditReaction&) { grid_->RemoveProperty(key); });
    DoubleClick(0);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(grid_->ListPropertyNames(), "");
  }

  void TooltipsAreThoseOfRowsAddedOrChangedWhileTheyAreOn() {
    QVERIFY(!grid_->ShowTooltips());
    grid_->SetShowTooltips(true);
    grid_->AddProperty("C", "Pfad:", "<b>/a</b>");
    QCOMPARE(Tip(0, 1), "");
    QCOMPARE(Tip(2, 0), "Pfad");
    QCOMPARE(Tip(2, 1), "<b>/a</b>");
    grid_->SetProperty("A", "neu");
    QCOMPARE(Tip(0, 0), "");
    QCOMPARE(Tip(0, 1), "neu");
    grid_->SetShowTooltips(false);
    grid_->SetProperty("A", "neuer");
    QCOMPARE(Tip(0, 1), "neu");

    auto& list = List();
    const QPoint cell = list.visualRect(list.model()->index(2, 1)).center();
    QHelpEvent hover(QEvent::ToolTip, cell, list.viewport()->mapToGlobal(cell));
    QApplication::sendEvent(list.viewport(), &hover);
    QVERIFY(QToolTip::text().contains("&lt;b&gt;/a"));
  }

  void TheColumnsShareTheWidth() {
    QCOMPARE(List().columnWidth(0), 250);
    QCOMPARE(List().columnWidth(1), 250);
    grid_->resize(300, 100);
    grid_->Clear();
    QCOMPARE(List().geometry(), QRect(0, 0, 300, 100));
    QCOMPARE(List().columnWidth(0), 139);
    QCOMPARE(List().columnWidth(1), 139);
    QCOMPARE(List().model()->headerData(0, Qt::Horizontal), "Name");
    QCOMPARE(List().model()->headerData(1, Qt::Horizontal), "Value");
  }

  void KeysAndMouseArePassedOn() {
    QStringList events;
    const auto note = [&events](const QString& name) {
      return [&events, name] { events += name; };
    };
    connect(grid_.get(), &grid::ctlPropertyEditor::Click, this, note("Click"));
    connect(grid_.get(), &grid::ctlPropertyEditor::MouseDown, this, note("MouseDown"));
    connect(grid_.get(), &grid::ctlPropertyEditor::MouseUp, this, note("MouseUp"));
    connect(grid_.get(), &grid::ctlPropertyEditor::KeyDown, this, note("KeyDown"));
    connect(grid_.get(), &grid::ctlPropertyEditor::KeyUp, this, note("KeyUp"));
    const QSignalSpy pressed(grid_.get(), &grid::ctlPropertyEditor::KeyPress);
    const QSignalSpy down(grid_.get(), &grid::ctlPropertyEditor::MouseDown);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier, QPoint(7, 9));
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClicks(&List(), "v");
    QCOMPARE(events, QStringList({"MouseDown", "MouseUp", "Click", "KeyDown", "KeyUp", "KeyDown",
                                  "KeyUp"}));
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(pressed.front().front().value<char16_t>(), u'v');
    QCOMPARE(down.front().at(0).value<Qt::MouseButton>(), Qt::LeftButton);
    QCOMPARE(down.front().at(1).value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    QCOMPARE(down.front().at(3).toFloat(), 9.0F);
    QCOMPARE(grid_->SelectedProperty(), "B");
  }

 private:
  QTreeView& List() { return Child<QTreeView>(*grid_, "lsvProps"); }
  QString Text(int row, int column) { return List().model()->index(row, column).data().toString(); }
  QString Tip(int row, int column) {
    return List().model()->index(row, column).data(Qt::ToolTipRole).toString();
  }
  void DoubleClick(int row) {
    const QPoint cell = List().visualRect(List().model()->index(row, 1)).center();
    DoubleClick(Qt::LeftButton, cell);
  }
  void DoubleClick(Qt::MouseButton button, QPoint position) {
    QTest::mouseClick(List().viewport(), button, {}, position);
    QTest::mouseDClick(List().viewport(), button, {}, position);
  }

  std::unique_ptr<ScriptedDialogs> dialogs_;
  std::unique_ptr<grid::ctlPropertyEditor> grid_;
  QStringList changes_;
};

}  // namespace tests

QTEST_MAIN(tests::ctlPropertyEditorTest)
#include "ctlPropertyEditorTest.moc"
