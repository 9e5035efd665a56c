#include "shell/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

#include "model/TextTable.h"
#include "pages/PageText.h"
#include "shell/ErrorList.h"
#include "shell/IconList.h"
#include "shell/MainToolBar.h"
#include "shell/PageBars.h"
#include "shell/ProjectTree.h"
#include "shell/ResultPanel.h"
#include "shell/StartArea.h"
#include "shell/StartPage.h"
#include "shell/TitleLabel.h"
#include "shell/UnsavedMarks.h"
#include "shell/WindowKeys.h"
#include "shell/WindowPlace.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/UserInputBlocker.h"
#include "tools/desktop/WaitCursor.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsStore.h"

namespace shell {

using model::Text;
using pages::Caption;

namespace {

constexpr QSize kFirstSize(1040, 680);
constexpr QSize kLeastSize(640, 420);
constexpr QSize kWindowFrame(16, 48);  ///< what the window system may add around the window
constexpr int kFirstTreeWidth = 280;

}  // namespace

frmMain::frmMain(const MainServices& services)
    : services_(services),
      dialogs_(services.dialogs != nullptr ? *services.dialogs : desktopDialogs_),
      editorTabs_(*this, services.project, dialogs_, services.registry, services.pageRegistry),
      newProductForm_(services.registry, dialogs_, *this),
      operations_(services.project, services.disk, dialogs_, services.clock,
                  {.view = *this, .pages = editorTabs_, .newProductForm = newProductForm_}),
      components_(services.project, services.disk, dialogs_, *this) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowIcon(IconList().Icon(QStringLiteral("packwright")));
  BuildToolBar();
  sbrMain = statusBar();
  sbrMain->setObjectName(QStringLiteral("sbrMain"));
  sbrMain->setMouseTracking(true);
  sbrMain->installEventFilter(this);
  splitter_ = new QSplitter(this);
  splitter_->setObjectName(QStringLiteral("splitter"));
  splitter_->setChildrenCollapsible(false);
  setCentralWidget(splitter_);
  BuildTreePane();
  BuildEditorPane();
  BuildMenus();
  BuildResultPanel();
  BuildKeys();
  marks_ = new UnsavedMarks(*this, *trvProjectTree, *tabDataEditor);
  splitter_->setStretchFactor(1, 1);
  splitter_->setSizes({kFirstTreeWidth, kFirstSize.width() - kFirstTreeWidth});
  // On a small screen, or at a large scale, no part of it is out of sight.
  const QSize room = screen()->availableSize() - kWindowFrame;
  setMinimumSize(kLeastSize.boundedTo(room));
  resize(kFirstSize.boundedTo(room));
  RestoreWindowPlace(services_.registry, *this, *splitter_);
  UpdateProjectState();
}

frmMain::~frmMain() = default;

void frmMain::SetFixedCaptions() {
  marks_->Begin(Caption(Text::ProgramName));
  lblProjectTreeTitle->setText(Caption(Text::ProjectTreeTitle) + QLatin1Char(' '));
  lblDataEditorTitle->setText(Caption(Text::ProjectEditorTitle) + QLatin1Char(' '));
  lblProjectTreeInfo->setText(Caption(Text::ProjectTreeHint));
  trvProjectTree->setAccessibleName(Caption(Text::ProjectTreeTitle));
  tabDataEditor->setAccessibleName(Caption(Text::ProjectEditorTitle));
}

void frmMain::UpdateProjectState() {
  const bool open = services_.project.IsOpen();
  if (open) {
    marks_->Begin(Caption(Text::ProgramName) + QStringLiteral(" - ") +
                  tools::ToQString(tools::FileNamePart(services_.project.ProductPath())));
  } else {
    SetFixedCaptions();
  }
  EnableDisableAll(open);
  ErrorList errors;
  FillTree(errors);
  errors.Try([this] { UpdateEditor(); });
  if (open) {
    trvProjectTree->setFocus();
    startArea_->Remember(services_.project.ProductPath());
  } else {
    startArea_->Page()->TakeFocus();
  }
  pnlResult->Clear();
  errors.Show(dialogs_);
}

void frmMain::EnableDisableAll(bool enable) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           trvProjectTree, tabDataEditor, picProjectTree, picDataEditor, lblProjectTreeInfo}) {
    control->setEnabled(enable);
  }
  lblProjectTreeTitle->SetActive(enable);
  lblDataEditorTitle->SetActive(enable);
}

void frmMain::UpdateTree() {
  ErrorList errors;
  FillTree(errors);
  errors.Show(dialogs_);
}

