#include <QTest>
#include <QTreeView>

#include "pages/tabProductDetails.h"
#include "tests/pages/PageFixture.h"

namespace tests {

namespace {

/// The product's settings, in the order in which they were written.
class ProductHost : public pages::PageHost {
 public:
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view fallback) override {
    return file.Read(section, key, fallback);
  }
  void Save(std::string_view section, std::string_view key, std::string_view value) override {
    file.Write(section, key, value);
    written.append(key).append(";");
  }
  void InOneWrite(const std::function<void()>& writes) override { writes(); }
  void StatusTextChanged(const std::string& text) override { hint = text; }
  [[nodiscard]] std::int32_t VersionIndex() const override { return 0; }
  [[nodiscard]] std::int32_t ComponentIndex() const override { return 0; }

  tools::SettingsFile file;
  std::string written;
  std::string hint;
};

}  // namespace

class tabProductDetailsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { host_ = std::make_unique<ProductHost>(); }
  void cleanup() { page_.reset(); }

  void ShowsTheFourRowsOfTheProduct() {
    host_->file.Write("Product", "Title", "Demo");
    host_->file.Write("Product", "AuthorHomepage", "https://example.org");
    host_->file.Write("Product", "ProductGUID", "{1}");
    Open();
    QCOMPARE(page_->Title(), "Produkt");
    QCOMPARE(page_->GetCaps(1), 0);
    QCOMPARE(Grid().ListPropertyNames(), "ProductTitle; ProductGUID; Author; AuthorHomepage");
    QCOMPARE(Grid().GetProperty("ProductTitle"), "Demo");
    QCOMPARE(Grid().GetProperty("ProductGUID"), "");
    QCOMPARE(Grid().GetProperty("Author"), "");
    QCOMPARE(Grid().GetProperty("AuthorHomepage"), "https://example.org");
    const QTreeView& rows = Child<QTreeView>(*page_, "lsvProps");
    QCOMPARE(rows.model()->index(0, 0).data().toString(), "Produktbezeichnung");
    QCOMPARE(rows.model()->index(1, 0).data().toString(), "Produktkennung (GUID)");
  }

  void ApplyingWritesAllButTheGuid() {
    Open();
    QVERIFY(!page_->IsDirty());
    Grid().SetProperty("ProductGUID", "{2}");
    QVERIFY(page_->IsDirty());
    Grid().SetProperty("Author", "Änne");
    page_->ApplyChanges();
    QVERIFY(!page_->IsDirty());
    QCOMPARE(host_->written, "Title;Author;AuthorHomepage;");
    QCOMPARE(host_->file.Read("Product", "Author", ""), "Änne");
  }

  void HintsAtWhatCanBeEdited() {
    Open();
    QTest::mouseMove(Child<QTreeView>(*page_, "lsvProps").viewport());
    QTRY_COMPARE(host_->hint, "Hier können Sie die Produkteigenschaften bearbeiten.");
  }

 private:
  grid::ctlPropertyEditor& Grid() { return Child<grid::ctlPropertyEditor>(*page_, "propsProduct"); }
  void Open() {
    page_ = std::make_unique<pages::tabProductDetails>(
        pages::PageServices{fixture_.project, fixture_.dialogs, *fixture_.registry}, nullptr);
    page_->SetHost(host_.get());
    page_->ReadSettings();
    page_->show();
  }

  PageFixture fixture_;
  std::unique_ptr<ProductHost> host_;
  std::unique_ptr<pages::tabProductDetails> page_;
};

}  // namespace tests

QTEST_MAIN(tests::tabProductDetailsTest)
#include "tabProductDetailsTest.moc"
