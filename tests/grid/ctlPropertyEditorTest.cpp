#include <QHelpEvent>
#include <QToolTip>
#include <QTreeView>

#include "grid/ctlPropertyEditor.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Error.h"

namespace tests {

using grid::ctlPropertyEditor;
using grid::EditReaction;

namespace {

/// A grid with two rows that writes down its changes.
struct Fixture {
  Fixture() {
    grid.OnPropertyChanged(
        [this](const QString& key, const QString& value) { changes += key + "=" + value; });
    grid.AddProperty("A", "Zielordner:", "eins", 1, true);
    grid.AddProperty("B", "Version", "zwei");
    grid.resize(523, 200);
    grid.show();
    if (!QTest::qWaitForWindowActive(&grid)) qFatal("the grid does not become active");
  }

  [[nodiscard]] QTreeView& List() const { return Child<QTreeView>(grid, "lsvProps"); }
  [[nodiscard]] QModelIndex Cell(int row, int column) const {
    return List().model()->index(row, column);
  }
  [[nodiscard]] QString Tip(int row, int column) const {
    return Cell(row, column).data(Qt::ToolTipRole).toString();
  }
  void DoubleClick(int row) const { tests::DoubleClick(List(), Cell(row, 1)); }

  ScriptedDialogs dialogs;
  ctlPropertyEditor grid{dialogs};
  QStringList changes;
};

}  // namespace

class ctlPropertyEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RowsAreAddedAndRemovedByTheirKeys() {
    Fixture f;
    f.grid.AddProperty("", "Titel", "x");
    f.grid.AddProperty("C", "", "x");
    f.grid.AddProperty("C", ":", "");
    f.grid.AddProperty("a", "Doppelt::", "klein");
    QCOMPARE(f.grid.ListPropertyNames(), "A; B; C; a");
    QCOMPARE(Rows(f.List()),
             QStringList({"Zielordner=eins", "Version=zwei", "=", "Doppelt:=klein"}));
    for (const char* key : {"A", "nicht da", ""}) f.grid.RemoveProperty(key);
    QCOMPARE(f.grid.ListPropertyNames(), "B; C; a");
    QCOMPARE(f.grid.GetProperty("a"), "klein");
    QCOMPARE(f.grid.GetProperty("A"), "");
    f.grid.Clear();
    f.grid.AddProperty("A", "Wieder da", "1");
    QCOMPARE(f.grid.ListPropertyNames(), "A");
    QCOMPARE(f.changes, QStringList());
  }

