#include "shell/StartArea.h"

#include <QBoxLayout>
#include <QToolButton>

#include "shell/RecentMenu.h"
#include "shell/StartPage.h"
#include "tools/desktop/Guard.h"

namespace shell {

using tools::Guarded;

StartArea::StartArea(QBoxLayout& layout, QWidget& editor, QToolButton& openButton,
                     Services services)
    : QObject(&editor),
      layout_(layout),
      editor_(editor),
      services_(services),
      recent_(services.registry),
      page_(new StartPage(editor.parentWidget())) {
  layout_.addWidget(page_);
  tools::Dialogs& dialogs = services_.dialogs;
  const auto open =
      Guarded(dialogs, [this](const std::string& path) { services_.operations.OpenProduct(path); });
  connect(page_, &StartPage::NewWanted, this,
          Guarded(dialogs, [this] { services_.operations.NewProduct(); }), Qt::QueuedConnection);
  connect(page_, &StartPage::OpenWanted, this,
          Guarded(dialogs, [this] { services_.operations.OpenProduct({}); }), Qt::QueuedConnection);
  connect(page_, &StartPage::ProductWanted, this, open);
  connect(page_, &StartPage::RemovalWanted, this,
          Guarded(dialogs, [this](const std::string& path) { Remove(path); }));
  auto* menu = new RecentMenu(openButton, [this] { return recent_.Paths(); });
  connect(menu, &RecentMenu::ProductWanted, this, open, Qt::QueuedConnection);
  connect(menu, &RecentMenu::RemovalWanted, this,
          Guarded(dialogs, [this](const std::string& path) { Remove(path); }));
}

StartPage* StartArea::Page() const { return page_; }

void StartArea::Remember(const std::string& product) {
  // A product can be worked on without it.
  tools::Guard(services_.dialogs, [&] { recent_.Add(product); });
}

void StartArea::Update(Editor editor) {
  const bool hasPages = editor == Editor::HasPages;
  page_->setVisible(!hasPages);
  layout_.setStretchFactor(&editor_, hasPages ? 1 : 0);
  layout_.setStretchFactor(page_, hasPages ? 0 : 1);
  if (editor == Editor::NoProduct) {
    page_->ShowStart(recent_.Paths());
  } else {
    page_->ShowNothingSelected();
  }
}

void StartArea::Remove(const std::string& path) {
  recent_.Remove(path);
  if (page_->IsStart()) page_->ShowStart(recent_.Paths());
}

}  // namespace shell