void frmMain::FillTree(ErrorList& errors) {
  // Thousands of components are read.
  const tools::SettingsStore::Session session(services_.project.Settings());
  model::VersionSlot latest;
  errors.Try([&] { latest = operations_.LatestVersion(); });
  trvProjectTree->Fill(services_.project, latest, errors);
  pageBars_->TreeChanged();
}

void frmMain::UpdateEditor() {
  DropPages(Changes::Offer);
  // First: a product file that cannot be read is told once, not by each page.
  ShowProductTitle();
  shownNode_ = trvProjectTree->SelectedNode();
  const NodeSlots slots = SlotsOf(shownNode_);
  editorTabs_.Prepare(PageListOf(shownNode_), slots.version, slots.component);
  ShowTabs();
  PutLastInTabOrder(*pnlResult);  // the pages are younger
}

void frmMain::ShowProductTitle() {
  if (!services_.project.Settings().Exists(services_.project.ProductPath())) return;
  trvProjectTree->SetProductTitle(services_.project.ProductTitle());
}

void frmMain::ShowTabs() {
  const QSignalBlocker quiet(tabDataEditor);
  // Nodes of one kind open with the page that was shown last for that kind.
  const QString last = lastPages_[shownNode_.tag];
  for (std::int32_t i = 1; i <= editorTabs_.Count(); ++i) {
    const int tab = tabDataEditor->addTab(tools::ToQString(editorTabs_.Item(i).Title()));
    if (tabDataEditor->tabText(tab) == last) tabDataEditor->setCurrentIndex(tab);
  }
  marks_->Watch(editorTabs_, shownNode_);
  pageBars_->PagesRead(shownNode_);
  UpdateStartArea();
  OnTabClick();
}

void frmMain::OnTabClick() {
  const int tab = tabDataEditor->currentIndex();
  if (!services_.project.IsOpen() || tab < 0) return;
  lastPages_[shownNode_.tag] = tabDataEditor->tabText(tab);
  ShowStatusText({});  // the hint of the page that goes
  // The keyboard goes on with the page: hidden under it, a page would leave it to the next best
  // control of the window.
  bool isOnPage = false;
  for (std::int32_t i = 1; i <= editorTabs_.Count(); ++i) {
    isOnPage = isOnPage || editorTabs_.Item(i).isAncestorOf(QApplication::focusWidget());
  }
  editorTabs_.ShowTab(tab + 1);
  if (isOnPage && !FocusPane(editorTabs_.Item(tab + 1))) tabDataEditor->setFocus();
}

void frmMain::PositionExtender(QWidget& page) {
  if (pageLayout_->indexOf(&page) < 0) pageLayout_->addWidget(&page);
  pageArea_->verticalScrollBar()->setValue(0);
  pageArea_->show();
}

QWidget* frmMain::PageParent() { return pageLayout_->parentWidget(); }

void frmMain::ShowStatusText(const std::string& text) {
  sbrMain->showMessage(tools::ToQString(text));
}

std::unique_ptr<model::Hourglass> frmMain::ShowHourglass() {
  struct Pointer : model::Hourglass {
    tools::WaitCursor cursor;
  };
  auto hourglass = std::make_unique<Pointer>();
  tools::PaintWithoutUserInput();
  return hourglass;
}

void frmMain::PopUpNodeMenu(const QPoint& globalPosition, tools::OpenedBy by) {
  const std::string tag = trvProjectTree->SelectedNode().tag;
  QMenu* menu = tag == kProductTag     ? mnuPopupProduct
                : tag == kVersionTag   ? mnuPopupVersion
                : tag == kComponentTag ? mnuPopupComponent
                                       : nullptr;
  if (menu == nullptr) return;
  menu->setAccessibleName(trvProjectTree->currentItem()->text(0));
  tools::PopUpMenu(*menu, globalPosition, by);
}

void frmMain::DeleteSelectedNode() {
  const Node node = trvProjectTree->SelectedNode();
  const NodeSlots slots = SlotsOf(node);
  const ShownTexts shown = trvProjectTree->SelectedTexts();
  tools::Guard(dialogs_, [&] {
    if (node.tag == kVersionTag) operations_.DeleteVersion(slots.version, shown.version);
    if (node.tag == kComponentTag) {
      operations_.DeleteComponent(slots.version, slots.component, shown.version, shown.component);
    }
  });
  // Its pages could only write to files that are gone, or to a later node of the same slot.
  if (trvProjectTree->SelectedNode() == node) return;
  if (node.tag == kVersionTag) pnlResult->Forget(slots.version);
  DropPages(Changes::Lose);
  UpdateStartArea();
}

