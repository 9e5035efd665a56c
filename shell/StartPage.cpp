#include "shell/StartPage.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "model/TextTable.h"
#include "pages/PageText.h"
#include "shell/RecentProducts.h"
#include "tools/desktop/Background.h"
#include "tools/desktop/LinkButton.h"
#include "tools/desktop/QtText.h"
#include "tools/files/Path.h"

namespace shell {

using model::Text;
using pages::Caption;
using tools::LinkButton;
using tools::ToQString;

namespace {

constexpr const char* kPath = "path";  // property of a product's row and its buttons
constexpr double kTitleSize = 1.3;     // of the form's font

}  // namespace

StartPage::StartPage(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("startPage"));
  auto* layout = new QVBoxLayout(this);
  const int unit = fontMetrics().height();
  layout->setContentsMargins(2 * unit, unit, 2 * unit, unit);
  Clear();
}

void StartPage::Clear() {
  delete content_;
  content_ = new QWidget(this);
  rows_ = new QVBoxLayout(content_);
  rows_->setContentsMargins(0, 0, 0, 0);
  rows_->setSpacing(fontMetrics().height() / 4);
  isStart_ = false;
  layout()->addWidget(content_);
}

void StartPage::ShowStart(const std::vector<std::string>& recentProducts) {
  Clear();
  isStart_ = true;
  AddTitle(Caption(Text::StartHere));
  AddCommand("lnkNew", Caption(Text::StartNew), &StartPage::NewWanted);
  AddCommand("lnkOpen", Caption(Text::StartOpen), &StartPage::OpenWanted);
  rows_->addSpacing(fontMetrics().height());
  AddTitle(Caption(Text::RecentProducts));
  if (recentProducts.empty()) AddHint(Caption(Text::NoRecentProducts));
  int number = 0;
  for (const std::string& path : recentProducts) AddProduct(path, ++number);
  rows_->addStretch(1);
  if (recentProducts.empty()) return;
  tools::RunInBackground(*content_, [this, recentProducts]() -> std::function<void()> {
    return [this, missing = MissingProducts(recentProducts)] { ShowMissing(missing); };
  });
}

void StartPage::TakeFocus() {
  auto* link = content_->findChild<LinkButton*>(QStringLiteral("lnkProduct1"));
  if (link == nullptr) link = content_->findChild<LinkButton*>();
  if (link != nullptr) link->setFocus();
}

void StartPage::ShowNothingSelected() {
  Clear();
  AddHint(Caption(Text::SelectANode));
  rows_->addStretch(1);
}

void StartPage::AddTitle(const QString& text) {
  auto* title = new QLabel(text);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * kTitleSize);
  title->setFont(large);
  rows_->addWidget(title);
}

void StartPage::AddHint(const QString& text) {
  auto* hint = new QLabel(text);
  hint->setObjectName(QStringLiteral("lblStartHint"));
  hint->setWordWrap(true);
  rows_->addWidget(hint);
}

void StartPage::AddCommand(const char* name, const QString& text, void (StartPage::*wanted)()) {
  auto* link = new LinkButton(text);
  link->setObjectName(QString::fromLatin1(name));
  connect(link, &LinkButton::clicked, this, wanted);
  rows_->addWidget(link, 0, Qt::AlignLeft);
}

void StartPage::AddProduct(const std::string& path, int number) {
  auto* row = new QWidget;
  row->setProperty(kPath, ToQString(path));
  auto* link = new LinkButton(ToQString(tools::FileNamePart(path)));
  link->setObjectName(QStringLiteral("lnkProduct%1").arg(number));
  link->setToolTip(Qt::convertFromPlainText(ToQString(path)));
  link->setAccessibleDescription(ToQString(path));
  auto* folder = new QLabel(ToQString(tools::FolderOf(path)));
  folder->setTextFormat(Qt::PlainText);
  folder->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  folder->setForegroundRole(QPalette::PlaceholderText);
  auto* remove = new LinkButton(Caption(Text::RemoveFromList));
  remove->setObjectName(QStringLiteral("lnkRemove%1").arg(number));
  remove->setAccessibleName(link->text() + QStringLiteral(": ") + remove->text());
  remove->hide();
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(link);
  layout->addWidget(remove);
  layout->addWidget(folder, 1);
  rows_->addWidget(row);
  // Queued: they take these rows away.
  connect(
      link, &LinkButton::clicked, this, [this, path] { Q_EMIT ProductWanted(path); },
      Qt::QueuedConnection);
  connect(
      remove, &LinkButton::clicked, this, [this, path] { Q_EMIT RemovalWanted(path); },
      Qt::QueuedConnection);
}

void StartPage::ShowMissing(const std::vector<std::string>& missing) {
  for (const std::string& path : missing) {
    for (QWidget* row : content_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (row->property(kPath) != ToQString(path)) continue;
      const QList<LinkButton*> links = row->findChildren<LinkButton*>();
      links[1]->show();
      if (links[0]->hasFocus()) links[1]->setFocus();
      links[0]->setEnabled(false);
      links[0]->setText(links[0]->text() + QStringLiteral(" (%1)").arg(Caption(Text::IsMissing)));
    }
  }
}

void StartPage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) {
    focusNextPrevChild(event->key() == Qt::Key_Down);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace shell
