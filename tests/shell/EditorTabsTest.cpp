#include <QTest>

#include "shell/EditorTabs.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TestProduct.h"
#include "tools/Error.h"

namespace tests {

namespace {

/// A page that behaves as the options say that it was registered with.
class FakeEditorPage : public pages::EditorPage {
 public:
  struct Options {
    std::string title;
    bool failsToRead = false;
    bool failsToTell = false;
    bool failsToApply = false;
  };

  FakeEditorPage(Options options, QWidget* parent)
      : EditorPage(parent), options_(std::move(options)) {}

  [[nodiscard]] std::string Title() const override { return options_.title; }
  void ReadSettings() override {
    if (options_.failsToRead) throw tools::Error("unlesbar");
    SetDirty(true);
  }
  [[nodiscard]] bool IsDirty() const override {
    if (options_.failsToTell) throw tools::Error("unbekannt");
    return EditorPage::IsDirty();
  }

 protected:
  void WriteSettings() override {
    Host()->Save("Fake", "Value", options_.title);
    if (options_.failsToApply) throw tools::Error("voll");
  }

 private:
  Options options_;
};

class FakeArea : public shell::EditorArea {
 public:
  QWidget* PageParent() override { return &window; }
  void PositionExtender(QWidget& page) override { positioned = page.objectName(); }
  void ShowStatusText(const std::string& /*text*/) override {}
  void ShowHourglass(bool shown) override { hourglasses += shown ? 1 : -1; }

