#include "pages/tabProductDetails.h"

#include <QVBoxLayout>

#include "model/SettingNames.h"
#include "pages/PageGrid.h"
#include "pages/PageText.h"

namespace pages {

namespace {

constexpr std::string_view kSection = model::setting::kProductTitle.section;

struct StoredRow {
  const char* name;
  std::string_view key;
};
constexpr StoredRow kTitle{.name = "ProductTitle", .key = model::setting::kProductTitle.key};
constexpr StoredRow kAuthor{.name = "Author", .key = model::setting::kProductAuthor.key};
constexpr StoredRow kHomepage{.name = "AuthorHomepage", .key = "AuthorHomepage"};

}  // namespace

tabProductDetails::tabProductDetails(const PageServices& services, QWidget* parent)
    : EditorPage(parent), propsProduct(MakeGrid(services.dialogs, this)) {
  propsProduct->setObjectName(QStringLiteral("propsProduct"));
  propsProduct->setAccessibleName(Caption(Text::ProductPage));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(propsProduct);
  setFocusProxy(propsProduct);
  propsProduct->OnPropertyChanged([this](const QString&, const QString&) { SetDirty(true); });
  connect(propsProduct, &grid::ctlPropertyEditor::MouseMove, this,
          [this] { StatusTextChanged(model::LoadText(Text::ProductPageHint)); });
}

std::string tabProductDetails::Title() const { return model::LoadText(Text::ProductPage); }

void tabProductDetails::ReadSettings() {
  const auto add = [this](const StoredRow& row, Text title) {
    propsProduct->AddProperty(QString::fromLatin1(row.name), Caption(title),
                              tools::ToQString(Host()->Read(kSection, row.key, "")));
  };
  add(kTitle, Text::ProductTitle);
  propsProduct->AddProperty(QStringLiteral("ProductGUID"), Caption(Text::ProductGuid), {});
  add(kAuthor, Text::Author);
  add(kHomepage, Text::AuthorHomepage);
}

void tabProductDetails::WriteSettings() {
  for (const StoredRow& row : {kTitle, kAuthor, kHomepage}) {
    Host()->Save(kSection, row.key,
                 tools::ToUtf8(propsProduct->GetProperty(QString::fromLatin1(row.name))));
  }
}

}  // namespace pages
