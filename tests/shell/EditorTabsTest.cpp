#include "tests/support/desktop/PageFixture.h"
#include "tools/Error.h"

namespace tests {

using tools::MessageAnswer;

namespace {

/// A page that fails at the step that its title names, and stores its title.
class FakeEditorPage : public pages::EditorPage {
 public:
  FakeEditorPage(std::string title, QWidget* parent)
      : EditorPage(parent), title_(std::move(title)) {}

  std::string Title() const override { return title_; }
  void ReadSettings() override {
    if (title_ == "unreadable") throw tools::Error("unlesbar");
    SetDirty(true);
  }
  bool IsDirty() const override {
    if (title_ == "mute") throw tools::Error("unbekannt");
    return EditorPage::IsDirty();
  }

 protected:
  void WriteSettings() override {
    Host()->Save("Fake", "Value", title_);
    if (title_ == "full") throw tools::Error("voll");
  }

 private:
  std::string title_;
};

struct Fixture : PageFixture {
  Fixture() {
    for (const char* name : {"first", "second", "unreadable", "mute", "full"}) {
      pageRegistry.Add(name, [name](const pages::PageServices&, QWidget* parent) {
        return new FakeEditorPage(name, parent);
      });
    }
  }

  /// Opens pages that the user has changed, all but the last one.
  void PrepareChanged(const char* pageList) {
    tabs.Prepare(pageList, 1, 0);
    for (std::int32_t i = 1; i < tabs.Count(); ++i) tabs.Item(i).SetDirty(true);
  }
  QString StoredValue() const { return Stored(kVersionFile, "Fake", {"Value"}); }
};

}  // namespace

class EditorTabsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MakesHiddenCleanPagesAndTellsOfThoseThatCannotBeMadeOrRead() {
    Fixture f;
    f.tabs.Prepare("first;missing;unreadable;second", 1, 0);
    QCOMPARE(f.tabs.Count(), 2);
    QCOMPARE(f.tabs.Item(2).objectName() + f.tabs.Item(2).Title().c_str(), "EditorTab4second");
    QVERIFY(f.tabs.Item(1).isHidden());
    QVERIFY2(!f.tabs.Item(1).IsDirty(), "reading has made the page dirty");
    QVERIFY(Told(f.dialogs).endsWith("Packwright.missing\nFehler|unlesbar"));
    QVERIFY(f.area.findChild<QWidget*>("EditorTab3") == nullptr);
  }

  void OffersEachChangedPageByItsTitleAndNoOther() {
    Fixture f;
    f.PrepareChanged("first;second;first");
    f.dialogs.ExpectQuestion("auf der Seite \"first\" übernehmen?", MessageAnswer::Yes);
    f.dialogs.ExpectQuestion("auf der Seite \"second\" übernehmen?", MessageAnswer::No);
    f.tabs.Reset(true);
    QVERIFY(f.area.findChildren<QWidget*>().isEmpty());
    QCOMPARE(f.StoredValue(), "first");
    f.PrepareChanged("second;second");
    f.tabs.Reset(false);
    QCOMPARE(f.tabs.Count(), 0);
    QCOMPARE(f.StoredValue(), "first");
  }

  void AFailureToApplyIsNotReportedAndAPageThatCannotTellEndsTheRemoval() {
    Fixture f;
    f.PrepareChanged("full;mute;second");
    f.dialogs.ExpectQuestion("full", MessageAnswer::Yes);
    f.tabs.Reset(true);
    QCOMPARE(f.dialogs.Messages().size(), 1U);
    QCOMPARE(f.area.hourglasses, 0);
    QCOMPARE(f.StoredValue(), "-");
    QCOMPARE(f.tabs.Count(), 2);
  }
};

}  // namespace tests

QTEST_MAIN(tests::EditorTabsTest)
#include "EditorTabsTest.moc"
