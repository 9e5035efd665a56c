#include "grid/KnownValues.h"
#include "grid/ctlPropertyEditor.h"
#include "tests/support/desktop/ModalScript.h"
#include "tools/Error.h"

namespace tests {

using grid::ctlPropertyEditor;
using grid::EditReaction;

/// A grid with two rows that writes down its changes.
struct Fixture {
  Fixture() {
    grid.OnPropertyChanged(
        [this](const QString& key, const QString& value) { changes += key + "=" + value; });
    grid.AddProperty("A", "Zielordner:", "eins", 1, true);
    grid.AddProperty("B", "Version", "zwei");
    grid.resize(523, 200);
    grid.show();
    Activate(grid);
  }

  QTreeView& List() const { return Child<QTreeView>(grid, "lsvProps"); }
  QModelIndex Cell(int row, int column) const { return List().model()->index(row, column); }
  void DoubleClick(int row) const { tests::DoubleClick(List(), Cell(row, 1)); }

  ScriptedDialogs dialogs;
  ctlPropertyEditor grid{dialogs, grid::GridTexts()};
  QStringList changes;
};

class ctlPropertyEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RowsAreKnownByTheirKeys() {
    Fixture f;
    f.grid.AddProperty("", "Titel", "x");
    f.grid.AddProperty("C", "", "x");
    f.grid.AddProperty("a", "Doppelt::", "klein");
    QCOMPARE(Rows(f.List()), "Zielordner=eins|Version=zwei|Doppelt:=klein");
    for (const char* key : {"A", "nicht da", ""}) f.grid.RemoveProperty(key);
    QCOMPARE(f.grid.ListPropertyNames(), "B; a");
    QCOMPARE(f.grid.GetProperty("a"), "klein");
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.AddProperty("a", "Noch eine", "x"));
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.SetProperty("A", "x"));
  }

  void OnlyADifferentValueIsAChange() {
    Fixture f;
    for (const char* value : {"eins", "Eins", ""}) f.grid.SetProperty("A", value);
    QCOMPARE(f.changes, QStringList({"A=Eins", "A="}));
  }

  void ADoubleClickEditsTheRowInTheDialog() {
    const Fixture f;
    ModalScript script;
    script.ExpectTyping("frmEditProperty", "txtNewValue", "  abc  ");
    f.DoubleClick(0);
    QVERIFY(Rows(f.List()).startsWith("Zielordner=abc|"));
    QCOMPARE(f.grid.SelectedProperty(), "A");
    script.ExpectAndPress("frmEditProperty", "cmdOK");
    f.DoubleClick(0);
    script.ExpectAndPress("frmEditProperty", "cmdCancel");
    f.DoubleClick(1);
    QCOMPARE(f.changes, QStringList("A=abc"));
  }

  void NoOtherInputStartsAnEdit() {
    const Fixture f;
    const ModalScript script;  // expects no window
    QWidget* viewport = f.List().viewport();
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, {20, viewport->height() - 5});
    Click(f.List(), f.Cell(0, 1));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Space, Qt::Key_X}) {
      QTest::keyClick(&f.List(), key);
    }
    QTest::qWait(20);  // an edit would have opened its dialog by now
    QVERIFY(viewport->findChildren<QWidget*>().isEmpty());
  }

  void TheHostCanEditTheValueItselfOrGiveTheDialogItsText() {
    Fixture f;
    auto answer = EditReaction::Handled;
    f.grid.OnEditProperty([&](const QString& key, QString& value, EditReaction& reaction) {
      QCOMPARE(reaction, EditReaction::Dialog);
      reaction = answer;
      value += key;
    });
    f.DoubleClick(1);
    QCOMPARE(f.changes, QStringList("B=zweiB"));
    answer = EditReaction::Dialog;
    ModalScript script;
    for (const char* button : {"cmdCancel", "cmdOK"}) {
      script.ExpectAndPress("frmEditProperty", button);
      f.grid.EditProperty("B");
    }
    QCOMPARE(f.changes, QStringList({"B=zweiB", "B=zweiBB"}));
  }

  void ValuesCarryTheirMeanings() {
    Fixture f;
    f.grid.OnValueHelp([](const QString& key) {
      return key == "B" ? grid::ValueHelp{.values = {{"1", "Ja"}}} : grid::ValueHelp();
    });
    const auto meaning = [&f] { return f.Cell(1, 1).data(grid::kMeaningRole).toString(); };
    f.grid.SetProperty("B", "1");
    QCOMPARE(meaning() + f.Cell(1, 1).data(Qt::ToolTipRole).toString(), "Ja1  Ja");
    QCOMPARE(Rows(f.List()), "Zielordner=eins|Version=1");
    f.grid.SetProperty("B", "2");
    QCOMPARE(meaning(), "");
  }

  void ARefusedEditChangesNothing() {
    Fixture f;
    f.grid.OnEditProperty([](const QString& key, QString&, EditReaction& reaction) {
      if (key == "A") throw tools::Error("Die Zahl ist zu groß.");
      reaction = EditReaction::NotEditable;
    });
    f.DoubleClick(1);
    QCOMPARE(f.grid.SelectedProperty(), "B");
    QCOMPARE(f.dialogs.Messages().size(), 1U);
    f.DoubleClick(0);
    QCOMPARE(f.dialogs.LastMessage(), "Fehler|Die Zahl ist zu groß.");
    QCOMPARE(f.dialogs.Messages().back().icon, tools::MessageIcon::Exclamation);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.EditProperty("A"));
    QCOMPARE(f.changes, QStringList());
  }

  void AHostMayRefillTheGridInItsHandlers() {
    Fixture f;
    f.grid.OnPropertyChanged([&f](const QString& key, const QString& value) {
      f.grid.Clear();
      f.grid.AddProperty(key, "Neu", value + "?");
    });
    f.grid.SetProperty("B", "x");
    QCOMPARE(f.grid.GetProperty("B"), "x?");
    f.grid.OnEditProperty(
        [&f](const QString& key, QString&, EditReaction&) { f.grid.RemoveProperty(key); });
    f.DoubleClick(0);
    QCOMPARE(f.dialogs.Messages().size(), 1U);
    QCOMPARE(f.grid.ListPropertyNames(), "");
  }

  void TheCurrentRowIsTheSelectedOne() {
    Fixture f;
    QCOMPARE(f.grid.SelectedProperty(), "A");  // since it has the focus
    Click(f.List(), f.Cell(1, 1));
    QTest::mouseClick(f.List().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      f.List().visualRect(f.Cell(1, 1)).center());
    QTRY_COMPARE(f.grid.SelectedProperty(), "B");
    f.grid.RemoveProperty("B");
    QCOMPARE(f.grid.SelectedProperty(), "A");
  }
};

}  // namespace tests

QTEST_MAIN(tests::ctlPropertyEditorTest)
#include "ctlPropertyEditorTest.moc"
