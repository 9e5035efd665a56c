// The controls of the main window: what frmMain.cpp makes work together.
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QVBoxLayout>
#include <utility>

#include "model/TextTable.h"
#include "pages/PageText.h"
#include "shell/ComponentCommands.h"
#include "shell/MainToolBar.h"
#include "shell/PageBars.h"
#include "shell/ProjectTree.h"
#include "shell/ResultPanel.h"
#include "shell/StartArea.h"
#include "shell/StartPage.h"
#include "shell/TitleLabel.h"
#include "shell/UserGuide.h"
#include "shell/WindowKeys.h"
#include "shell/frmMain.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/PageArea.h"

namespace shell {

using model::Text;
using pages::Caption;

namespace {

constexpr int kLeastPageLines = 8;  ///< that the result panel leaves to a page

}  // namespace

void frmMain::BuildToolBar() {
  tbrMain = new MainToolBar(this);
  addToolBar(tbrMain);
  connect(tbrMain, &MainToolBar::ButtonClicked, this,
          tools::Guarded(dialogs_, [this](const QString& key) { OnToolButton(key); }));
}

void frmMain::BuildTreePane() {
  picProjectTree = new QWidget(splitter_);
  picProjectTree->setObjectName(QStringLiteral("picProjectTree"));
  lblProjectTreeTitle = new TitleLabel(picProjectTree);
  lblProjectTreeTitle->setObjectName(QStringLiteral("lblProjectTreeTitle"));
  trvProjectTree = new ProjectTree(picProjectTree);
  trvProjectTree->setObjectName(QStringLiteral("trvProjectTree"));
  lblProjectTreeInfo = new QLabel(picProjectTree);
  lblProjectTreeInfo->setObjectName(QStringLiteral("lblProjectTreeInfo"));
  lblProjectTreeInfo->setWordWrap(true);
  lblProjectTreeTitle->setBuddy(trvProjectTree);

  auto* layout = new QVBoxLayout(picProjectTree);
  layout->setContentsMargins(6, 6, 0, 6);
  layout->addWidget(lblProjectTreeTitle);
  layout->addWidget(trvProjectTree, 1);
  layout->addWidget(lblProjectTreeInfo);

  connect(trvProjectTree, &ProjectTree::NodeClicked, this,
          tools::Guarded(dialogs_, [this] { UpdateEditor(); }));
  connect(trvProjectTree, &ProjectTree::MenuWanted, this, &frmMain::PopUpNodeMenu);
  connect(trvProjectTree, &ProjectTree::PointerMoved, this, [this] { ShowStatusText({}); });
}

void frmMain::BuildEditorPane() {
  auto* side = new QWidget(splitter_);
  picDataEditor = new QWidget(side);
  picDataEditor->setObjectName(QStringLiteral("picDataEditor"));
  lblDataEditorTitle = new TitleLabel(picDataEditor);
  lblDataEditorTitle->setObjectName(QStringLiteral("lblDataEditorTitle"));
  tabDataEditor = new QTabBar(picDataEditor);
  tabDataEditor->setObjectName(QStringLiteral("tabDataEditor"));
  tabDataEditor->setDocumentMode(true);
  tabDataEditor->setExpanding(false);
  tabDataEditor->setUsesScrollButtons(true);
  // The mark of unsaved changes makes no tab higher, which would move the page.
  const int markSize = tabDataEditor->fontMetrics().height();
  tabDataEditor->setIconSize(QSize(markSize, markSize));
  tabDataEditor->setAccessibleName(Caption(Text::PageTabs));
  lblDataEditorTitle->setBuddy(tabDataEditor);

  editorLayout_ = new QVBoxLayout(picDataEditor);
  editorLayout_->setContentsMargins(0, 6, 6, 6);
  editorLayout_->addWidget(lblDataEditorTitle);
  editorLayout_->addWidget(tabDataEditor);
  pageBars_ = MakePageBars();
  auto* pages = new QWidget;
  pageLayout_ = new QVBoxLayout(pages);
  pageLayout_->setContentsMargins(0, 0, 0, 0);
  pageArea_ = tools::MakePageArea(pages, 0, picDataEditor);
  pageArea_->setMinimumHeight(kLeastPageLines * fontMetrics().height());
  editorLayout_->addWidget(pageArea_, 1);
  editorLayout_->addStretch(0);

  auto* sideLayout = new QVBoxLayout(side);
  sideLayout->setContentsMargins(0, 0, 0, 0);
  sideLayout->addWidget(picDataEditor);
  startArea_ = new StartArea(
      *sideLayout, *picDataEditor, tbrMain->Button(QStringLiteral("open")),
      {.operations = operations_, .dialogs = dialogs_, .registry = services_.registry});
  connect(tabDataEditor, &QTabBar::currentChanged, this,
          tools::Guarded(dialogs_, [this] { OnTabClick(); }));
}

QAction* frmMain::AddMenuItem(QMenu& menu, const char* name, Text text) {
  QAction* item = menu.addAction(Caption(text));
  item->setObjectName(QString::fromLatin1(name));
  return item;
}

void frmMain::OnMenuItem(QAction* item, std::function<void()> command) {
  connect(item, &QAction::triggered, this, tools::Guarded(dialogs_, std::move(command)));
}

void frmMain::BuildMenus() {
  mnuPopupProduct = new QMenu(this);
  mnuPopupProduct->setObjectName(QStringLiteral("mnuPopupProduct"));
  mnuProductAddVersion = AddMenuItem(*mnuPopupProduct, "mnuProductAddVersion", Text::AddVersion);
  OnMenuItem(mnuProductAddVersion, [this] { operations_.AddVersion(); });

  mnuPopupVersion = new QMenu(this);
  mnuPopupVersion->setObjectName(QStringLiteral("mnuPopupVersion"));
  mnuVersionAddComponent =
      AddMenuItem(*mnuPopupVersion, "mnuVersionAddComponent", Text::AddComponent);
  mnuVersionSep = mnuPopupVersion->addSeparator();
  mnuVersionSep->setObjectName(QStringLiteral("mnuVersionSep"));
  mnuVersionDelete = AddMenuItem(*mnuPopupVersion, "mnuVersionDelete", Text::Delete);
  mnuVersionProperties = AddMenuItem(*mnuPopupVersion, "mnuVersionProperties", Text::Properties);
  OnMenuItem(mnuVersionAddComponent,
             [this] { operations_.AddComponent(SlotsOf(trvProjectTree->SelectedNode()).version); });
  OnMenuItem(mnuVersionDelete, [this] { DeleteSelectedNode(); });

  mnuPopupComponent = new QMenu(this);
  mnuPopupComponent->setObjectName(QStringLiteral("mnuPopupComponent"));
  mnuComponentDelete = AddMenuItem(*mnuPopupComponent, "mnuComponentDelete", Text::Delete);
  mnuComponentProperties =
      AddMenuItem(*mnuPopupComponent, "mnuComponentProperties", Text::Properties);
  OnMenuItem(mnuComponentDelete, [this] { DeleteSelectedNode(); });
  componentCommands_ = MakeComponentCommands();
  componentCommands_->AddTo(*mnuPopupVersion, *mnuPopupComponent);
}

ComponentCommands* frmMain::MakeComponentCommands() {
  return new ComponentCommands(
      *trvProjectTree, {.project = services_.project,
                        .operations = operations_,
                        .components = components_,
                        .dialogs = dialogs_,
                        .closePages =
                            [this] {
                              if (!editorTabs_.OfferUnsaved()) return false;
                              DropPages(Changes::Offer);
                              return editorTabs_.Count() == 0;
                            },
                        .openNode =
                            [this](const Node& node) {
                              trvProjectTree->SelectNode(node);
                              UpdateEditor();
                            },
                        .showStatus = [this](const std::string& text) { ShowStatusText(text); }});
}

PageBars* frmMain::MakePageBars() {
  const auto guarded = [this](auto command) {
    return [this, command](auto... slot) { tools::Guard(dialogs_, [&] { command(slot...); }); };
  };
  return new PageBars(
      *editorLayout_, *this, *trvProjectTree, editorTabs_,
      {.takeOver =
           guarded([this](model::VersionSlot version) { componentCommands_->TakeOver(version); }),
       .addComponent =
           guarded([this](model::VersionSlot version) { operations_.AddComponent(version); }),
       .reload = guarded([this] {
         services_.project.RequireProduct();  // without it the tree would be empty
         if (!editorTabs_.OfferUnsaved()) return;
         UpdateTree();
         trvProjectTree->SelectNode(trvProjectTree->SelectedNode());
         UpdateEditor();
       })});
}

void frmMain::BuildResultPanel() {
  pnlResult = new ResultPanel(dialogs_, this);
  addDockWidget(Qt::BottomDockWidgetArea, pnlResult);
  pnlResult->hide();
  connect(pnlResult, &ResultPanel::PlaceChosen, this,
          tools::Guarded(dialogs_,
                         [this](model::VersionSlot version, const findings::ChosenPlace& place) {
                           ShowPlace(version, place);
                         }));
  connect(pnlResult, &ResultPanel::BuildAgainWanted, this,
          [this](model::VersionSlot version) { Q_EMIT BuildAgainWanted(version, editorTabs_); });

  // Its close button takes no focus.
  auto* close = new QShortcut(Qt::Key_Escape, pnlResult);
  close->setContext(Qt::WidgetWithChildrenShortcut);
  connect(close, &QShortcut::activated, this, [this] {
    pnlResult->hide();
    trvProjectTree->setFocus();
  });

  // In the version's menu, and by their keys from wherever the user is.
  mnuPopupVersion->addSeparator();
  mnuVersionCheck = AddMenuItem(*mnuPopupVersion, "mnuVersionCheck", Text::CheckVersion);
  mnuVersionCheck->setShortcut(Qt::Key_F5);
  mnuVersionBuildAgain = AddMenuItem(*mnuPopupVersion, "mnuVersionBuildAgain", Text::BuildAgain);
  mnuVersionBuildAgain->setShortcut(Qt::Key_F7);
  addActions({mnuVersionCheck, mnuVersionBuildAgain});
  OnMenuItem(mnuVersionCheck, [this] {
    RunForVersion(Text::CheckVersion, Text::NoVersionToCheck, &frmMain::CheckWanted);
  });
  OnMenuItem(mnuVersionBuildAgain, [this] {
    RunForVersion(Text::BuildAgain, Text::NoVersionSelected, &frmMain::BuildAgainWanted);
  });
  QAction* show = AddMenuItem(*mnuPopupVersion, "mnuVersionShowResult", Text::ShowResult);
  OnMenuItem(show, [this] { pnlResult->show(); });
  connect(mnuPopupVersion, &QMenu::aboutToShow, this,
          [this, show] { show->setEnabled(pnlResult->HasResult()); });
}

void frmMain::BuildKeys() {
  const auto page = [this]() -> pages::EditorPage* {
    const int tab = tabDataEditor->currentIndex();
    return tab < 0 ? nullptr : &editorTabs_.Item(tab + 1);
  };
  new WindowKeys(*this, *tabDataEditor,
                 {[this] { return trvProjectTree; }, [this] { return tabDataEditor; }, page,
                  [this] { return startArea_->Page(); }, [this] { return pnlResult; },
                  [this] { return tbrMain; }},
                 tools::Guarded(dialogs_, [this, page] {
                   const pages::EditorPage* shown = page();
                   std::string chapter;
                   if (shown != nullptr) chapter = services_.pageRegistry.GuideChapter(*shown);
                   OpenGuide(chapter.empty() ? kMainWindowChapter : chapter);
                 }));
}

}  // namespace shell