void frmMain::DropPages(Changes changes) {
  editorTabs_.Reset(changes == Changes::Offer);
  const QSignalBlocker quiet(tabDataEditor);
  while (tabDataEditor->count() > 0) tabDataEditor->removeTab(0);
  marks_->Watch(editorTabs_, shownNode_);
  pageBars_->PagesRead(shownNode_);
  ShowStatusText({});
  for (const std::string& failure : editorTabs_.TakeFailures()) {
    tools::ShowError(dialogs_, failure);
  }
}

void frmMain::UpdateStartArea() {
  if (tabDataEditor->count() == 0) pageArea_->hide();
  using Editor = StartArea::Editor;
  startArea_->Update(tabDataEditor->count() > 0   ? Editor::HasPages
                     : services_.project.IsOpen() ? Editor::NothingSelected
                                                  : Editor::NoProduct);
}

void frmMain::OnToolButton(const QString& key) {
  if (key == QLatin1String("new")) operations_.NewProduct();
  if (key == QLatin1String("open")) operations_.OpenProduct({});
  if (key == QLatin1String("save")) {
    operations_.SaveAllPages();
    ShowProductTitle();
  }
  if (key == QLatin1String("close")) operations_.CloseProduct();
  if (key == QLatin1String("setupwiz")) StartWizard(Text::SetupWizard, &frmMain::SetupWizardWanted);
  if (key == QLatin1String("updatewiz"))
    StartWizard(Text::UpdateWizard, &frmMain::UpdateWizardWanted);
}

void frmMain::StartWizard(Text title, Wanted wanted) {
  if (!services_.project.IsOpen()) {
    Refuse(Text::NoProjectOpen, title);
    return;
  }
  const Node node = trvProjectTree->SelectedNode();
  if (node.tag != kVersionTag) {
    Refuse(Text::NoVersionSelected, title);
    return;
  }
  Q_EMIT(this->*wanted)(SlotsOf(node).version, editorTabs_);
}

void frmMain::RunForVersion(Text title, Text withoutVersion, Wanted wanted) {
  if (!services_.project.IsOpen()) {
    Refuse(Text::NoProjectOpen, title);
    return;
  }
  const model::VersionSlot version = SlotsOf(trvProjectTree->SelectedNode()).version;
  if (version == 0) {
    Refuse(withoutVersion, title);
    return;
  }
  Q_EMIT(this->*wanted)(version, editorTabs_);
}

void frmMain::ShowPlace(model::VersionSlot version, const findings::ChosenPlace& place) {
  if (!OpenNode(ComponentNode(version, place.component)) || place.entry == 0) return;
  for (std::int32_t i = 1; i <= editorTabs_.Count(); ++i) {
    pages::EditorPage& page = editorTabs_.Item(i);
    if (!page.ShowEntry(place.entry, place.entryId)) continue;
    if (tabDataEditor->currentIndex() == i - 1) return;
    tabDataEditor->setCurrentIndex(i - 1);
    page.ShowEntry(place.entry, place.entryId);  // hidden, it could not take the keyboard
    return;
  }
  ShowStatusText(model::LoadText(Text::EntryIsGone));
}

bool frmMain::OpenNode(const Node& node) {
  if (!trvProjectTree->SelectNode(node)) {
    ShowStatusText(model::LoadText(Text::EntryIsGone));
    return false;
  }
  const bool isShown = node == shownNode_ && editorTabs_.Count() > 0;
  if (isShown && (operations_.HasUnsaved() || !editorTabs_.HasChangedOutside())) return true;
  if (!editorTabs_.OfferUnsaved()) {
    trvProjectTree->SelectNode(shownNode_);
    return false;
  }
  UpdateEditor();
  return true;
}

void frmMain::Refuse(Text text, Text caption) {
  dialogs_.ShowMessage({.text = model::LoadText(text), .caption = model::LoadText(caption)});
}

void frmMain::closeEvent(QCloseEvent* event) {
  tools::Guard(dialogs_, [this] { RememberWindowPlace(services_.registry, *this, *splitter_); });
  // Whatever the answer, the window closes.
  if (event->spontaneous()) {
    tools::Guard(dialogs_, [this] { operations_.CloseProductAfterWarning(); });
  }
  DropPages(Changes::Lose);
  event->accept();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (watched == sbrMain && event->type() == QEvent::MouseMove) ShowStatusText({});
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace shell