  QWidget window;
  QString positioned;
  int hourglasses = 0;
};

}  // namespace

class EditorTabsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    folder_ = std::make_unique<TemporaryFolder>();
    product_ = std::make_unique<TestProduct>(*folder_);
    product_->AddComponent("Programm", {});
    dialogs_ = std::make_unique<ScriptedDialogs>();
    area_ = std::make_unique<FakeArea>();
    pageRegistry_ = {};
    tabs_ = std::make_unique<shell::EditorTabs>(*area_, product_->Project(), *dialogs_, *registry_,
                                                pageRegistry_);
    Register("first", {.title = "Erste"});
    Register("second", {.title = "Zweite"});
  }

  void cleanup() {
    tabs_.reset();
    dialogs_.reset();  // complains about questions that did not come
  }

  void MakesHiddenCleanPagesUnderTheirControlNames() {
    tabs_->Prepare("first;second", 1, 0);
    QCOMPARE(tabs_->Count(), 2);
    QCOMPARE(tabs_->Item(1).objectName(), "EditorTab1");
    QCOMPARE(tabs_->Item(2).objectName(), "EditorTab2");
    QCOMPARE(tabs_->Item(2).Title(), "Zweite");
    QVERIFY(tabs_->Item(1).isHidden());
    QVERIFY2(!tabs_->Item(1).IsDirty(), "reading has made the page dirty");
  }

  void LeavesOutPagesThatCannotBeMadeOrReadAndSaysSo() {
    Register("unreadable", {.title = "Kaputt", .failsToRead = true});
    tabs_->Prepare("first;missing;unreadable;second", 1, 0);
    QCOMPARE(tabs_->Count(), 2);
    QCOMPARE(tabs_->Item(2).objectName(), "EditorTab4");
    QCOMPARE(dialogs_->Messages().size(), 2U);
    QVERIFY(dialogs_->Messages()[0].text.ends_with("Packwright.missing"));
    QCOMPARE(dialogs_->Messages()[0].caption, "Fehler");
    QCOMPARE(dialogs_->Messages()[1].text, "unlesbar");
    QVERIFY(area_->window.findChild<QWidget*>("EditorTab3") == nullptr);
  }

  void RoutesSettingsByTheSlotsOfTheNode_data() {
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("component");
    QTest::addColumn<QString>("file");
    QTest::newRow("product") << 0 << 0 << "Probe.product";
    QTest::newRow("version") << 1 << 0 << "Version 1.0.0/product.version";
    QTest::newRow("component") << 1 << 1 << "Version 1.0.0/component1.component";
  }

  void RoutesSettingsByTheSlotsOfTheNode() {
    QFETCH(int, version);
    QFETCH(int, component);
    QFETCH(QString, file);
    tabs_->Prepare("first", version, component);
    QCOMPARE(tabs_->VersionIndex(), version);
    QCOMPARE(tabs_->ComponentIndex(), component);
    tabs_->Save("Fake", "Value", "hier");
    QVERIFY(folder_->Read("Produkt/" + file.toStdString()).ends_with("[Fake]\nValue=hier\n"));
    QCOMPARE(tabs_->Read("Fake", "Value", ""), "hier");
    product_->Project().SetProductPath({});
    tabs_->Save("Fake", "Value", "verloren");
    QCOMPARE(tabs_->Read("Fake", "Value", "nichts"), "nichts");
  }

  void OffersEachChangedPageByItsTitle() {
    tabs_->Prepare("first;second", 1, 0);
    tabs_->Item(1).SetDirty(true);
    tabs_->Item(2).SetDirty(true);
    dialogs_->ExpectQuestion("auf der Seite \"Erste\" übernehmen?", tools::MessageAnswer::Yes);
    dialogs_->ExpectQuestion("auf der Seite \"Zweite\" übernehmen?", tools::MessageAnswer::No);
    tabs_->Reset(true);
    QCOMPARE(dialogs_->Messages()[0].caption, "Frage");
    QCOMPARE(dialogs_->Messages()[0].icon, tools::MessageIcon::Question);
    QCOMPARE(tabs_->Count(), 0);
    QVERIFY(area_->window.findChildren<QWidget*>().isEmpty());
    QCOMPARE(Stored(), "Erste");
    QCOMPARE(area_->hourglasses, 0);
  }

  void AsksNothingOfCleanPagesOrWhenToldNotTo() {
    tabs_->Prepare("first", 1, 0);
    tabs_->Reset(true);
    tabs_->Prepare("first", 1, 0);
    tabs_->Item(1).SetDirty(true);
    tabs_->Reset(false);
    QCOMPARE(tabs_->Count(), 0);
    QVERIFY(dialogs_->Messages().empty());
  }

  void AFailureToApplyIsNotReportedAndWritesNothing() {
    Register("full", {.title = "Voll", .failsToApply = true});
    tabs_->Prepare("full", 1, 0);
    tabs_->Item(1).SetDirty(true);
    dialogs_->ExpectQuestion("Voll", tools::MessageAnswer::Yes);
    tabs_->Reset(true);
    QCOMPARE(tabs_->Count(), 0);
    QCOMPARE(dialogs_->Messages().size(), 1U);
    QCOMPARE(area_->hourglasses, 0);
    QCOMPARE(Stored(), "");
  }

  void APageThatCannotTellEndsTheRemoval() {
    Register("mute", {.title = "Stumm", .failsToTell = true});
    tabs_->Prepare("first;mute;second", 1, 0);
    tabs_->Reset(true);
    QCOMPARE(tabs_->Count(), 2);
    QCOMPARE(tabs_->Item(1).Title(), "Stumm");
  }

  void ShowsOnePageAndHidesTheOthers() {
    tabs_->Prepare("first;second", 1, 0);
    tabs_->ShowTab(2);
    QVERIFY(tabs_->Item(1).isHidden() && !tabs_->Item(2).isHidden());
    QCOMPARE(area_->positioned, "EditorTab2");
    tabs_->ShowTab(1);
    QVERIFY(!tabs_->Item(1).isHidden() && tabs_->Item(2).isHidden());
    tabs_->ShowTab(3);
    QVERIFY(tabs_->Item(1).isHidden() && tabs_->Item(2).isHidden());
  }

 private:
  void Register(const std::string& name, const FakeEditorPage::Options& options) {
    pageRegistry_.Add(name, [options](const pages::PageServices&, QWidget* parent) {
      return new FakeEditorPage(options, parent);
    });
  }

  [[nodiscard]] std::string Stored() const {
    return product_->Project().ReadVersionSetting(1, "Fake", "Value", "");
  }

  tools::SystemDisk disk_;
  std::unique_ptr<tools::Registry> registry_ = tools::OpenSystemRegistry(disk_);
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<TestProduct> product_;
  std::unique_ptr<ScriptedDialogs> dialogs_;
  std::unique_ptr<FakeArea> area_;
  pages::PageRegistry pageRegistry_;
  std::unique_ptr<shell::EditorTabs> tabs_;
};

}  // namespace tests

QTEST_MAIN(tests::EditorTabsTest)
#include "EditorTabsTest.moc"
