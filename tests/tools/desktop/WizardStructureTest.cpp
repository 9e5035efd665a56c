
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

#include "tests/support/desktop/ModalScript.h"
#include "tools/Error.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace tests {

using tools::WizardPage;
using tools::WizardStructure;

/// Shows the value "name" of the data store in `txtName`.
struct NamePage : tools::WizardOptionPage {
  NamePage(tools::WizardDataStore& store, QWidget* parent) : WizardOptionPage(store, parent) {
    txtName.setObjectName("txtName");
    connect(&txtName, &QLineEdit::textEdited, this,
            [this](const QString& text) { SetValue("name", tools::ToUtf8(text)); });
  }

  void ShowValues() override { txtName.setText(ToQString(Value("name"))); }

  QLineEdit txtName{this};
};

WizardPage Page(const char* title, const char* next) {
  WizardPage page;
  page.PageTitle = title;
  page.ForwardStep = next;
  page.AllowFinish = *next == '\0';
  return page;
}

/// Describes the pages it is given and writes down every event; the wizard is run by Run.
struct ListedPages : tools::WizardDriver {
  std::map<std::string, WizardPage> pages{
      {"intro", Page("Anfang", "name")}, {"name", Page("Name", "end")}, {"end", Page("Ende", "")}};
  QStringList events;
  std::string failing;  ///< key of a page that cannot be described
  ScriptedDialogs dialogs;

  void Run(const char* startPage, const std::function<void(WizardStructure&)>& act) {
    tools::WizardPageRegistry registry;
    registry.Add("Probe.NamePage", [](tools::WizardDataStore& store, QWidget* parent) {
      return new NamePage(store, parent);
    });
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", act);
    WizardStructure(*this, registry, dialogs).Run(startPage);
  }

  std::string Title() override { return "Probe-Assistent"; }
  std::vector<std::string> GetStepBar() override { return {}; }
  void ShowStepbar() override {}
  WizardPage ShowPage(const std::string& key) override {
    if (key == failing) throw tools::Error("Die Seite ist weg.");
    return pages[key];
  }
  std::string LoadPage(const std::string& key) override {
    return key == "name" ? "Probe.NamePage" : key == "end" ? "Probe.Unknown" : "";
  }
  void EnterPage(const tools::WizardStep& step) override {
    Note(step.ComingFrom + "->" + step.GoingTo + (step.PageCtl != nullptr ? " control" : ""));
  }
  void LeavePage(const tools::WizardStep& step) override { Note("leave for " + step.GoingTo); }
  void Finish(WizardStructure& frame) override { Note("finish " + frame.DataStore()["name"]); }
  void Cancel(WizardStructure& /*frame*/) override { Note("cancel"); }
  void ShowHelp(const std::string& /*key*/) override {}

  void Note(const std::string& event) { events += ToQString(event); }
};

/// The names of the buttons that can be pressed.
QString Enabled(const QWidget& window) {
  QStringList names;
  for (const char* name : {"cmdBack", "cmdNext", "cmdFinish", "cmdCancel"}) {
    if (Child(window, name).isEnabled()) names += QString(name).mid(3);
  }
  return names.join(' ');
}

class WizardStructureTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LeadsThroughThePagesInBothDirections() {
    ListedPages driver;
    driver.Run("intro", [](WizardStructure& frame) {
      QCOMPARE(Shown(frame, "lblPageTitle"), "Anfang");
      QCOMPARE(Enabled(frame), "Next Cancel");
      Press(frame, "cmdNext");
      QCOMPARE(Enabled(frame), "Back Next Cancel");
      QTest::keyClicks(frame.focusWidget(), "Ä b");
      Press(frame, "cmdNext");
      QVERIFY(!Child(frame, "txtName").isVisible());
      QCOMPARE(Enabled(frame), "Back Finish Cancel");
      Press(frame, "cmdBack");
      QCOMPARE(Shown(frame, "txtName"), "Ä b");
      QVERIFY(Child(frame, "txtName").isVisible());
      Press(frame, "cmdBack");
      QCOMPARE(Enabled(frame), "Next Cancel");
      for (int i = 0; i < 3; ++i) QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
    });
    const QString forward = "leave for name|intro->name control|leave for end|name->end|";
    QCOMPARE(driver.events.join('|'), "->intro|" + forward +
                                          "leave for name|end->name control|"
                                          "leave for intro|name->intro|" +
                                          forward + "finish Ä b");
  }

  void CancelsOnlyWhereThePageAllowsIt() {
    ListedPages driver;
    driver.pages["end"].AllowCancel = false;
    driver.Run("end", [](WizardStructure& frame) {
      QTest::keyClick(frame.focusWidget(), Qt::Key_Escape);
      frame.close();
      QVERIFY(frame.isVisible());
      Press(frame, "cmdFinish");
    });
    QCOMPARE(driver.events.back(), "finish ");
    driver.Run("intro", [](WizardStructure& frame) { QTest::keyClick(&frame, Qt::Key_Escape); });
    QCOMPARE(driver.events.back(), "cancel");
  }

  void BackGoesToThePageThatTheDriverNames() {
    ListedPages driver;
    driver.pages["end"].BackStep = "intro";
    driver.Run("intro", [](WizardStructure& frame) {
      for (const char* button : {"cmdNext", "cmdNext", "cmdBack"}) Press(frame, button);
      QCOMPARE(frame.CurrentPage(), "intro");
      QCOMPARE(Enabled(frame), "Next Cancel");  // the history is back at its visit, too
      frame.close();
    });
  }

  void AFieldFarBelowIsShownWhenItHasTheFocus() {
    ListedPages driver;
    driver.Run("intro", [](WizardStructure& frame) {
      Press(frame, "cmdNext");
      QWidget& name = Child(frame, "txtName");
      name.parentWidget()->setMinimumHeight(2000);
      QLineEdit below(name.parentWidget());
      below.move(0, 1900);
      below.show();
      QWidget::setTabOrder(&name, &below);
      QCoreApplication::processEvents();  // the layout
      QTest::keyClick(&name, Qt::Key_Tab);
      QVERIFY(!below.visibleRegion().isEmpty());
      Press(frame, "cmdBack");
      Press(frame, "cmdNext");
      QVERIFY(!name.visibleRegion().isEmpty());
      Press(frame, "cmdNext");
      QCoreApplication::processEvents();
      const auto& area = *frame.findChild<QScrollArea*>();
      QVERIFY2(!area.verticalScrollBar()->isVisible(), "an empty page needs none");
      frame.close();
    });
  }

  void PagesKeepTheirMarginsUnderEveryStyle() {
    ListedPages driver;
    const tools::WizardPageRegistry registry;
    WizardStructure frame(driver, registry, driver.dialogs);
    // As some desktops do before the first showing.
    QApplication::setStyle("windows");
    frame.show();
    const QWidget& header = *Child(frame, "lblPageTitle").parentWidget();
    const QWidget& page = *frame.findChild<QStackedWidget*>()->currentWidget();
    QVERIFY(page.mapTo(&frame, QPoint()).x() > header.mapTo(&frame, QPoint()).x());
  }

  void AnErrorOfTheDriverKeepsThePage() {
    ListedPages driver;
    driver.failing = "end";
    driver.Run("intro", [](WizardStructure& frame) {
      for (int i = 0; i < 2; ++i) Press(frame, "cmdNext");
      QCOMPARE(frame.CurrentPage(), "name");
      Press(frame, "cmdBack");
      QCOMPARE(frame.CurrentPage(), "intro");
      frame.close();
    });
    QCOMPARE(driver.dialogs.LastMessage(), "Fehler|Die Seite ist weg.");
    QVERIFY(!driver.events.contains("leave for end"));
  }
};

}  // namespace tests

QTEST_MAIN(tests::WizardStructureTest)
#include "WizardStructureTest.moc"
