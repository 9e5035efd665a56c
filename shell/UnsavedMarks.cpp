#include "shell/UnsavedMarks.h"

#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTabBar>
#include <QTime>
#include <algorithm>

#include "model/TextTable.h"
#include "pages/EditorPage.h"
#include "shell/EditorTabs.h"
#include "shell/IconList.h"
#include "shell/ProjectTree.h"
#include "tools/Text.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::LoadText;
using model::Text;

UnsavedMarks::UnsavedMarks(QMainWindow& window, ProjectTree& tree, QTabBar& tabs)
    : QObject(&window),
      window_(window),
      tree_(tree),
      tabs_(tabs),
      lblSaveState_(new QLabel(&window)) {
  lblSaveState_->setObjectName(QStringLiteral("lblSaveState"));
  window.statusBar()->addPermanentWidget(lblSaveState_);
}

void UnsavedMarks::Begin(const QString& caption) {
  caption_ = caption;
  savedAt_.clear();
  Show();
}

void UnsavedMarks::Watch(EditorTabs& pages, const Node& node) {
  pages_.clear();
  node_ = node;
  for (std::int32_t i = 1; i <= pages.Count(); ++i) {
    pages::EditorPage* page = &pages.Item(i);
    pages_.emplace_back(page);
    disconnect(page, nullptr, this, nullptr);  // a page that could not be removed is connected
    connect(page, &pages::EditorPage::DirtyChanged, this, &UnsavedMarks::Show);
    connect(page, &pages::EditorPage::Saved, this, &UnsavedMarks::OnSaved);
    connect(page, &pages::EditorPage::SaveFailed, this, &UnsavedMarks::OnSaveFailed);
  }
  Show();
}

void UnsavedMarks::OnSaved() {
  savedAt_ = QTime::currentTime().toString(QStringLiteral("HH:mm"));
  Show();
}

// The pages may go now, with what could not be saved: a time would promise that it is stored.
void UnsavedMarks::OnSaveFailed() {
  savedAt_.clear();
  Show();
}

void UnsavedMarks::Show() {
  bool anyDirty = false;
  bool anyFailed = false;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const bool unsaved = pages_[i] != nullptr && pages_[i]->IsUnsaved();
    const bool dirty = unsaved && pages_[i]->IsDirty();
    MarkTab(static_cast<int>(i), unsaved);
    anyDirty = anyDirty || dirty;
    anyFailed = anyFailed || (unsaved && !dirty);
  }
  const bool anyUnsaved = anyDirty || anyFailed;
  tree_.MarkChanged(anyUnsaved ? node_ : Node());
  MarkWindow(anyUnsaved);
  lblSaveState_->setText(anyDirty    ? tools::ToQString(LoadText(Text::Changed))
                         : anyFailed ? tools::ToQString(LoadText(Text::NotSaved))
                                     : SavedText());
}

void UnsavedMarks::MarkTab(int index, bool unsaved) {
  if (index >= tabs_.count()) return;
  tabs_.setTabIcon(index, unsaved ? ChangeMark() : QIcon());
  // The mark's word for those who do not see it.
  const std::string name = tools::ReplaceAll(LoadText(Text::ChangedName), "%title%",
                                             tools::ToUtf8(tabs_.tabText(index)));
  tabs_.setAccessibleTabName(index, unsaved ? tools::ToQString(name) : QString());
}

void UnsavedMarks::MarkWindow(bool unsaved) {
  // Qt reads "[*]" in a caption as the place of its mark. Without changes the caption has none.
  const QString mark = QStringLiteral("[*]");
  QString literal = caption_;
  literal.replace(mark, mark + mark);
  if (!unsaved) window_.setWindowModified(false);
  window_.setWindowTitle(unsaved ? literal + mark : literal);
  if (unsaved) window_.setWindowModified(true);
}

QString UnsavedMarks::SavedText() const {
  if (savedAt_.isEmpty()) return {};
  return tools::ToQString(
      tools::ReplaceAll(LoadText(Text::SavedAt), "%time%", tools::ToUtf8(savedAt_)));
}

}  // namespace shell
