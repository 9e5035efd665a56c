#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/ScriptedDialogs.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Error.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/WizardPicture.h"
#include "tools/desktop/WizardStructure.h"

namespace tests {

using tools::WizardPage;
using tools::WizardStructure;

namespace {

/// Shows the value "name" of the data store in `txtName`.
class NamePage : public tools::WizardOptionPage {
 public:
  NamePage(tools::WizardDataStore& store, QWidget* parent) : WizardOptionPage(store, parent) {
    auto* box = new QLineEdit(this);
    box->setObjectName("txtName");
    (new QVBoxLayout(this))->addWidget(box);
    connect(box, &QLineEdit::textEdited, this,
            [this](const QString& text) { SetValue("name", tools::ToUtf8(text)); });
  }

  void ShowValues() override {
    Child<QLineEdit>(*this, "txtName").setText(tools::ToQString(Value("name")));
  }
};

/// Describes the pages it is given and writes down every event.
class ListedPages : public tools::WizardDriver {
 public:
  std::map<std::string, WizardPage> pages;
  std::map<std::string, std::string> progIds;
  std::vector<std::string> steps;
  std::vector<std::string> events;
  std::string failing;  ///< key of a page that cannot be described

  std::string Title() override { return "Probe-Assistent"; }
  std::vector<std::string> GetStepBar() override { return steps; }
  void ShowStepbar() override { events.emplace_back("step bar"); }
  WizardPage ShowPage(const std::string& key) override {
    if (key == failing) throw tools::Error("Die Seite ist weg.");
    return pages.count(key) != 0 ? pages.at(key) : WizardPage();
  }
  std::string LoadPage(const std::string& key) override { return progIds[key]; }
  void EnterPage(const tools::WizardStep& step) override {
    events.push_back(step.ComingFrom + "->" + step.GoingTo + (step.PageCtl ? " control" : ""));
  }
  void LeavePage(const tools::WizardStep& step) override {
    events.push_back("leave " + step.ComingFrom + " for " + step.GoingTo);
  }
  void Finish(WizardStructure& frame) override {
    events.push_back("finish " + frame.DataStore()["name"]);
  }
  void Cancel(WizardStructure& /*frame*/) override { events.emplace_back("cancel"); }
  void ShowHelp(const std::string& key) override { events.push_back("help " + key); }
};

WizardPage Page(int style, const char* title, const char* next) {
  WizardPage page;
  page.PageStyle = style;
  page.PageTitle = title;
  page.PageDescription = std::string("Das ist\r\n") + title;
  page.ForwardStep = next;
  page.AllowFinish = *next == '\0';
  return page;
}

/// The names of the buttons that can be pressed.
QString Enabled(const QWidget& window) {
  QStringList names;
  for (const char* name : {"cmdHelp", "cmdBack", "cmdNext", "cmdFinish", "cmdCancel"}) {
    if (Child<QPushButton>(window, name).isEnabled()) names += QString(name).mid(3);
  }
  return names.join(' ');
}

}  // namespace

class WizardStructureTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    driver_ = std::make_unique<ListedPages>();
    driver_->pages = {{"intro", Page(1, "Anfang", "name")},
                      {"name", Page(2, "Name", "end")},
                      {"end", Page(3, "Ende", "")}};
    driver_->progIds = {{"name", "Probe.NamePage"}, {"end", "Probe.Unknown"}};
    registry_.Add("Probe.NamePage", [](tools::WizardDataStore& store, QWidget* parent) {
      return new NamePage(store, parent);
    });
  }

  void GoesThroughThePagesAndHandsOverTheDataStore() {
    Run("intro", [](WizardStructure& frame) {
      QCOMPARE(frame.windowTitle(), "Probe-Assistent");
      QCOMPARE(Child<QLabel>(frame, "lblPageTitle").text(), "Anfang");
      QCOMPARE(Child<QLabel>(frame, "lblPageDescription").text(), "Das ist\nAnfang");
      QVERIFY(frame.findChild<tools::WizardPicture*>()->isVisible());
      QVERIFY(!Child(frame, "lblStepBar").isVisible());
      QCOMPARE(Enabled(frame), "Next Cancel");
      Press(frame, "cmdNext");
      QVERIFY(!frame.findChild<tools::WizardPicture*>()->isVisible());
      QCOMPARE(Enabled(frame), "Back Next Cancel");
      QTest::keyClicks(frame.focusWidget(), "Ä b");
      Press(frame, "cmdNext");
      QCOMPARE(Child<QLabel>(frame, "lblPageTitle").text(), "Ende");
      QVERIFY(!Child(frame, "txtName").isVisible());
      QCOMPARE(Enabled(frame), "Back Finish Cancel");
      Press(frame, "cmdBack");
      QCOMPARE(Child<QLineEdit>(frame, "txtName").text(), "Ä b");
      QVERIFY(Child(frame, "txtName").isVisible());
      Press(frame, "cmdBack");
      QCOMPARE(Enabled(frame), "Next Cancel");
      Press(frame, "cmdNext");
      Press(frame, "cmdNext");
      Press(frame, "cmdFinish");
    });
    const std::vector<std::string> expected{"->intro",
                                            "leave intro for name",
                                            "intro->name control",
                                            "leave name for end",
                                            "name->end",
                                            "leave end for name",
                                            "end->name control",
                                            "leave name for intro",
                                            "name->intro",
                                            "leave intro for name",
                                            "intro->name control",
                                            "leave name for end",
                                            "name->end",
                                            "finish Ä b"};
    QCOMPARE(driver_->events, expected);
  }

  void AnUnknownNextKeyShowsAnEmptyPageFromWhichBackAndCancelWork() {
    driver_->pages["intro"].ForwardStep = "...";
    Run("intro", [](WizardStructure& frame) {
      Press(frame, "cmdNext");
      QCOMPARE(frame.CurrentPage(), "...");
      QCOMPARE(Child<QLabel>(frame, "lblPageTitle").text(), "");
      QCOMPARE(Enabled(frame), "Back Cancel");
      QTest::keyClick(&frame, Qt::Key_Return);
      Press(frame, "cmdBack");
      QCOMPARE(frame.CurrentPage(), "intro");
      Press(frame, "cmdNext");
      Press(frame, "cmdCancel");
    });
    QCOMPARE(driver_->events.back(), "cancel");
  }

  void EnterGoesOnAndFinishesAndEscapeCancelsWhereThePageAllowsIt() {
    driver_->pages["name"].AllowCancel = false;
    Run("intro", [](WizardStructure& frame) {
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      QCOMPARE(frame.focusWidget()->objectName(), "txtName");
      QTest::keyClick(frame.focusWidget(), Qt::Key_Escape);
      frame.close();
      QVERIFY(frame.isVisible());
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
      QTest::keyClick(frame.focusWidget(), Qt::Key_Return);
    });
    QCOMPARE(driver_->events.back(), "finish ");
    Run("intro", [](WizardStructure& frame) { QTest::keyClick(&frame, Qt::Key_Escape); });
    QCOMPARE(driver_->events.back(), "cancel");
  }

  void HelpAndTheStepBarAreThereWhereTheDriverWantsThem() {
    driver_->pages["name"].EnableHelp = true;
    driver_->steps = {"Eins", "Zwei"};
    Run("name", [](WizardStructure& frame) {
      QCOMPARE(Child<QLabel>(frame, "lblStepBar").text(), "Eins › Zwei");
      QVERIFY(Child(frame, "lblStepBar").isVisible());
      Press(frame, "cmdHelp");
      Press(frame, "cmdNext");
      QCOMPARE(Enabled(frame), "Back Finish Cancel");
      frame.close();
    });
    QCOMPARE(driver_->events.front(), "step bar");
    QCOMPARE(driver_->events.at(2), "help name");
  }

  void APageNamedForBackTakesTheHistoryBackToItsVisit() {
    driver_->pages["end"].BackStep = "intro";
    Run("intro", [](WizardStructure& frame) {
      Press(frame, "cmdNext");
      Press(frame, "cmdNext");
      Press(frame, "cmdBack");
      QCOMPARE(frame.CurrentPage(), "intro");
      QCOMPARE(Enabled(frame), "Next Cancel");
      frame.close();
    });
  }

  void AnErrorOfTheDriverIsShownAndThePageStays() {
    driver_->failing = "end";
    Run("intro", [](WizardStructure& frame) {
      Press(frame, "cmdNext");
      Press(frame, "cmdNext");
      QCOMPARE(frame.CurrentPage(), "name");
      Press(frame, "cmdBack");
      QCOMPARE(frame.CurrentPage(), "intro");
      frame.close();
    });
    QCOMPARE(dialogs_.Messages().back().text, "Die Seite ist weg.");
    QCOMPARE(std::count(driver_->events.begin(), driver_->events.end(), "leave name for end"), 0);
  }

 private:
  void Run(const char* startPage, const std::function<void(WizardStructure&)>& act) {
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", act);
    WizardStructure frame(*driver_, registry_, dialogs_);
    frame.Run(startPage);
  }

  std::unique_ptr<ListedPages> driver_;
  tools::WizardPageRegistry registry_;
  ScriptedDialogs dialogs_;
};

}  // namespace tests

QTEST_MAIN(tests::WizardStructureTest)
#include "WizardStructureTest.moc"
