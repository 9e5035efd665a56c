#include "shell/PageBars.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

#include "model/TextTable.h"
#include "pages/EditorPage.h"
#include "pages/PageText.h"
#include "shell/EditorTabs.h"
#include "shell/ProjectTree.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/desktop/Background.h"
#include "tools/desktop/LinkButton.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::Text;
using pages::Caption;
using tools::LinkButton;

namespace {

tools::FileStamp StampOf(const std::string& path) {
  try {
    return tools::StampOf(path);
  } catch (const tools::Error&) {
    return {};  // a file that cannot be reached has changed
  }
}

}  // namespace

PageBar::PageBar(const QString& name, const QString& text, QWidget* parent)
    : QFrame(parent),
      layout_(new QHBoxLayout(this)),
      icon_(new QLabel(this)),
      label_(new QLabel(this)) {
  setObjectName(name);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  label_->setTextFormat(Qt::PlainText);
  label_->setWordWrap(true);
  label_->setForegroundRole(QPalette::ToolTipText);
  layout_->addWidget(icon_);
  layout_->addWidget(label_, 1);
  SetText(text);
  hide();
}

void PageBar::SetText(const QString& text) {
  label_->setText(text);
  setAccessibleName(text);
  for (LinkButton* link : findChildren<LinkButton*>()) link->setAccessibleDescription(text);
}

// Not before: to look for it among the desktop's icons takes a fifth of the program's start.
void PageBar::showEvent(QShowEvent* event) {
  if (icon_->pixmap().isNull()) {
    icon_->setPixmap(style()
                         ->standardIcon(QStyle::SP_MessageBoxInformation)
                         .pixmap(style()->pixelMetric(QStyle::PM_SmallIconSize)));
  }
  QFrame::showEvent(event);
}

void PageBar::setVisible(bool visible) {
  // The window's, which is not the active one yet when a dialog has just closed.
  if (!visible && isAncestorOf(window()->focusWidget())) Q_EMIT FocusLost();
  QFrame::setVisible(visible);
}

tools::LinkButton* PageBar::AddLink(const char* name, const QString& text) {
  auto* link = new tools::LinkButton(text, this);
  link->setObjectName(QString::fromLatin1(name));
  link->setAccessibleDescription(accessibleName());
  layout_->addWidget(link);
  return link;
}

PageBars::PageBars(QVBoxLayout& layout, QWidget& window, ProjectTree& tree, EditorTabs& pages,
                   Actions actions)
    : QObject(&window),
      tree_(tree),
      pages_(pages),
      noComponents_(AddBar(layout, "fraNoComponents", Caption(Text::NoComponentsYet))),
      fileChanged_(AddBar(layout, "fraFileChanged", Caption(Text::FileChangedOutside))),
      nodeMissing_(AddBar(layout, "fraNodeMissing", {})) {
  const auto version = [this] { return SlotsOf(node_).version; };
  connect(noComponents_->AddLink("lnkAddComponent", Caption(Text::AddComponent)),
          &LinkButton::clicked, this,
          [version, add = std::move(actions.addComponent)] { add(version()); });
  connect(noComponents_->AddLink("lnkTakeOver", Caption(Text::TakeOverComponents)),
          &LinkButton::clicked, this,
          [version, takeOver = std::move(actions.takeOver)] { takeOver(version()); });
  connect(fileChanged_->AddLink("lnkReload", Caption(Text::Reload)), &LinkButton::clicked, this,
          actions.reload);
  connect(nodeMissing_->AddLink("lnkTryAgain", Caption(Text::Reload)), &LinkButton::clicked, this,
          actions.reload);
  // Qt would hand it to whatever comes next, which may be far away.
  for (const PageBar* bar : {noComponents_, fileChanged_, nodeMissing_}) {
    connect(bar, &PageBar::FocusLost, &tree_, qOverload<>(&QWidget::setFocus));
  }
  window.installEventFilter(this);
}

PageBar* PageBars::AddBar(QVBoxLayout& layout, const char* name, const QString& text) {
  auto* bar = new PageBar(QString::fromLatin1(name), text, layout.parentWidget());
  layout.addWidget(bar);
  return bar;
}

void PageBars::PagesRead(const Node& node) {
  node_ = node;
  fileChanged_->hide();
  seen_.reset();
  paths_ = {};
  try {
    if (pages_.Count() > 0) paths_ = {pages_.SettingsPath(), pages_.ProductPath()};
  } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): the pages have told of it
  }
  for (std::int32_t i = 1; i <= pages_.Count(); ++i) {
    const pages::EditorPage* page = &pages_.Item(i);
    connect(page, &pages::EditorPage::Saved, this, &PageBars::PagesSaved);
    connect(page, &pages::EditorPage::SaveFailed, this, &PageBars::PagesSaved);
  }
  ShowWhetherMissing();
}

void PageBars::ShowWhetherMissing() {
  const std::string reason = pages_.MissingNode();
  if (!reason.empty()) {
    nodeMissing_->SetText(tools::ToQString(
        tools::ReplaceAll(model::LoadText(Text::NodeIsMissing), "%reason%", reason)));
  }
  nodeMissing_->setVisible(!reason.empty());
  TreeChanged();
}

// What another program wrote may have been overwritten.
void PageBars::PagesSaved() {
  if (!fileChanged_->isHidden()) fileChanged_->setVisible(pages_.HasChangedOutside());
}

void PageBars::TreeChanged() {
  noComponents_->setVisible(node_.tag == kVersionTag && pages_.Count() > 0 &&
                            !tree_.HasChildren(node_) && nodeMissing_->isHidden());
}

bool PageBars::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowActivate) LookAtFile();
  return QObject::eventFilter(watched, event);
}

// Only the files' stamps are looked at in the background; a file that has another one is read anew.
void PageBars::LookAtFile() {
  if (paths_.file.empty()) return;
  tools::RunInBackground(*this, [this, paths = paths_]() -> std::function<void()> {
    return [this, paths, stamps = std::pair(StampOf(paths.file), StampOf(paths.product))] {
      if (paths.file != paths_.file || pages_.Count() == 0 || stamps == seen_) return;
      seen_ = stamps;
      ShowWhetherMissing();
      fileChanged_->setVisible(nodeMissing_->isHidden() && pages_.HasChangedOutside());
    };
  });
}

}  // namespace shell