  void OnlyADifferentValueIsAChangeAndWrongKeysRaiseErrors() {
    Fixture f;
    for (const char* value : {"eins", "Eins", ""}) f.grid.SetProperty("A", value);
    QCOMPARE(f.changes, QStringList({"A=Eins", "A="}));
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.AddProperty("A", "Noch eine", "x"));
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.SetProperty("C", "x"));
    f.grid.EditProperty("C");
    QCOMPARE(Rows(f.List()), QStringList({"Zielordner=", "Version=zwei"}));
  }

  void ADoubleClickEditsTheRowInTheDialog() {
    const Fixture f;
    ModalScript script;
    script.Expect<QWidget>("frmEditProperty", [](QWidget& dialog) {
      const QString prompt = Shown(dialog, "lblPrompt");
      const bool resetShown = Child(dialog, "cmdReset").isVisible();
      Type(Child(dialog, "txtNewValue"), "  abc  ");
      QTest::keyClick(&dialog, Qt::Key_Return);
      QCOMPARE(prompt, "Geben Sie den neuen Wert für \"Zielordner\" ein:");
      QVERIFY(!resetShown);
    });
    f.DoubleClick(0);
    QCOMPARE(Rows(f.List()).front(), "Zielordner=abc");
    QCOMPARE(f.grid.SelectedProperty(), "A");
    script.ExpectAndPress("frmEditProperty", "cmdOK");
    f.DoubleClick(0);
    script.ExpectAndPress("frmEditProperty", "cmdCancel");
    f.DoubleClick(1);
    QCOMPARE(f.changes, QStringList("A=abc"));
  }

  void NothingElseStartsAnEdit() {
    const Fixture f;
    QWidget* viewport = f.List().viewport();
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, QPoint(20, viewport->height() - 5));
    const QPoint row = f.List().visualRect(f.Cell(0, 1)).center();
    QTest::mouseDClick(viewport, Qt::RightButton, {}, row);
    QTest::mouseClick(viewport, Qt::LeftButton, {}, row);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Space, Qt::Key_X}) {
      QTest::keyClick(&f.List(), key);
    }
    QTest::qWait(20);  // an edit would have opened its dialog by now
    QVERIFY(QApplication::activeModalWidget() == nullptr);
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

  void ARefusedEditAndAnErrorOfTheHostAreToldAndChangeNothing() {
    Fixture f;
    f.grid.OnEditProperty([](const QString& key, QString&, EditReaction& reaction) {
      if (key == "A") throw tools::Error("Die Zahl ist zu groß.");
      reaction = EditReaction::NotEditable;
    });
    f.DoubleClick(1);
    QCOMPARE(f.grid.SelectedProperty(), "B");
    f.DoubleClick(0);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.grid.EditProperty("A"));
    QCOMPARE(f.changes, QStringList());
    QCOMPARE(f.dialogs.Messages().size(), 2U);
    const tools::Message& refusal = f.dialogs.Messages().front();
    QCOMPARE(refusal.text, "Dieser Wert kann nicht bearbeitet werden.");
    QCOMPARE(refusal.caption, "Eigenschaft ändern");
    const tools::Message& error = f.dialogs.Messages().back();
    QCOMPARE(error.text, "Die Zahl ist zu groß.");
    QCOMPARE(error.caption, "Fehler");
    for (const tools::Message& message : {refusal, error}) {
      QCOMPARE(message.icon, tools::MessageIcon::Exclamation);
    }
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

  void TooltipsAreThoseOfRowsAddedOrChangedWhileTheyAreOn() {
    Fixture f;
    QVERIFY(!f.grid.ShowTooltips());
    f.grid.SetShowTooltips(true);
    f.grid.AddProperty("C", "Pfad:", "<b>/a</b>");
    QCOMPARE(QStringList({f.Tip(0, 1), f.Tip(2, 0), f.Tip(2, 1)}),
             QStringList({"", "Pfad", "<b>/a</b>"}));
    f.grid.SetProperty("A", "neu");
    f.grid.SetShowTooltips(false);
    f.grid.SetProperty("A", "neuer");
    QCOMPARE(QStringList({f.Tip(0, 0), f.Tip(0, 1)}), QStringList({"", "neu"}));

    const QPoint cell = f.List().visualRect(f.Cell(2, 1)).center();
    QHelpEvent hover(QEvent::ToolTip, cell, f.List().viewport()->mapToGlobal(cell));
    QApplication::sendEvent(f.List().viewport(), &hover);
    QVERIFY(QToolTip::text().contains("&lt;b&gt;/a"));
  }

  void TheColumnsShareTheWidth() {
    Fixture f;
    QCOMPARE(f.List().columnWidth(0) + f.List().columnWidth(1), 250 + 250);
    f.grid.resize(300, 100);
    QCOMPARE(f.List().geometry(), QRect(0, 0, 300, 100));
    for (const int column : {0, 1}) QCOMPARE(f.List().columnWidth(column), 139);
    QCOMPARE(f.List().model()->headerData(0, Qt::Horizontal), "Name");
    QCOMPARE(f.List().model()->headerData(1, Qt::Horizontal), "Value");
  }

  void KeysAndMouseArePassedOn() {
    const Fixture f;
    QStringList events;
    const auto note = [&](auto signal, const char* name) {
      connect(&f.grid, signal, this, [&events, name] { events += name; });
    };
    note(&ctlPropertyEditor::Click, "Click");
    note(&ctlPropertyEditor::MouseUp, "MouseUp");
    note(&ctlPropertyEditor::KeyDown, "KeyDown");
    note(&ctlPropertyEditor::KeyUp, "KeyUp");
    connect(&f.grid, &ctlPropertyEditor::KeyPress, this,
            [&](char16_t character) { events += QString(QChar(character)); });
    connect(&f.grid, &ctlPropertyEditor::MouseDown, this,
            [&](Qt::MouseButton button, Qt::KeyboardModifiers shift, float /*x*/, float y) {
              QCOMPARE(button, Qt::LeftButton);
              QCOMPARE(shift, Qt::ControlModifier);
              events += QString::number(y);
            });
    QTest::mouseClick(f.List().viewport(), Qt::LeftButton, Qt::ControlModifier, QPoint(7, 9));
    QTest::keyClick(&f.List(), Qt::Key_Down);
    QTest::keyClicks(&f.List(), "v");
    QCOMPARE(events.join(' '), "9 MouseUp Click KeyDown KeyUp KeyDown v KeyUp");
    QCOMPARE(f.grid.SelectedProperty(), "B");
  }
};

}  // namespace tests

QTEST_MAIN(tests::ctlPropertyEditorTest)
#include "ctlPropertyEditorTest.moc"
